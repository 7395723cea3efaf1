#!/usr/bin/env bash
# Takes the tour under each of Debian's window managers for X11 and says in a line each how it went.
# By hand, for somebody should look at the pictures too.
#
#   window_managers.sh PROGRAM [PACKAGE...]
#
# Missing packages are installed where that may be done. Output and pictures are in build/tour of the
# tree afterwards, under the names of the packages.
set -uo pipefail
program=$(realpath "$1")
shift
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit
source scripts/setup.sh
mkdir -p build/tour

# Its packages and the command.
managers=(
    "openbox                     openbox"
    "xfwm4                       dbus-run-session xfwm4"
    "metacity                    env GSETTINGS_BACKEND=memory metacity"
    "icewm                       icewm"
    "fluxbox                     fluxbox_without_wallpaper"
    "i3-wm                       i3 -c /dev/null"
    "kwin-x11,kwin-style-breeze  dbus-run-session kwin_x11"
    "mutter                      dbus-run-session mutter --x11"
)

# It says in a window of its own that it cannot set one.
# shellcheck disable=SC2317
fluxbox_without_wallpaper() {
    mkdir -p "$HOME/.fluxbox"
    echo "background: none" >"$HOME/.fluxbox/overlay"
    exec fluxbox
}
export -f fluxbox_without_wallpaper

status=0
for manager in "${managers[@]}"; do
    read -r packages command <<<"$manager"
    name=${packages%%,*}
    if (($#)) && [[ " $* " != *" $name "* ]]; then
        continue
    fi
    output=build/tour/$name.output
    IFS=, read -r -a packages <<<"$packages"
    { dpkg -s "${packages[@]}" || { may_install && apt_install "${packages[@]}"; }; } >"$output" 2>&1
    if WINDOW_MANAGER=$command tests/tour/tour.sh "$program" "$name" >>"$output" 2>&1; then
        echo "$name passed"
    else
        status=1
        echo "$name failed: $(tail -n 1 "$output")"
    fi
done
exit "$status"

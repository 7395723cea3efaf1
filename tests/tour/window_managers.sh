#!/usr/bin/env bash
# Takes the tour under each of Debian's window managers for X11 and says in a line each how it went.
# By hand, for somebody should look at the pictures too.
#
#   window_managers.sh PROGRAM [PACKAGE...]
#
# Missing packages are installed where that may be done. Output and pictures are in
# build/window_managers/PACKAGE of the tree afterwards.
set -uo pipefail
program=$(realpath "$1")
shift
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit
source scripts/setup.sh

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

take_tour() {
    IFS=, read -r -a packages <<<"$1"
    if ! dpkg -s "${packages[@]}" && ! { may_install && apt_install "${packages[@]}"; }; then
        echo "$1 cannot be installed"
        return 1
    fi
    WINDOW_MANAGER=$2 tests/tour/tour.sh "$program"
}

status=0
for manager in "${managers[@]}"; do
    read -r packages command <<<"$manager"
    name=${packages%%,*}
    if (($# == 0)) || [[ " $* " == *" $name "* ]]; then
        folder=build/window_managers/$name
        rm -rf "$folder"
        mkdir -p "$folder"
        result=passed
        take_tour "$packages" "$command" >"$folder/output" 2>&1 ||
            { status=1 result="failed: $(tail -n 1 "$folder/output")"; }
        cp build/tour/tour-*.png "$folder"
        echo "$name $result"
    fi
done
exit "$status"

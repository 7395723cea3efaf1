#!/usr/bin/env bash
# Takes the tour under each window manager that is installed, and says in a line each how it went. By
# hand, for somebody should look at the pictures too. Debian has them all:
#
#   apt-get install openbox xfwm4 metacity icewm fluxbox i3-wm kwin-x11 kwin-style-breeze mutter
#   window_managers.sh PROGRAM
#
# Output and pictures are in build/tour of the tree afterwards.
set -uo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
pictures=$here/../../build/tour
export GSETTINGS_BACKEND=memory # metacity's

# It says in a window of its own that it cannot set one.
# shellcheck disable=SC2317
fluxbox_without_wallpaper() {
    mkdir -p "$HOME/.fluxbox"
    echo "background: none" >"$HOME/.fluxbox/overlay"
    exec fluxbox
}
export -f fluxbox_without_wallpaper

mkdir -p "$pictures"
for manager in openbox metacity icewm fluxbox_without_wallpaper "i3 -c /dev/null" \
    "dbus-run-session "{xfwm4,kwin_x11,"mutter --x11"}; do
    name=${manager#dbus-run-session }
    name=${name%%[ _]*}
    if WINDOW_MANAGER=$manager "$here/tour.sh" "$1" "$name" >"$pictures/$name.output" 2>&1; then
        echo "$name passed"
    else
        echo "$name failed: $(tail -n 1 "$pictures/$name.output")"
    fi
done

#!/usr/bin/env bash
# Does a rider's main work in the real program from outside, by the names that a screen reader reads
# and through the service that it uses.
#
#   screen_reader.sh PROGRAM [open_wayland_display]
#
# Needs no display, it brings its own, and a session bus of its own.
#
# shellcheck source-path=SCRIPTDIR
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
source "$here/../tour/stage.sh"

python=/usr/bin/python3 # the system's, which has the system's bindings
if ! type -P dbus-run-session weston >/dev/null ||
    ! "$python" -c "import gi; gi.require_version('Atspi', '2.0')" 2>/dev/null; then
    echo "no AT-SPI here"
    exit 77
fi
open_stage "$1" screen_reader "${2:-open_display}"
unset DBUS_SESSION_BUS_ADDRESS
export COMPOSITOR=$server
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
timeout 150 dbus-run-session -- "$python" "$here/screen_reader.py" "$folder/bin/Rotavel"
expect_saved "Modell = Breva 750" "RearWheelWidth = 130" "MaxRPM = 9000"

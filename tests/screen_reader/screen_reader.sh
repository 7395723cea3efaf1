#!/usr/bin/env bash
# Does a rider's main work in the real program from outside, by the names that a screen reader reads
# and through the service that it uses.
#
#   screen_reader.sh PROGRAM
#
# Needs no display, it brings its own, and a session bus of its own.
#
# shellcheck source-path=SCRIPTDIR
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
source "$here/../../scripts/virtual_display.sh"

python=/usr/bin/python3 # the system's, which has the system's bindings
if ! "$python" "$here/screen_reader.py" --is-here; then
    echo "no AT-SPI here"
    exit 77
fi
open_display screen_reader "$here/../../build/tour"
mkdir "$folder/bin" "$folder/Resources"
cp "$1" "$folder/bin/"
cat >"$folder/Resources/Rotavel.ini" <<END
[Settings]
Manufacturer = Maker
Modell = Six
MaxRPM = 9000
RearWheelWidth = 180
RearWheelPercentHeight = 55
RearWheelDiameter = 17
PrimaryRatio = 1.3125
FinalDriveRatio = 4.125
Gear1Ratio = 2.3636
Gear2Ratio = 1.6429
Gear3Ratio = 1.2778
Gear4Ratio = 1.0556
Gear5Ratio = 0.9000
Gear6Ratio = 0.8123
SpeedType = km/h
END
unset DBUS_SESSION_BUS_ADDRESS
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
timeout 150 dbus-run-session -- \
    "$python" "$here/screen_reader.py" "$folder/bin/$(basename "$1")"

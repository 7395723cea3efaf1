#!/usr/bin/env bash
# Drives the real program by mouse and keys through a rider's work and compares what it shows with
# what it should. The first difference ends the tour with status 1.
#
#   tour.sh PROGRAM [NAME]
#
# Needs no display, it brings its own. Leaves pictures in build/tour of the tree, whose names start
# with NAME, or with "tour".
#
# shellcheck source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/stage.sh"
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

open_stage "$1" "${2:-tour}"

echo "The first start writes the motorcycles; the last model of a long menu can be reached"
start
[[ $(wc -c <"$settings") == 17404 ]] || fail "$settings: expected 17404 bytes"
open_models
picture 1-menu
choose_last_model
expect "max rpm" 7500
opens click File
point_at 2 2
xdotool click 1
expect_end
expect_saved "Manufacturer = Moto Guzzi" "Modell = V85TT" "RearWheelWidth = 150" "MaxRPM = 7500"

echo "The next start shows what was saved; another motorcycle takes its place"
start
expect focus 150
open_models
choose_model 3
expect rpm 8750

echo "Speeds from the engine speed, and the other unit"
# Its tyre, 130/80-17, is (17 x 2.54 / 2 + 130 x 80 / 1000) x 2 pi = 200.999 cm around. 4000 turns a
# minute in first gear: 4000 x 60 x 200.999 / (4.125 x 1.3125) / 2.3636 / 100000 = 37.7 km/h, and
# x 0.621375 = 23.4 mph.
type_over rpm 4000
click "Calc speed"
expect_speeds "38 54 70 84 99 ----"
picture 2-speeds
opens click unit
point_at 2 2
choose
expect_speeds "23 34 43 52 62 ----"

echo "The chart, its magnifier under the mouse, and back"
opens click Graphic
chart=$opened
opens point_at 1 1
expect_chart_places "$chart" "$opened"
picture 3-chart
wmctrl -i -c "$chart" # its close box is elsewhere under every window manager
wait_for "end of the chart" only_main_window
expect rpm 4000
xdotool key shift+Tab
expect focus 8750 # the field before it, as ever
xdotool key ctrl+q
expect_end
expect_saved "Modell = Breva 750" "PrimaryRatio = 1.3125" "Gear6Ratio = 0" "SpeedType = mph"

echo "An inch width goes without percent; a typed ratio without a motorcycle; About opens and closes"
start
type_over "ratio 1" 9
type_over width 3.25
xdotool key Tab
expect focus 17 # the rim's: the percent field is passed over
picture 4-inches
type_over width 130
xdotool key Tab End type 70
expect focus 70 # and nothing is left of the 80
opens click Help
point_at 1 1
opens xdotool click 1
picture 5-about
xdotool key Return
wait_for "end of About" only_main_window
expect focus 70
wmctrl -i -c "$main"
expect_end
expect_saved "Modell = " "RearWheelWidth = 130" "RearWheelPercentHeight = 70" "Gear1Ratio = 9"
echo "All as expected"

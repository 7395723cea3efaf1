#!/usr/bin/env bash
# Measures the release build in a real window on a virtual display, the programs by turns: its start
# with 59 and with 6,000 motorcycles of one and of 48 makers beside an empty window, the same widgets
# with nothing behind them and those calculators that are installed; then its chart and its store.
# The machine should have nothing else to do; where it has, the least figures tell more.
#
#   bench/measure.sh [STARTS [CHARTS]]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/setup.sh
source scripts/build.sh
source scripts/virtual_display.sh

starts=${1:-15}
charts=${2:-100}

# rotavel_with NAME <MOTORCYCLES: a folder with the program, last values and motorcycles.
rotavel_with() {
    mkdir -p "$folder/$1/bin" "$folder/$1/Resources"
    cp build/release/bin/Rotavel "$folder/$1/bin/"
    {
        printf '%s\r\n' "[Settings]" "MaxRPM = 9000" "${values[@]}" ""
        cat
    } >"$folder/$1/Resources/Rotavel.ini"
}

# motorcycles COUNT MAKERS
motorcycles() {
    local number
    for ((number = 0; number < $1; ++number)); do
        printf '%s\r\n' "[Maker $((number % $2)) - Model number $number]" "${values[@]}" \
            "MaxRPM = 8750" ""
    done
}

values=("RearWheelWidth = 180" "RearWheelPercentHeight = 55" "RearWheelDiameter = 17"
    "PrimaryRatio = 1.4583" "Gear1Ratio = 2.2353" "Gear2Ratio = 1.7000" "Gear3Ratio = 1.3478"
    "Gear4Ratio = 1.1154" "Gear5Ratio = 0.9355" "Gear6Ratio = 0.8000" "FinalDriveRatio = 3.6667")

install_packages build run tour bench
configure release -DROTAVEL_BENCH=ON
for target in Rotavel window_clock empty_window bare_widgets chart_bench settings_bench \
    settings_peers_bench; do
    build release "$target"
done
open_display measure build/measure
motorcycles 59 8 | rotavel_with 59
motorcycles 6000 1 | rotavel_with 6000-of-one-maker
motorcycles 6000 48 | rotavel_with 6000-of-48-makers

mapfile -t peers < <(type -P galculator speedcrunch kcalc || true)
build/release/bench/window_clock start "$starts" build/release/bench/{empty_window,bare_widgets} \
    "$folder"/{59,6000-of-one-maker,6000-of-48-makers}/bin/Rotavel "${peers[@]}"
build/release/bench/window_clock chart "$charts" "$folder/59/bin/Rotavel"
build/release/bench/chart_bench
build/release/bench/settings_bench
build/release/bench/settings_peers_bench
echo "The first open of a process, as a start has it"
for bench in settings_bench settings_peers_bench; do
    for open in $(build/release/bench/$bench --benchmark_list_tests | grep ^Open); do
        build/release/bench/$bench --benchmark_filter="^$open\$" --benchmark_min_time=0.0001 \
            2>/dev/null | tail -n 1
    done
done

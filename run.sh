#!/usr/bin/env bash
# Installs what is missing, builds Rotavel and starts it. Without a display it takes the tour on a
# virtual one. The exit status is the program's, or the tour's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/setup.sh
source scripts/build.sh

program=build/release/bin/Rotavel

wayland_answers() {
    [[ -n ${WAYLAND_DISPLAY:-} ]] || return 1
    case $WAYLAND_DISPLAY in
        /*) [[ -S $WAYLAND_DISPLAY ]] ;;
        *) [[ -S ${XDG_RUNTIME_DIR:-}/$WAYLAND_DISPLAY ]] ;;
    esac
}

x_answers() {
    [[ -n ${DISPLAY:-} ]] && timeout 10 xdpyinfo >/dev/null 2>&1
}

# The tests stay out of a fresh build, and a build that has them is taken as it is.
build_program() {
    if ! is_configured release; then
        configure release -DROTAVEL_TESTS=OFF
    fi
    build release Rotavel
}

take_tour() {
    local status=0
    install_packages tour
    LC_ALL=C.UTF-8 tests/tour/tour.sh "$program" || status=$?
    echo "Pictures of the tour: $PWD/build/tour"
    return "$status"
}

if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    install_packages build run
else
    install_packages build run tour
fi
# Without the Wayland platform X will do, if it answers.
if wayland_answers; then
    install_packages wayland || x_answers
fi
build_program

if wayland_answers || x_answers; then
    exec "$program"
fi
echo "No display answers here: Rotavel takes its tour on a virtual one."
take_tour

# shellcheck shell=bash
# Sourced by what drives real programs: a display of its own, the program in a folder of its own
# there, and what it left behind.
#
# shellcheck source-path=SCRIPTDIR disable=SC2034,SC2154 # variables that the scripts share
set -euo pipefail
export LC_ALL=C.UTF-8
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"
tour_pictures=$(dirname "${BASH_SOURCE[0]}")/../../build/tour

# open_stage PROGRAM NAME [open_wayland_display]: pictures go to build/tour of the tree under names
# that start with NAME.
open_stage() {
    "${3:-open_display}" "$2" "$tour_pictures"
    settings=$folder/Resources/Rotavel.ini
    mkdir -p "$folder/bin" "$folder/Resources"
    cp "$1" "$folder/bin/Rotavel"
}

# Starts the program and waits until its window has the keyboard.
start() {
    "$folder/bin/Rotavel" &
    program=$!
    wait_for_keyboard "Rotavel V1.55"
    main=$found
}

# expect_saved LINE...: the settings file has these lines in the group of the last values.
expect_saved() {
    local line group
    group=$(sed -n '/^\[Settings\]$/,/^$/p' "$settings")
    for line in "$@"; do
        grep -qxF "$line" <<<"$group" || fail "expected a line '$line' in"$'\n'"$group"
    done
}

# shellcheck shell=bash
# Sourced by what drives the real program: that in a folder of its own on a display of its own, and
# what it left behind.
#
# shellcheck disable=SC2034,SC2154 # variables that the scripts share

# open_stage PROGRAM NAME [open_wayland_display]: pictures go to build/tour of the tree under names
# that start with NAME.
open_stage() {
    "${3:-open_display}" "$2" "$(dirname "${BASH_SOURCE[0]}")/../../build/tour"
    settings=$folder/Resources/Rotavel.ini
    mkdir -p "$folder/bin" "$folder/Resources"
    cp "$1" "$folder/bin/Rotavel"
}

# start TITLE: starts the program and waits until a window of that title has the keyboard.
start() {
    "$folder/bin/Rotavel" &
    program=$!
    wait_for_keyboard "$1"
    main=$found
}

# expect_saved LINE...: the settings file is as the program writes it, with these lines in the group
# of the last values.
expect_saved() {
    local line group
    [[ $(head -c 3 "$settings") == $'\xEF\xBB\xBF' ]] || fail "$settings: no byte-order mark"
    ! grep -q $'\r' "$settings" || fail "$settings: CR in a line end"
    group=$(sed -n '/^\[Settings\]$/,/^$/p' "$settings")
    for line in "$@"; do
        grep -qxF "$line" <<<"$group" || fail "expected a line '$line' in"$'\n'"$group"
    done
}

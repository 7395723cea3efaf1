# shellcheck shell=bash
# Sourced by tour.sh: the program in a folder of its own on a display of its own, and what it left
# behind.
#
# shellcheck disable=SC2034,SC2154 # variables that the scripts share

# open_stage PROGRAM PICTURES: pictures go to the folder PICTURES, as tour-*.png.
open_stage() {
    open_display tour "$2"
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

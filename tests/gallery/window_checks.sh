# shellcheck shell=bash
# Sourced by gallery.sh: what is checked of windows.
#
# shellcheck disable=SC2154 # variables that hands.sh sets

# drag DX DY: moves the mouse from where it is with its button down. The window manager takes the
# keyboard for as long as it moves or resizes a window.
drag() {
    xdotool mousedown 1 mousemove_relative -- $(($1 / 2)) $(($2 / 2))
    sees "a title bar or frame that is dragged" "WindowDeactivated 0"
    xdotool mousemove_relative -- $(($1 - $1 / 2)) $(($2 - $2 / 2)) mouseup 1
}

drag_corner() {
    look_at "$gallery"
    xdotool mousemove $((left + width)) $((top + height + 2))
    drag "$1" "$2"
    sees_in_any_order "a size" "WindowResized 0" "WindowActivated 0"
}

# expect_place WHAT LEFT TOP WIDTH HEIGHT: of the gallery's content.
expect_place() {
    look_at "$gallery"
    local now="$left $((top + menu_bar)) $width $((height - menu_bar))"
    [[ $now == "${*:2}" ]] || fail "$1: expected the content at ${*:2}, it is at $now"
}

check_moving() {
    look_at "$gallery"
    local x=$left y=$((top + menu_bar))
    put_pointer 200 -30
    drag -80 -60
    sees_in_any_order "a move" "WindowMoved 0" "WindowActivated 0"
    expect_place "a move" $((x - 80)) $((y - 60)) 460 330
    drag_corner 40 30
    expect_place "a size" $((x - 80)) $((y - 60)) 500 360
    drag_corner -450 -300
    expect_place "the smallest size" $((x - 80)) $((y - 60)) 300 200
    xdotool windowsize "$gallery" 1000 700
    sees "a size" "WindowResized 0"
    expect_place "the largest size" $((x - 80)) $((y - 60)) 600 450
}

# zooms WINDOW EVENT: a zoom posts the event, then the new size.
zooms() {
    zoom "$1"
    sees "a zoom" "$2 1" "WindowResized 1"
}

check_zooming() {
    open_second
    for _ in 1 2 3 4 5; do
        zooms "$second" WindowMaximized
        zooms "$second" WindowRestored
    done
    click_box "$second" "$minimize_box"
    sees_in_any_order "miniaturizing" "WindowMinimized 1" "WindowDeactivated 1" "WindowActivated 0"
    xdotool windowactivate "$second"
    sees_in_any_order "the way back" "WindowRestored 1" "WindowDeactivated 0" "WindowActivated 1"
    zooms "$second" WindowMaximized
    click_box "$second" "$minimize_box"
    sees_in_any_order "miniaturizing" "WindowMinimized 1" "WindowDeactivated 1" "WindowActivated 0"
    xdotool windowactivate "$second"
    sees_in_any_order "the way back of a zoomed window" \
        "WindowMaximized 1" "WindowDeactivated 0" "WindowActivated 1"
}

check_starting() {
    key F7
    wait_for_keyboard Resizable
    sees "a window that starts zoomed" "MenuChosen 4 0" "WindowDeactivated 0" "WindowActivated 1"
    zooms "$found" WindowRestored
    click_box "$found" "$close_box"
    sees "the close box" "CloseRequested 1" "WindowActivated 0"
    key F8
    sees "a window that starts miniaturized" "MenuChosen 5 0"
    xdotool windowactivate "$(xdotool search --name '^Resizable$')"
    sees_in_any_order "the way up" "WindowRestored 1" "WindowDeactivated 0" "WindowActivated 1"
}

title_bar_functions() {
    xprop -id "$1" -notype _MOTIF_WM_HINTS | awk -F', ' '{ print $2 }'
}

press_in_second() {
    look_at "$second"
    click_at $((left + 100)) $((top + 20))
}

check_disabling() {
    local before where
    before=$(title_bar_functions "$gallery")
    open_second
    press_in_second
    sees "disabling" 'Type0 70 "Disable or enable the gallery"' 'LostFocus 1 "any text"'
    [[ $(title_bar_functions "$gallery") == 0x6 ]] || fail "a disabled window still has boxes"
    for where in background 2 30 34 button "gallery menu" 1; do
        click "$where"
        key Down x
    done
    click background 3
    key Tab x F5 alt+F6 ctrl+comma ctrl+q ctrl+shift+a alt+F4
    click_box "$gallery" "$close_box"
    sees_besides_activation "clicks and keys in a disabled window"
    picture refused

    xdotool windowactivate "$second"
    wait_for_keyboard Resizable
    sees_besides_activation "the other window"
    press_in_second
    sees "enabling" 'Type0 70 "Disable or enable the gallery"' 'Focus 1 "any text"'
    [[ $(title_bar_functions "$gallery") == "$before" ]] || fail "enabling did not give back the boxes"
    xdotool windowactivate "$gallery"
    sees "the enabled window" "WindowDeactivated 1" "WindowActivated 0"
    key End x alt+F6
    sees "the enabled window" 'Change 1 "any textx"' "MenuChosen 20 0"
}

check_background() {
    click background
    sees "a click" "LeftClick 0"
    put_pointer 60 275
    xdotool click --repeat 3 --delay 50 1
    sees "a double click, and a third" "LeftClick 0" "LeftDoubleClick 0"
    click background 3
    sees "a right click" "RightClick 0"
    put_pointer 60 275
    xdotool click --repeat 2 --delay 50 3
    sees "a right double click" "RightClick 0"
    click background 2
    key End x
    sees "a middle click, and a key" 'Change 1 "any textx"'
}

# drop_on PLACE: drags from the source.
drop_on() {
    look_at "$source_window"
    xdotool mousemove $((left + 50)) $((top + 30)) mousedown 1
    xdotool mousemove $((left + 80)) $((top + 40)) sleep 0.1
    put_pointer "$1"
    xdotool sleep 0.1 mousemove_relative 1 1 sleep 0.3 mouseup 1
}

# drops WHAT PLACE EVENT: a drop that the source takes for refused, since the answer came late, is
# tried again.
drops() {
    local tries=5
    until drop_on "$2" && something_comes || ((--tries == 0)); do :; done
    sees "$1" "$3"
}

something_comes() {
    local tries=50
    until (($(wc -l <"$log") > seen)); do
        ((--tries > 0)) || return 1
        sleep 0.02
    done
}

check_drops() {
    "$drag_source_program" 7X &
    local source=$!
    # shellcheck disable=SC2064
    trap "kill $source" EXIT
    wait_for_keyboard "Drag source"
    source_window=$found
    sees "another program's window" "WindowDeactivated 0"
    drops "a field that takes drops" 1 'DropOnGadget 0 "7X"'
    drops "the window" background 'DropOnWindow 0 "7X"'
    drop_on 7
    drops "the digits field, and then the lower-case field" 5 'Change 5 "as set7x"'
}

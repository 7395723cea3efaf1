# shellcheck shell=bash
# Sourced by gallery.sh: what is checked of gadgets, menus and the requester.
#
# shellcheck disable=SC2154 # variables that hands.sh sets

check_focus() {
    key Tab
    sees "Tab" 'LostFocus 1 "any text"'
    key shift+Tab
    sees "Shift+Tab" 'Focus 1 "any text"'
    click 4
    sees "a click into a field" 'LostFocus 1 "any text"' 'Focus 4 "AS SET"'
    click 2
    sees "a click into the password field" 'LostFocus 4 "AS SET"'
    click 8
    sees "a click into a field" 'Focus 8 "no frame"'
    click "gallery menu"
    key Escape Escape
    click 8 3
    key Escape
    key alt Escape
    key Return
    sees "menus and Return are no reason to lose the focus"
    open_second
    click_box "$second" "$close_box"
    sees "nor is another window" "CloseRequested 1" "WindowActivated 0"
    click button
    sees "a button" 'LostFocus 8 "no frame"' 'Type0 40 "Press & see"'
}

type_over() {
    xdotool key ctrl+a type -- "$1"
}

check_typing() {
    in_field 7
    edit "a digit behind a blank" - key End 7
    edit "the blank gone" 557 key BackSpace 7
    edit "no digits" - xdotool type -- "-. a,"
    edit "the first digit gone" 57 key Home Delete
    edit "all digits gone" "" key ctrl+a BackSpace
    in_field 4
    edit "upper case" AB1 type_over "aB1"
    in_field 5
    edit "lower case" ab type_over "aB"
    in_field 6
    edit "lower case when set, upper case while typing" AB type_over "aB"
    in_field 9
    edit "a text longer than allowed" - key End x BackSpace
    edit "a new text" wxy type_over "wxyz"
    in_field 3
    edit "a read-only field" - type_over "no"
    in_field 8
    edit "a borderless field" "no fram" key End BackSpace
}

check_undo() {
    in_field 1
    edit "undo" "any text" key End x ctrl+z
    edit "redo" "any textx" key ctrl+shift+z
    in_field 7
    edit "undo of a digit" 55 key End BackSpace 7 ctrl+z
    edit "undo that would bring back a blank" - key ctrl+z
    in_field 4
    edit "undo of a folded letter" "AS SET" key End x ctrl+z
}

# choose_in COMBO_BOX X Y: opens the list and clicks there.
choose_in() {
    click "$1"
    put_pointer "$2" "$3"
    xdotool click 1
}

check_combo_boxes() {
    in_field 30 # opens its list
    edit "the same item again" Second key Return
    edit "an item by mouse" Third choose_in 30 385 41
    edit "an item by key" Second key Up
    edit "an item by letter" First key f
    click 30
    edit "a list left by Escape" - key End Escape
    in_field 33
    edit "an item without a picture" Third key Down Return
    in_field 34
    edit "typing in the editable form" Secondx key End x Return
    edit "an item by key" First key Up
    put_pointer 430 133
    xdotool click 1
    edit "an item of the list" Third key End Return
    key Tab
    sees "Tab" 'LostFocus 34 "Third"' 'Focus 6 "as set"'
}

check_pictures() {
    click image 3
    sees "a right click on a picture" 'Type1 50 ""'
    put_pointer "framed image"
    xdotool click --repeat 2 --delay 50 3
    sees "a right double click" 'Type1 51 ""' 'Type3 51 ""'
    put_pointer canvas
    sees "a pointer on the canvas" 'Type65537 60 ""' 'Type65539 60 ""'
    put_pointer 345 270
    sees "a pointer on the canvas" 'Type65539 60 ""'
    put_pointer background
    sees "a pointer off the canvas" 'Type65538 60 ""'
    click "button on canvas"
    sees "the button on the canvas" 'Type65537 60 ""' 'LostFocus 1 "any text"' 'Type0 61 "On canvas"'
    picture gadgets
}

check_menus() {
    click "gallery menu"
    picture open
    key Escape
    click "application menu"
    put_pointer 60 12
    xdotool click 1
    sees "About by mouse" "MenuChosen -3 0"
    key alt Down Down Return
    sees "Preferences by Alt" "MenuChosen -2 0"
    key ctrl+comma
    sees "Ctrl+," "MenuChosen -2 0"
    key alt+F6 End x
    sees "the window's shortcut, and the keyboard stays" "MenuChosen 20 0" 'Change 1 "any textx"'
    key alt Right Down Down Down Right Down Down Down Return
    sees "an item of the submenu by keys" "MenuChosen 6 0"
    key F5
    sees "F5" "MenuChosen 2 0" 'LostFocus 1 "any textx"'
    kill -TERM "$program"
    sees "a signal" "CloseRequested 0"
}

check_hiding() {
    open_second
    xdotool windowactivate "$gallery"
    sees "the other window" "WindowActivated 0" "WindowDeactivated 1"
    key ctrl+h
    sees_besides_activation "Hide" "WindowMinimized 0" "WindowMinimized 1"
    xdotool windowactivate "$gallery"
    sees_besides_activation "the way back" "WindowRestored 0"
    click "application menu"
    key Down Down Down Down Return
    sees_besides_activation "Show All" "WindowRestored 1"
    xdotool windowactivate "$gallery"
    wait_for_keyboard Gallery
    sees_besides_activation "the gallery"
    key ctrl+q
    sees "Quit" "MenuChosen -4 0" "CloseRequested 0"
}

# answers WHAT ANSWER DEED...: asks, answers by the deed, and types.
answers() {
    typed+=x
    key ctrl+shift+a
    wait_for_keyboard "A question"
    look_at "$found"
    "${@:3}"
    wait_for_keyboard Gallery
    key Home x
    sees "the question answered by $1" "MenuChosen 1 0" "answer $2" "WindowDeactivated 0" \
        "WindowActivated 0" "Change 1 \"${typed}any text\""
}

check_requester() {
    typed=
    answers "Return" 6 key Return
    answers "Tab and Return" 7 key Tab Return
    answers "Escape" 2 key Escape
    answers "the close box" 2 key alt+F4
    answers "Escape after clicks and keys that wait for no answer" 2 ask_in_vain
}

ask_in_vain() {
    click button
    click "gallery menu"
    click_box "$gallery" "$close_box"
    key y F5 alt+F6 Escape
}

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

# chooses WHAT BOX TEXT DEED...: the deed chooses an item, or types in the editable form.
chooses() {
    "${@:4}"
    sees "$1" "Change $2 \"$3\""
}

click_at_place() {
    put_pointer "$1" "$2"
    xdotool click 1
}

check_combo_boxes() {
    click 30 # opens its list
    sees "a list" 'LostFocus 1 "any text"'
    chooses "the same item again" 30 Second key Return
    click 30
    chooses "an item by mouse" 30 Third click_at_place 385 41
    chooses "an item by key" 30 Second key Up
    chooses "an item by letter" 30 First key f
    click 30
    key End Escape
    click 33
    chooses "no item of a list left by Escape, but one without a picture" 33 Third key Down Return
    click 34
    sees "a click into the editable form" 'Focus 34 "Second"'
    chooses "typing in it" 34 Secondx key End x Return
    chooses "an item by key" 34 First key Up
    click_at_place 430 133
    chooses "an item of the list" 34 Third key End Return
    key Tab
    sees "Tab" 'LostFocus 34 "Third"' 'Focus 6 "as set"'
}

check_fields() {
    key End x
    sees "a letter" 'Change 1 "any textx"'
    key ctrl+z
    sees "undo" 'Change 1 "any text"'
    click 7
    sees "the digits field" 'LostFocus 1 "any text"' 'Focus 7 "55 "'
    key End 7 minus a BackSpace
    sees "digit, sign and letter behind a blank, and the blank gone" 'Change 7 "55"'
    click 4
    sees "the upper-case field" 'LostFocus 7 "55"' 'Focus 4 "AS SET"'
    key End x
    sees "a folded letter" 'Change 4 "AS SETX"'
    key ctrl+z
    sees "undo of a folded letter" 'Change 4 "AS SET"'
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
    sees "the button on the canvas" 'Type65537 60 ""' 'Type65539 60 ""' 'LostFocus 1 "any text"' 'Type0 61 "On canvas"'
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
    click 1
    click "gallery menu"
    click_box "$gallery" "$close_box"
    key y F5 alt+F6 Escape
}

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

check_typing() {
    in_field 7
    key End 7
    changes "a digit behind a blank"
    key BackSpace 7
    changes "the blank has gone" 557
    xdotool type -- "-. a,"
    changes "no digits"
    key Home Delete
    changes "the first digit has gone" 57
    key ctrl+a BackSpace
    changes "all digits have gone" ""
    in_field 4
    key ctrl+a
    xdotool type "aB1"
    changes "upper case" AB1
    in_field 5
    key ctrl+a
    xdotool type "aB"
    changes "lower case" ab
    in_field 6
    key ctrl+a
    xdotool type "aB"
    changes "lower case when set, upper case while typing" AB
    in_field 9
    key End x BackSpace
    changes "a text longer than allowed"
    key ctrl+a
    xdotool type "wxyz"
    changes "a new text" wxy
    in_field 3
    xdotool type "no"
    changes "a read-only field"
    in_field 8
    key End BackSpace
    changes "a borderless field" "no fram"
}

check_undo() {
    in_field 1
    key End x ctrl+z
    changes "undo" "any text"
    key ctrl+shift+z
    changes "redo" "any textx"
    in_field 7
    key End BackSpace 7 ctrl+z
    changes "undo of a digit" 55
    key ctrl+z
    changes "undo brings back no blank"
    in_field 4
    key ctrl+a a ctrl+z
    changes "undo of a letter that was folded" "AS SET"
}

# Fills the clipboard.
copy() {
    printf %s "$1" | xclip -selection clipboard >/dev/null 2>&1
    wait_for "text on the clipboard" clipboard_is "$1"
}

clipboard_is() {
    [[ $(timeout "$patience" xclip -o -selection clipboard) == "$1" ]]
}

# pastes FIELD TEXT: in place of all.
pastes() {
    copy "$2"
    in_field "$1"
    key ctrl+a ctrl+v
}

check_clipboard() {
    pastes 7 "1 2"
    changes "a blank is pasted"
    pastes 7 "-1"
    changes "a sign is pasted"
    pastes 7 "007"
    changes "digits are pasted" 007
    pastes 4 "große"
    changes "upper case" GROSSE
    pastes 5 "ÄB"
    changes "lower case" äb
    pastes 9 "wxyz"
    changes "four where three are allowed"
    pastes 9 "xyz"
    changes "three" xyz
    copy "kept"
    in_field 2
    key ctrl+a ctrl+c
    changes "a password"
    clipboard_is "kept" || fail "the password was copied"
    in_field 3
    key ctrl+a ctrl+x ctrl+v
    changes "a read-only text"
    key ctrl+c
    wait_for "copy of the read-only text" clipboard_is "select me"
}

check_combo_boxes() {
    in_field 30
    key Return
    changes "the same item again" Second
    click 30
    put_pointer 385 41
    xdotool click 1
    changes "an item by mouse" Third
    key Up
    changes "an item by key" Second
    key f
    changes "an item by letter" First
    click 30
    key End Escape
    changes "a list left by Escape"
    in_field 33
    key Down Return
    changes "an item without a picture" Third
    in_field 34
    key End x Return
    changes "typing in the editable form" Secondx
    key Up
    changes "an item by key" First
    put_pointer 430 133
    xdotool click 1
    key End Return
    changes "an item of the list" Third
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

click_answer() {
    click_at $((left + width * (2 * $1 - 1) / 6)) $((top + height - 24))
}

check_requester() {
    typed=
    answers "Return" 6 key Return
    answers "Tab and Return" 7 key Tab Return
    answers "Escape" 2 key Escape
    answers "Yes" 6 click_answer 1
    answers "No" 7 click_answer 2
    answers "Cancel" 2 click_answer 3
    answers "the close box" 2 key alt+F4
    answers "Escape after clicks and keys that wait for no answer" 2 ask_in_vain
}

ask_in_vain() {
    click button
    click "gallery menu"
    click_box "$gallery" "$close_box"
    key y F5 alt+F6 Escape
}

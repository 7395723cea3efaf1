#!/usr/bin/env bash
# Drives the gallery by mouse and keys where only a window manager, another program or a real
# keyboard can, and compares the events it prints with those that should come. Every difference is
# told; one is enough for status 1.
#
#   gallery.sh GALLERY [CHECK...]
#
# GALLERY is the program of examples/gallery. Makes the checks named, without names all, each with a
# gallery of its own. Needs no display, it brings its own. Leaves pictures in build/tour of the tree.
#
# shellcheck source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/../tour/stage.sh"

gallery_program=$1
checks=("${@:2}")
((${#checks[@]} > 0)) || checks=(zooming starting disabling drops keys haste)

content_height=330

# Waits for the gallery just started.
find_gallery() {
    log=$folder/events
    seen=0
    wait_for_keyboard Gallery
    gallery=$found
    look_at "$gallery"
    menu_bar=$((height - content_height))
    sees "a gallery that opens" 'Focus 1 "any text"' "WindowActivated 0"
}

key() {
    xdotool key "$@"
}

# put_pointer X Y: in the content, the origin below the menu bar.
put_pointer() {
    look_at "$gallery"
    xdotool mousemove $((left + $1)) $((top + menu_bar + $2))
}

# Opens the second window and sets `second` to it.
open_second() {
    key ctrl+o
    wait_for_keyboard Resizable
    second=$found
    sees "CTRL+O" "MenuChosen 3 0" "WindowDeactivated 0" "WindowActivated 1"
}

# sees WHAT EVENT...: these events come next, and no other. When one comes late that should not
# come at all, what is looked at next finds it.
sees() {
    compare cat "$@"
}

# The same where the window manager settles the order.
sees_in_any_order() {
    compare sort "$@"
}

# compare FILTER WHAT EVENT...
compare() {
    local filter=$1 what=$2 expected start=$seen deadline=$((SECONDS + patience / 2))
    expected=$(printf '%s\n' "${@:3}" | "$filter")
    until read_events "$start" && [[ $("$filter" <<<"$events") == "$expected" ]]; do
        ((SECONDS < deadline)) || break
        sleep 0.02
    done
    sleep 0.1
    read_events "$start"
    [[ $("$filter" <<<"$events") == "$expected" ]] ||
        fail "$what: expected:"$'\n'"${expected:-no event}"$'\n'"but there came:"$'\n'"${events:-none}"
}

# read_events COUNT: sets `events` to those after the first COUNT, by name: of a window "NAME
# WINDOW", of a menu "MenuChosen ITEM WINDOW", of a gadget 'TYPE GADGET "TEXT"'.
read_events() {
    local lines
    mapfile -t -s "$1" lines <"$log"
    seen=$(($1 + ${#lines[@]}))
    events=
    ((${#lines[@]} == 0)) || events=$(printf '%s\n' "${lines[@]}" | awk '
        BEGIN {
            split("MenuChosen CloseRequested GadgetActivity Repaint WindowMoved WindowResized " \
                "WindowActivated WindowDeactivated - DropOnWindow DropOnGadget WindowMinimized " \
                "WindowMaximized WindowRestored - RightClick LeftClick LeftDoubleClick", kinds)
            split("Focus LostFocus Change", types)
        }
        $1 == "answer" { print; next }
        $1 == 1 { print kinds[1], $2, $3; next }
        {
            text = $0
            sub(/^[^ ]* [^ ]* [^ ]* [^ ]* /, "", text)
        }
        $1 == 3 { print ($4 > 0 ? types[$4 / 256] : "Pushed"), $2, "\"" text "\""; next }
        { print kinds[$1], $3 (text == "" ? "" : " \"" text "\"") }')
}

# A busy window manager tells late where a zoom has put the window, which is a move then.
without_moves() {
    sed '/^WindowMoved/d'
}

sorted_without_moves() {
    without_moves | sort
}

# zooms WINDOW EVENT: posts the event, then the new size. Windows are moved, zoomed and closed by the
# window manager's messages: where its title bar and boxes are is not the gallery's affair.
zooms() {
    wmctrl -i -r "$1" -b toggle,maximized_vert,maximized_horz
    compare without_moves "a zoom" "$2 1" "WindowResized 1"
}

# minimizes EVENT: the second window, and back.
minimizes() {
    xdotool windowminimize "$second"
    compare sorted_without_moves "miniaturizing" "WindowMinimized 1" "WindowDeactivated 1" \
        "WindowActivated 0"
    xdotool windowactivate "$second"
    compare sorted_without_moves "the way back" "$1 1" "WindowDeactivated 0" "WindowActivated 1"
}

check_zooming() {
    open_second
    for _ in 1 2 3; do
        zooms "$second" WindowMaximized
        zooms "$second" WindowRestored
    done
    minimizes WindowRestored
    zooms "$second" WindowMaximized
    minimizes WindowMaximized
}

check_starting() {
    key F7
    wait_for_keyboard Resizable
    sees "a window that starts zoomed" "MenuChosen 4 0" "WindowDeactivated 0" "WindowActivated 1"
    zooms "$found" WindowRestored
    wmctrl -i -c "$found"
    sees "the close box" "CloseRequested 1" "WindowActivated 0"
    key F8
    sees "a window that starts miniaturized" "MenuChosen 5 0"
    xdotool windowactivate "$(xdotool search --name '^Resizable$')"
    sees_in_any_order "the way up" "WindowRestored 1" "WindowDeactivated 0" "WindowActivated 1"
}

title_bar_functions() {
    xprop -id "$gallery" -notype _MOTIF_WM_HINTS | awk -F', ' '{ print $2 }'
}

press_in_second() {
    xdotool windowactivate "$second"
    wait_for_keyboard Resizable
    look_at "$second"
    xdotool mousemove $((left + 100)) $((top + 20)) click 1
}

without_activation() {
    sed -E '/^Window(A|Dea)ctivated/d'
}

check_disabling() {
    local before
    before=$(title_bar_functions)
    open_second
    press_in_second
    sees "disabling" 'Pushed 70 "Disable or enable the gallery"' 'LostFocus 1 "any text"'
    [[ $(title_bar_functions) == 0x6 ]] || fail "a disabled window still has boxes"
    put_pointer 255 188
    xdotool click 1
    key x F5 alt+F6 ctrl+comma ctrl+q alt+F4
    wmctrl -i -c "$gallery"
    press_in_second
    compare without_activation "clicks and keys in a disabled window, and enabling" \
        'Pushed 70 "Disable or enable the gallery"' 'Focus 1 "any text"'
    [[ $(title_bar_functions) == "$before" ]] || fail "enabling did not give back the boxes"
}

# drop_on X Y: drags the text of the other gallery's upper-case field.
drop_on() {
    look_at "$other"
    xdotool mousemove $((left + 180)) $((top + menu_bar + 104)) click 1 key ctrl+a
    xdotool mousemove_relative -- -60 0 mousedown 1 mousemove_relative 20 5 sleep 0.1
    put_pointer "$@"
    xdotool sleep 0.1 mousemove_relative 1 1 sleep 0.3 mouseup 1
}

# drops WHAT PLACE EVENT: a drop that the source takes for refused, since the answer came late, is
# tried again.
drops() {
    local tries=5
    # shellcheck disable=SC2086 # two numbers
    until drop_on $2 && something_comes || ((--tries == 0)); do :; done
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
    "$gallery_program" >/dev/null &
    # shellcheck disable=SC2064
    trap "kill $!" EXIT
    wait_for "other gallery" other_has_keyboard
    sees "another program's window" "WindowDeactivated 0"
    xdotool windowmove "$other" 0 20 windowmove "$gallery" 530 380
    sees "a move" "WindowMoved 0"
    drops "a field that takes drops" "155 20" 'DropOnGadget 0 "AS SET"'
    drops "the window" "120 270" 'DropOnWindow 0 "AS SET"'
    drop_on 155 188
    drops "the digits field, and then the lower-case field" "155 132" 'Change 5 "as setas set"'
}

other_has_keyboard() {
    other=$(xdotool getwindowfocus) && [[ $other != "$gallery" ]] &&
        [[ $(xdotool getwindowname "$other") == Gallery ]]
}

check_keys() {
    key alt Down Down Return
    sees "Preferences by Alt" "MenuChosen -2 0"
    key ctrl+comma
    sees "Ctrl+," "MenuChosen -2 0"
    key alt+g
    picture open
    key Escape Escape alt+F6 End x
    sees "the window's shortcut, and the keyboard stays" "MenuChosen 20 0" 'Change 1 "any textx"'
    key ctrl+shift+a
    wait_for_keyboard "A question"
    # What waits for no answer.
    put_pointer 85 -10
    xdotool click 1
    wmctrl -i -c "$gallery"
    key y F5 alt+F6 alt+F4
    wait_for_keyboard Gallery
    sees "the question, closed" "MenuChosen 1 0" "answer 2" "WindowDeactivated 0" \
        "WindowActivated 0"
}

# Clicks and keys that come in at one go, as on a busy machine, each find their place.
check_haste() {
    kill -STOP "$program"
    for place in "255 188" "155 188" "155 20"; do
        # shellcheck disable=SC2086 # two numbers
        put_pointer $place
        xdotool click 1
    done
    key alt+g Escape Escape End x
    kill -CONT "$program"
    sees "haste" 'LostFocus 1 "any text"' 'Pushed 40 "Press & see"' 'Focus 7 "55 "' \
        'LostFocus 7 "55 "' 'Focus 1 "any text"' 'Change 1 "any textx"'
}

open_display gallery "$tour_pictures"
failures=0
for check in "${checks[@]}"; do
    picture_name=gallery-$check
    xdotool mousemove 0 0
    "$gallery_program" >"$folder/events" &
    program=$!
    (find_gallery && "check_$check") || ((++failures))
    kill -TERM "$program" 2>/dev/null || true # where the check has not ended it
    expect_end
done
((failures == 0))

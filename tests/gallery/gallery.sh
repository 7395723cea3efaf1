#!/usr/bin/env bash
# Drives the gallery by mouse and keys where only a window manager, another program or a real
# keyboard can, and compares the events it prints with those that should come.
#
#   gallery.sh GALLERY
#
# GALLERY is the program of examples/gallery. Needs no display, it brings its own.
# shellcheck source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/../tour/stage.sh"

seen=0 # lines of the log

# point X Y [DEED...]: the pointer goes to a place of the content, the origin below the menu bar, and
# xdotool on from there.
point() {
    xdotool mousemove --window "$gallery" "$1" $((menu_bar + $2)) "${@:3}"
}

# sees WHAT EVENT...: these events come next, in any order, and no other. When one comes late that
# should not come at all, what is looked at next finds it.
sees() {
    local what=$1 expected lines events deadline=$((SECONDS + patience / 2))
    expected=$(printf '%s\n' "${@:2}" | sort)
    while mapfile -t -s "$seen" lines <"$log" &&
        events=$(printf '%s\n' "${lines[@]}" | by_name | sort) && [[ $events != "$expected" ]]; do
        ((SECONDS < deadline)) ||
            fail "$what: expected:"$'\n'"$expected"$'\n'"but there came:"$'\n'"$events"
        sleep 0.02
    done
    ((seen += ${#lines[@]})) || true
}

# What the gallery prints as "NAME NUMBER TEXT": the number of an item, a gadget or a window. Where
# and when a window moves is the window manager's affair.
by_name() {
    awk '
        BEGIN {
            split("MenuChosen CloseRequested Pushed Repaint Moved Resized Activated Deactivated - " \
                "DropOnWindow DropOnGadget Minimized Maximized Restored - RightClick LeftClick", kinds)
            split("Focus LostFocus Change", types)
        }
        $1 == "answer" { print; next }
        NF > 0 && kinds[$1] != "Moved" {
            text = substr($0, length($1 $2 $3 $4) + 4)
            sub(/ $/, "", text)
            print ($4 > 0 ? types[$4 / 256] : kinds[$1]), ($1 == 1 || $1 == 3 ? $2 : $3) text
        }'
}

title_bar_functions() {
    xprop -id "$gallery" -notype _MOTIF_WM_HINTS | awk -F', ' '{ print $2 }'
}

# The second window's button disables the gallery or enables it.
press_in_second() {
    xdotool windowactivate --sync "$second" mousemove --window "$second" 100 20 click 1
}

# drop_on X Y: drags the text of the other gallery's upper-case field, and waits for the answer that
# it can be dropped there.
drop_on() {
    xdotool mousemove --window "$other" 180 $((menu_bar + 104)) click 1 key ctrl+a
    xdotool mousemove_relative -- -60 0 mousedown 1 mousemove_relative 20 5 sleep 0.1
    point "$@" sleep 0.1 mousemove_relative 1 1 sleep 1 mouseup 1
}

open_display gallery "$tour_pictures"
log=$folder/events
"$1" >"$log" &
program=$!
wait_for_keyboard Gallery
gallery=$found
look_at "$gallery"
menu_bar=$((height - 330))
sees "a gallery that opens" "Focus 1 any text" "Activated 0"

xdotool key alt Down Down Return
sees "Preferences by Alt" "MenuChosen -2"
xdotool key alt+g Escape Escape alt+F6 End x
sees "the window's shortcut, and the keyboard stays" "MenuChosen 20" "Change 1 any textx"

xdotool key ctrl+shift+a
wait_for_keyboard "A question"
# What waits for no answer.
point 85 -10 click 1
wmctrl -i -c "$gallery"
xdotool key y F5 alt+F6 alt+F4
wait_for_keyboard Gallery
sees "the question, closed" "MenuChosen 1" "answer 2" "Deactivated 0" "Activated 0"

xdotool key F7
wait_for_keyboard Resizable
second=$found
sees "a window that starts zoomed" "MenuChosen 4" "Deactivated 0" "Activated 1"
xdotool windowminimize "$second"
sees "miniaturizing" "Minimized 1" "Deactivated 1" "Activated 0"
xdotool windowactivate "$second"
sees "the way back" "Maximized 1" "Deactivated 0" "Activated 1"
for zoom in Restored Maximized Restored; do
    wmctrl -i -r "$second" -b toggle,maximized_vert,maximized_horz
    sees "a zoom" "$zoom 1" "Resized 1"
done

functions=$(title_bar_functions)
press_in_second
sees "disabling" "Pushed 70 Disable or enable the gallery" "LostFocus 1 any textx"
[[ $(title_bar_functions) == 0x6 ]] || fail "a disabled window still has boxes"
point 255 188 click 1
xdotool key x F5 alt+F6 ctrl+comma ctrl+q alt+F4
wmctrl -i -c "$gallery"
press_in_second
sees "clicks and keys in a disabled window, and enabling" \
    "Pushed 70 Disable or enable the gallery" "Focus 1 any textx" "Deactivated 1" "Activated 1"
[[ $(title_bar_functions) == "$functions" ]] || fail "enabling did not give back the boxes"

wmctrl -i -c "$second"
sees "the close box" "CloseRequested 1" "Activated 0"

"$1" &>/dev/null &
other=$(xdotool search --sync --onlyvisible --pid $!)
xdotool windowmove "$other" 0 20 windowmove "$gallery" 530 380
sees "another program's window" "Deactivated 0"
drop_on 155 20
sees "a drop on a field that takes drops" "DropOnGadget 0 AS SET"
drop_on 120 270
sees "a drop on the window" "DropOnWindow 0 AS SET"
drop_on 155 188
drop_on 155 132
sees "drops on the digits field and on the lower-case field" "Change 5 as setas set"

# Clicks and keys that come in at one go, as on a busy machine, each find their place.
kill -STOP "$program"
point 255 188 click 1
point 155 188 click 1
point 155 20 click 1
xdotool key alt+g Escape Escape End y
kill -CONT "$program"
sees "haste" "LostFocus 1 any textx" "Pushed 40 Press & see" "Focus 7 55" \
    "LostFocus 7 55" "Focus 1 any textx" "Change 1 any textxy" "Activated 0"
kill -TERM "$program"
expect_end

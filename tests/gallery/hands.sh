# shellcheck shell=bash
# Sourced by gallery.sh: hands that work the gallery, and eyes that read its events.
#
# shellcheck disable=SC2034,SC2154 # variables that the scripts share

content_height=330

# Centres of gadgets and menu titles in the content.
declare -A place=([application menu]="20 -10" [gallery menu]="85 -10" [background]="120 270"
    [button]="255 188" [image]="355 185" [framed image]="415 185" [canvas]="340 275"
    [button on canvas]="370 240")
for number in {1..9}; do
    place[$number]="155 $((28 * number - 8))"
done
for number in {30..34}; do
    place[$number]="370 $((28 * (number - 30) + 21))"
done

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

# click_at X Y: on the screen.
click_at() {
    xdotool mousemove "$1" "$2" click 1
}

# put_pointer PLACE | X Y: in the content, the origin below the menu bar.
put_pointer() {
    local x y
    read -r x y <<<"${place[$*]:-$*}"
    look_at "$gallery"
    xdotool mousemove $((left + x)) $((top + menu_bar + y))
}

click() {
    put_pointer "$1"
    xdotool click "${2:-1}"
}

# The title bar's boxes, from the right; the window's number counts them.
click_box() {
    look_at "$1"
    click_at $((left + width - 16 * $2 + 6)) $((top - 10))
}
close_box=1 minimize_box=3

# Twice on the title bar.
zoom() {
    look_at "$1"
    xdotool mousemove $((left + width / 3)) $((top - 10)) click --repeat 2 --delay 50 1
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

# The same where it settles too which window has the keyboard.
sees_besides_activation() {
    compare without_activation "$@"
}

without_activation() {
    sed -E '/^Window(A|Dea)ctivated/d' | sort
}

# compare FILTER WHAT EVENT...
compare() {
    local filter=$1 what=$2 expected start=$seen deadline=$((SECONDS + patience / 2))
    shift 2
    expected=$(printf '%s\n' "$@" | "$filter")
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
            types[256] = "Focus"
            types[512] = "LostFocus"
            types[768] = "Change"
        }
        $1 == "answer" { print; next }
        {
            text = $0
            sub(/^[^ ]* [^ ]* [^ ]* [^ ]* /, "", text)
        }
        $1 == 1 { print kinds[1], $2, $3; next }
        $1 == 3 { print ($4 in types ? types[$4] : "Type" $4), $2, "\"" text "\""; next }
        { print kinds[$1], $3 (text == "" ? "" : " \"" text "\"") }')
}

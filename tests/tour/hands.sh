# shellcheck shell=bash
# Sourced by tour.sh: the rider's hands and eyes. virtual_display.sh and stage.sh set what they use.
# shellcheck disable=SC2154

# Centres of gadgets and menu titles, from the top left corner of the window below its menu bar. A
# menu title is hit with any usual menu font.
declare -A place=(
    [File]="80 -10" [Help]="118 -10" [width]="125 20" [percent]="195 20" [rim]="245 20"
    [unit]="285 85" [max rpm]="125 340" [rpm]="125 400" [Calc speed]="200 400"
    [Graphic]="170 430"
)
for gear in 1 2 3 4 5 6; do
    y=$((80 + 30 * gear))
    place[ratio $gear]="225 $y"
    place[speed $gear]="285 $y"
done
content_height=500

click() {
    local x y
    read -r x y <<<"${place[$1]}"
    look_at "$main"
    xdotool mousemove $((left + x)) $((top + height - content_height + y)) click 1
}

# type_over FIELD TEXT: in place of all that the field shows.
type_over() {
    click "$1"
    xdotool key ctrl+a type "$2"
}

# expect FIELD TEXT: the field shows the text, or soon does. "focus" is the field with the keyboard.
expect() {
    local deadline=$((SECONDS + patience))
    until read_field "$1" && [[ $text == "$2" ]]; do
        ((SECONDS < deadline)) || fail "$1: expected '$2', read '$text'"
    done
}

# Reads through the clipboard. A copy of nothing leaves there what lay there before.
read_field() {
    local before="(nothing)" tries=20
    printf %s "$before" | xclip -selection clipboard >/dev/null 2>&1
    [[ $1 == focus ]] || click "$1"
    xdotool key ctrl+a ctrl+c
    until text=$(timeout "$patience" xclip -o -selection clipboard 2>/dev/null) &&
        [[ $text != "$before" ]]; do
        ((tries-- > 0)) || return 0
        sleep 0.02
    done
}

# expect_speeds "TEXT...": first gear to sixth.
expect_speeds() {
    local gear=0 speed
    for speed in $1; do
        expect "speed $((++gear))" "$speed"
    done
}

# opens DEED...: does the deed and waits for the menu, list or box that it opens.
opens() {
    local before
    before=$(windows)
    "$@"
    wait_for "window after '$*'" sees_new_window "$before"
}

windows() {
    xdotool search --onlyvisible --class '^Rotavel$' 2>/dev/null || true
}

sees_new_window() {
    opened=$(windows | grep -vxF "$1")
}

# point_at ROW ROWS: a row of what opened last, taken as so many rows of equal height.
point_at() {
    look_at "$opened"
    xdotool mousemove $((left + width / 2)) $((top + height * (2 * $1 - 1) / (2 * $2)))
}

# Chooses what the mouse points at, and the menus close.
choose() {
    xdotool click 1
    wait_for "end of the menus" only_main_window
}

only_main_window() {
    [[ $(windows) == "$main" ]]
}

# File > Motorcycle > Moto Guzzi, the first of four makers.
open_models() {
    opens click File
    opens point_at 1 2
    opens point_at 1 4
    row_height=$((height / 4))
}

choose_model() {
    look_at "$opened"
    xdotool mousemove $((left + width / 2)) $((top + row_height * $1 - row_height / 2))
    choose
}

# The menu is higher than the screen, so the wheel has to bring its end into view.
choose_last_model() {
    look_at "$opened"
    xdotool mousemove $((left + width / 2)) $((top + height / 2)) click --repeat 50 --delay 5 5 \
        mousemove $((left + width / 2)) $((top + height - row_height / 2))
    choose
}

# expect_chart_places CHART MAGNIFIER: the chart stands in the middle over the main window, as it
# was before it got its status bar; the magnifier touches its upper right corner.
expect_chart_places() {
    local across down corner status_bar=24
    look_at_frame "$main"
    across=$((2 * left + width)) down=$((2 * top + height))
    look_at_frame "$1"
    ((across -= 2 * left + width, down -= 2 * top + height - status_bar)) || true
    ((${across#-} <= 2 && ${down#-} <= 2)) ||
        fail "chart: ${width}x$height at $left $top is not in the middle over the main window"
    corner="$((left + width)) $top"
    look_at "$2"
    [[ "$left $top $width $height" == "$corner 100 100" ]] ||
        fail "magnifier: expected 100x100 at $corner, got ${width}x$height at $left $top"
}

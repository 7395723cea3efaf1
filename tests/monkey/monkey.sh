#!/usr/bin/env bash
# Lets a monkey loose on the real program: keys, clicks, drags and the wheel wherever they fall, in
# rounds between which the screen changes its size or the window manager starts anew. Where it hits
# upon "Quit" the program is started again. Every end must be an orderly one, and leave a whole
# settings file.
#
#   monkey.sh PROGRAM ACTIONS [SEED]
#
# The same seed does the same again.
#
# shellcheck source-path=SCRIPTDIR
source "$(dirname "${BASH_SOURCE[0]}")/../tour/stage.sh"

actions=$2
RANDOM=${3:-1}
keys=(0 1 2 3 5 7 8 9 period comma minus x Tab Tab shift+Tab Return space Escape Up Down Left Right
    shift+Left shift+Up Home End Prior Next BackSpace Delete ctrl+a ctrl+c ctrl+v ctrl+x ctrl+z
    alt+f alt+h F10 Menu F4 alt+Down alt+F4 alt+F4 ctrl+q)
mapfile -t releases < <(printf 'keyup\n%s\n' ctrl alt shift "${keys[@]##*+}")
modes=(1024x768 small tiny)
round=40 # actions
downs="Down Down Down Down Down Down Down Down Down Down Down"

# place_somewhere: sets `place` to a point of the screen, mostly in the main window.
place_somewhere() {
    if ((RANDOM % 4 == 0)); then
        place="$((RANDOM % 1024)) $((RANDOM % 768))"
    else
        place="$((left - 5 + RANDOM % (width + 10))) $((top - 30 + RANDOM % (height + 40)))"
    fi
}

# act: writes one action for xdotool.
act() {
    local from deeds
    place_somewhere
    from=$place
    place_somewhere
    deeds=(
        "mousemove $from click --delay 3 1"{,,,}
        "mousemove $from click --repeat 2 --delay 5 1"
        "mousemove $from mousedown 1 mousemove $place mouseup 1"
        "mousemove $from click --repeat $((1 + RANDOM % 5)) --delay 2 $((4 + RANDOM % 2))"
        "mousemove $from click --delay 3 3"
        "mousemove $from"
        "key --delay 5 alt+f Return Return ${downs:0:RANDOM % 12 * 5} Return" # a motorcycle
        "mousemove $((left + 170)) $((top + height - 70)) click --delay 3 1" # "Graphic"
        "key --delay 0 ${keys[RANDOM % ${#keys[@]}]}"{,,}
    )
    echo "${deeds[RANDOM % ${#deeds[@]}]} sleep 0.005"
}

# disturb: what may happen to a program from outside.
disturb() {
    case $((RANDOM % 6)) in
        0 | 1) xrandr --output screen --mode "${modes[RANDOM % ${#modes[@]}]}" ;;
        2 | 3)
            kill "$manager" || true
            wait "$manager" || true
            ;;
    esac
    # The window manager does not survive every round by itself either.
    if has_ended "$manager" 2>/dev/null; then
        start_manager
        # A window that is to be mapped while it starts it loses. Once it does as asked, it is up.
        wait_for "window manager at work" has_desktops 2
        wait_for "window manager at work" has_desktops 1
    fi
}

has_desktops() {
    wmctrl -n "$1"
    [[ $(xdotool get_num_desktops) == "$1" ]]
}

# expect_whole: the settings file has all its motorcycles and keys.
expect_whole() {
    local keys
    keys=$(sed -n '/^\[Settings\]$/,/^$/p' "$settings" | grep -c '^[A-Za-z1-6]* = ')
    ((keys == 15)) || fail "expected 15 keys in"$'\n'"$(head -20 "$settings")"
    motorcycles | cmp - "$folder/motorcycles" || fail "the motorcycles have changed"
}

# A blank at the end of a line may go.
motorcycles() {
    sed -n 's/[ \r]*$//; /^\[Moto Guzzi - 1200/,$p' "$settings"
}

open_stage "$1" monkey
# One desktop, and none of its own menus: they could start anything.
sed -i 's/<number>4</<number>1</; /<context name="\(Root\|Desktop\)">/,/<\/context>/d' \
    "$HOME/.config/openbox/rc.xml"
openbox --reconfigure
xrandr --newmode small 30 800 810 820 830 600 610 620 630
xrandr --newmode tiny 30 640 650 660 670 480 490 500 510
xrandr --addmode screen small
xrandr --addmode screen tiny

start
look_at "$main"
motorcycles >"$folder/motorcycles"
ends=0
for ((done = 0; done < actions; done += round)); do
    {
        echo "windowmap $main windowactivate $main"
        for ((i = 0; i < round; ++i)); do
            act
        done
    } >"$folder/actions"
    # A window that closes meanwhile may end xdotool too, and so does its time. A key that it leaves
    # down repeats: Ctrl+Q would end the next program before it is seen.
    timeout "$patience" xdotool - <"$folder/actions" 2>/dev/null || true
    xdotool mouseup 1 "${releases[@]}"
    disturb
    if has_ended "$program" 2>/dev/null; then
        expect_end
        expect_whole
        start
        ends=$((ends + 1))
    fi
done
kill -TERM "$program"
expect_end
expect_whole
echo "$done actions; the program ended $ends times between them"

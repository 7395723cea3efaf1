# shellcheck shell=bash
# Sourced by the tests that drive a real window by mouse and keys: a display of their own with a
# window manager, and what every such test does on it.
#
# shellcheck disable=SC2034 # look_at is for the script that sources this

patience=20 # seconds that anything may take; far more than it does, for the slowest machine

# open_display NAME PICTURES: sets `folder`, a scratch folder. Pictures go to the folder PICTURES
# under names that start with NAME, of which old ones are removed. Display, folder and the process
# `program` go when the script ends.
open_display() {
    picture_name=$1
    pictures=$2
    folder=$(mktemp -d)
    trap close_display EXIT
    trap 'exit 1' INT TERM HUP
    mkdir -p "$pictures"
    rm -f "$pictures/$picture_name"-*.png

    # What the user's session says of displays, looks, input methods and buses is not for this one.
    unset "${!GTK@}" "${!KDE@}" "${!QT@}" "${!XDG@}" SESSION_MANAGER WAYLAND_DISPLAY XAUTHORITY \
        XMODIFIERS
    export HOME=$folder XDG_RUNTIME_DIR=$folder DBUS_SESSION_BUS_ADDRESS=disabled:

    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
    server=$!
    wait_for "display" test -s "$folder/display"
    DISPLAY=:$(<"$folder/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    manager=$!
    wait_for "window manager" xdotool get_desktop
}

close_display() {
    kill -KILL ${program:+"$program"} || true
    kill ${manager:+"$manager"} ${server:+"$server"} || true
    wait
    rm -rf "$folder"
} 2>/dev/null

# wait_for WHAT COMMAND...: until COMMAND succeeds.
wait_for() {
    local what=$1 deadline=$((SECONDS + patience))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || fail "no $what within $patience seconds"
        sleep 0.02
    done
}

fail() {
    echo "$(basename "$0" .sh): $*" >&2
    picture failure || true
    exit 1
}

# A picture of the whole screen. Without a limit `import` waits for a click when something is amiss.
picture() {
    timeout "$patience" import -window root "$pictures/$picture_name-$1.png"
}

key() {
    xdotool key "$@"
}

# look_at WINDOW: sets left, top, width and height of what lies inside the frame.
look_at() {
    read -r left top width height < <(xwininfo -id "$1" | awk '
        /Absolute upper-left/ || /^ *(Width|Height):/ { printf "%s ", $NF } END { print "" }')
}

# click_at X Y [BUTTON]: on the screen.
click_at() {
    xdotool mousemove "$1" "$2" click "${3:-1}"
}

# Sets `found` to the window of that title once it has the keyboard.
wait_for_keyboard() {
    wait_for "window \"$1\" with the keyboard" has_keyboard "$1"
}

has_keyboard() {
    found=$(xdotool search --onlyvisible --name "^$1\$") &&
        [[ $(xdotool getwindowfocus) == "$found" ]]
}

# Fills the clipboard.
copy() {
    printf %s "$1" | xclip -selection clipboard >/dev/null 2>&1
    wait_for "text on the clipboard" clipboard_is "$1"
}

clipboard_is() {
    [[ $(timeout "$patience" xclip -o -selection clipboard) == "$1" ]]
}

# program_ends STATUS: the process `program` ends, with that status.
program_ends() {
    local status=0
    wait_for "end of the program" program_has_ended
    wait "$program" || status=$?
    program=
    ((status == $1)) || fail "the program's exit status: expected $1, got $status"
}

program_has_ended() {
    ! kill -0 "$program"
}

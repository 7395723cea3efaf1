# shellcheck shell=bash
# Sourced by tour.sh: a display with a window manager, the program in a folder of its own, and what
# it left behind.

patience=20 # seconds that anything may take; far more than it does, for the slowest machine

# open_stage PROGRAM PICTURES: pictures go to the folder PICTURES, as tour-*.png.
open_stage() {
    pictures=$2
    folder=$(mktemp -d)
    settings=$folder/Resources/Rotavel.ini
    trap close_stage EXIT
    trap 'exit 1' INT TERM HUP
    mkdir -p "$folder/bin" "$folder/Resources" "$pictures"
    rm -f "$pictures"/tour-*.png
    cp "$1" "$folder/bin/Rotavel"

    # What the user's session says of displays, looks, input methods and buses is not for this one.
    unset "${!GTK@}" "${!KDE@}" "${!QT@}" "${!XDG@}" SESSION_MANAGER WAYLAND_DISPLAY XAUTHORITY \
        XMODIFIERS
    export HOME=$folder XDG_RUNTIME_DIR=$folder DBUS_SESSION_BUS_ADDRESS=disabled:

    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
    server=$!
    wait_for "display" test -s "$folder/display"
    DISPLAY=:$(<"$folder/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    manager=$!
    wait_for "window manager" xdotool get_desktop
}

close_stage() {
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
    echo "tour: $*" >&2
    picture failure || true
    exit 1
}

# photograph OPTION... OUTPUT: of the whole screen. Without a limit `import` waits for a click when something is amiss.
photograph() {
    timeout "$patience" import -window root "$@"
}

picture() {
    photograph "$pictures/tour-$1.png"
}

# start TITLE: starts the program and waits until a window of that title has the keyboard.
start() {
    "$folder/bin/Rotavel" &
    program=$!
    wait_for "window \"$1\"" has_keyboard "$1"
}

has_keyboard() {
    main=$(xdotool search --onlyvisible --name "^$1") && [[ $(xdotool getwindowfocus) == "$main" ]]
}

# The program ends, with status 0.
expect_end() {
    local status=0
    wait_for "end of the program" has_ended "$program"
    wait "$program" || status=$?
    program=
    ((status == 0)) || fail "exit status: expected 0, got $status"
}

has_ended() {
    ! kill -0 "$1"
}

# expect_saved LINE...: the settings file is as the program writes it, with these lines in the group
# of the last values.
expect_saved() {
    local line group
    [[ $(head -c 3 "$settings") == $'\xEF\xBB\xBF' ]] || fail "$settings: no byte-order mark"
    ! grep -q $'\r' "$settings" || fail "$settings: CR in a line end"
    group=$(sed -n '/^\[Settings\]$/,/^$/p' "$settings")
    for line in "$@"; do
        grep -qxF "$line" <<<"$group" || fail "expected a line '$line' in"$'\n'"$group"
    done
}

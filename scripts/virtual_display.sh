# shellcheck shell=bash
# Sourced by what drives or measures a real window: a display of its own, and what is always done on
# it.
#
# shellcheck disable=SC2034 # the script that sources this reads what look_at and others set

patience=20 # seconds that anything may take; far more than it does, for the slowest machine

# open_display NAME PICTURES: sets `folder`, a scratch folder. Pictures go to the folder PICTURES
# under names that start with NAME, of which old ones are removed. Display, folder and the process
# `program` go when the script ends. The windows are managed by the command WINDOW_MANAGER, or by
# openbox.
open_display() {
    open_folder "$@"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$folder/display" 2>/dev/null &
    server=$!
    wait_for "display" test -s "$folder/display"
    DISPLAY=:$(<"$folder/display")
    export DISPLAY
    # A window that is animated is not yet where it will be.
    mkdir -p "$folder/.config/openbox"
    sed 's/<animateIconify>yes/<animateIconify>no/' /etc/xdg/openbox/rc.xml \
        >"$folder/.config/openbox/rc.xml"
    start_manager
}

start_manager() {
    xprop -root -remove _NET_SUPPORTING_WM_CHECK 2>/dev/null || true # of one that has gone
    # shellcheck disable=SC2086 # a command with its options
    ${WINDOW_MANAGER:-openbox} >/dev/null 2>&1 &
    manager=$!
    wait_for "window manager" is_managed
}

is_managed() {
    [[ $(xprop -root _NET_SUPPORTING_WM_CHECK) == *window* ]] && xdotool get_desktop
}

# open_wayland_display NAME PICTURES: the same with a Wayland compositor and no X. It has neither
# keys nor a mouse, and no pictures are taken.
open_wayland_display() {
    open_folder "$@"
    unset DISPLAY
    export WAYLAND_DISPLAY=wayland QT_QPA_PLATFORM=wayland
    weston --backend=headless-backend.so --no-config --idle-time=0 --socket=$WAYLAND_DISPLAY \
        >/dev/null 2>&1 &
    server=$!
    wait_for "compositor" test -S "$folder/$WAYLAND_DISPLAY"
}

open_folder() {
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
    local status=0
    echo "$(basename "$0" .sh): $*" >&2
    picture failure || true
    if [[ -n ${program:-} ]] && has_ended "$program" 2>/dev/null; then
        wait "$program" || status=$?
        echo "The program has ended, with status $status." >&2
    fi
    exit 1
}

# photograph OPTION... OUTPUT: of the whole screen. Without a limit `import` waits for a click when
# something is amiss.
photograph() {
    timeout "$patience" import -window root "$@"
}

picture() {
    photograph "$pictures/$picture_name-$1.png"
}

# Waits until a window whose title starts so has the keyboard, and sets `found` to it.
wait_for_keyboard() {
    wait_for "window \"$1\" with the keyboard" has_keyboard "$1"
}

has_keyboard() {
    found=$(xdotool search --onlyvisible --name "^$1") &&
        [[ $(xdotool getwindowfocus) == "$found" ]]
}

# look_at WINDOW: where it is on the screen, without its frame.
look_at() {
    read -r left top width height < <(xwininfo -id "$1" |
        awk '/Absolute|Width:|Height:/ { line = line " " $NF } END { print line }')
}

# look_at_frame WINDOW: the same with its frame, of which i3 does not say how wide it is.
look_at_frame() {
    local edges
    look_at "$1"
    IFS='=, ' read -r -a edges < <(xprop -id "$1" -notype _NET_FRAME_EXTENTS)
    if [[ ${edges[1]} == not ]]; then
        look_at "$(xwininfo -id "$1" -tree | awk '/Parent/ { print $4 }')"
    else
        ((left -= edges[1], width += edges[1] + edges[2]))
        ((top -= edges[3], height += edges[3] + edges[4]))
    fi
}

# The process `program` ends, with status 0.
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

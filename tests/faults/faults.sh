#!/usr/bin/env bash
# Starts and ends the program on settings files and systems with every fault that a rider's may
# have, and looks at what is said and at what is on the disk afterwards: nothing that was there is
# lost, and what could not be saved is said with path and reason.
#
#   faults.sh PROGRAM
#
# shellcheck disable=SC2016 # what a row does is run when it is its turn
set -euo pipefail
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
unset "${!XDG@}" DBUS_SESSION_BUS_ADDRESS
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"*' EXIT
chmod 755 "$folder"
settings=$folder/Resources/Rotavel.ini
old=$folder.old
# Longer than what it is saved as.
printf '%s\r\n' "[Own - 1]" "MaxRPM = 5" "" >"$old"
printf '\n%.0s' {1..500} >>"$old"
tracer=() # what the program is started under
failures=0

# Permissions do not bind the superuser, who starts the program as nobody.
somebody=()
if ((EUID == 0)); then
    somebody=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi

# A fresh installation, with a settings file that is saved in another form when the program ends.
install_program() {
    rm -rf "${folder:?}"/*
    mkdir "$folder/bin" "$folder/Resources"
    cp "$program" "$folder/bin/Rotavel"
    cp "$old" "$settings"
    if ((EUID == 0)); then
        chown -R 65534:65534 "$folder"/*
    fi
}

# Starts the program and asks it to end as soon as it can be asked.
start_and_end() {
    local started waited=0
    "${somebody[@]}" timeout -s KILL 60 "${tracer[@]}" "$folder/bin/Rotavel" 2>"$folder/errors" &
    started=$!
    until catches_signals "$(pgrep -fx "$folder/bin/Rotavel" | head -1)"; do
        ((++waited < 2000)) || break
        sleep 0.01
    done
    end_it || true
    status=0
    wait "$started" || status=$?
}

end_it() { pkill -TERM -fx "$folder/bin/Rotavel"; }

catches_signals() {
    local caught
    caught=$(awk '/^SigCgt/ { print $2 }' "/proc/$1/status") && ((0x$caught >> 14 & 1))
} 2>/dev/null

is_old() { cmp -s "$settings" "$old"; }
is_saved() { grep -qxF '[Own - 1]' "$1" && grep -qxF '[Settings]' "$1" && grep -q 'MaxRPM = 5' "$1"; }
is_default() { (($(grep -c '^\[' "$settings") == 60)); }

make_socket() {
    python3 -c 'import socket, sys; socket.socket(socket.AF_UNIX).bind(sys.argv[1])' "$1"
}

# A place whose name is no UTF-8.
move_to_latin_1() {
    mkdir "$folder"/$'\xff'
    mv "$folder"/{bin,Resources} "$folder"/$'\xff'
    ln -s "$folder"/$'\xff'/* "$folder"
}

# row NAME SAID PREPARE CHECK: SAID is a pattern of the one line of error that is to be there, or
# nothing. The program is to end with status 0, or `ended`.
row() {
    local name=$1 said=$2 prepare=$3 check=$4 errors
    install_program
    eval "$prepare"
    start_and_end
    errors=$(grep -v 'raise()' "$folder/errors" || true)
    # shellcheck disable=SC2053 # it is a pattern
    if [[ $status == "${ended:-0}" && $errors == $said ]] && eval "$check"; then
        echo "$name: ${errors:-nothing said}"
    else
        echo "FAILED $name: status $status, said '$errors'" >&2
        failures=$((failures + 1))
    fi
}

# Where no settings file can be made a requester says so before the program ends.
row "folder missing" "" 'rm -r "$folder/Resources"' '[[ ! -e $folder/Resources ]]'
row "folder read-only" "" 'rm "$settings"; chmod 555 "$folder/Resources"' '[[ ! -e $settings ]]'
row "folder in its place" "" 'rm "$settings"; mkdir "$settings"' '[[ -d $settings ]]'
row "pipe in its place" "" 'rm "$settings"; mkfifo "$settings"' '[[ -p $settings ]]'
row "socket in its place" "" 'rm "$settings"; make_socket "$settings"' '[[ -S $settings ]]'
row "null device in its place" "" 'ln -sf /dev/null "$settings"' '[[ -c $settings ]]'
row "link to itself" "" 'ln -sf Rotavel.ini "$settings"' '[[ -L $settings ]]'
row "link to nothing" "" 'rm "$settings"; ln -s elsewhere "$settings"' '[[ -L $settings ]] && is_default'
row "file read-only" "*/Resources/Rotavel.ini: Permission denied" 'chmod 444 "$settings"' is_old
row "file too large" "*: File too large" 'truncate -s 3G "$settings"' \
    '(($(stat -c %s "$settings") == 3 << 30))'
row "hard link" "" 'ln "$settings" "$folder/twin"' 'is_saved "$folder/twin"'
row "mode" "" 'chmod 606 "$settings"' 'is_saved "$settings" && [[ $(stat -c %a "$settings") == 606 ]]'
row "no file" "" 'rm "$settings"' is_default
row "mark only" "" 'printf "\xEF\xBB\xBF" >"$settings"' 'grep -qxF "[Settings]" "$settings"'
row "100 MB of random bytes" "" 'head -c 100000000 /dev/urandom >"$settings"' \
    '(($(stat -c %s "$settings") > 90000000))'
row "path that is no UTF-8" "" move_to_latin_1 'is_saved "$settings"'
tracer=(prlimit --fsize=150)
row "file size limit" "*: File too large" true is_old
row "file size limit and no file" "" 'rm "$settings"' '[[ ! -e $settings ]]'
tracer=()

Xvfb -displayfd 3 -nolisten tcp 3>"$folder.old.display" 2>/dev/null &
server=$!
until [[ -s $folder.old.display ]]; do sleep 0.02; done
(
    DISPLAY=:$(<"$folder.old.display")
    export DISPLAY QT_QPA_PLATFORM=xcb
    end_it() { kill -KILL "$server"; }
    ended=1 row "display lost" "*" true 'is_saved "$settings"'
    exit $((failures > 0))
) || failures=1

# The system calls of a save, failing, or the last thing the program does.
if ! strace -qq -o /dev/null true 2>/dev/null; then
    echo "No strace, or none allowed: the system calls of a save are not tried"
    exit $((failures > 0))
fi
export ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=0 # it cannot look while somebody traces
try_call() {
    tracer=(strace -qq -o /dev/null -e "inject=$3")
    row "$1" "$2" true "$4"
    tracer=()
}
try_call "disk full" "*: No space left*" fallocate:error=ENOSPC is_old
try_call "sync fails" "*: Input/output error" fsync:error=EIO:when=1 is_old
for call in fallocate pwrite64 fsync ftruncate; do
    ended=137 try_call "killed at $call" "*" "$call:signal=KILL:when=1" 'is_old || is_saved "$settings"'
done
((failures == 0))

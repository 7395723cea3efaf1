# shellcheck shell=bash
# Sourced by the other scripts here.

# quietly LOG COMMAND...: runs COMMAND with its output in the file LOG, and shows that output only
# when it fails. Returns COMMAND's status.
quietly() {
    local log=$1 status=0
    shift
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 || status=$?
    if ((status != 0)); then
        cat "$log" >&2
        echo "Failed with status $status: $*" >&2
    fi
    return "$status"
}

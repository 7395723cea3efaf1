#!/usr/bin/env bash
# Runs the fuzzers of a build side by side, each for so many seconds, and says how often they ran.
# What they learn stays in FOLDER/corpus for the next time; an input that fails is written to FOLDER.
#
#   fuzz.sh FOLDER SECONDS
set -euo pipefail
corpus=$(realpath "$(dirname "${BASH_SOURCE[0]}")")/corpus
cd "$1"
[[ ! -w /dev/shm ]] || export TMPDIR=/dev/shm # a settings file is on the disk when it is closed

fuzz() {
    mkdir -p "corpus/$1"
    timeout -s KILL $(($2 + 60)) ./fuzz_"$1" -max_total_time="$2" -max_len=4096 -print_final_stats=1 \
        -artifact_prefix="$1-" "corpus/$1" "$corpus/$1" >"$1.log" 2>&1 || {
        tail -n 60 "$1.log" >&2
        return 1
    }
    echo "  $1: $(sed -n 's/^stat::number_of_executed_units: *//p' "$1.log") runs"
}

fuzz settings "$2" &
failed=0
fuzz numbers "$2" || failed=1
wait $! || failed=1
exit "$failed"

#!/usr/bin/env bash
# Runs the fuzzers of a build, each for so many seconds, and says how often they ran. What they learn
# stays in FOLDER/corpus for the next time; an input that fails is written to FOLDER.
#
#   fuzz.sh FOLDER SECONDS
set -euo pipefail
corpus=$(realpath "$(dirname "${BASH_SOURCE[0]}")")/corpus
cd "$1"
[[ ! -w /dev/shm ]] || export TMPDIR=/dev/shm # a settings file is on the disk when it is closed

for fuzzer in settings numbers; do
    mkdir -p "corpus/$fuzzer"
    timeout -s KILL $(($2 + 60)) "./fuzz_$fuzzer" -max_total_time="$2" -max_len=4096 \
        -print_final_stats=1 -artifact_prefix="$fuzzer-" "corpus/$fuzzer" "$corpus/$fuzzer" \
        >"$fuzzer.log" 2>&1 || { tail -n 60 "$fuzzer.log" >&2 && exit 1; }
    echo "  $fuzzer: $(sed -n 's/^stat::number_of_executed_units: *//p' "$fuzzer.log") runs"
done

#!/usr/bin/env bash
# Installs what is missing, builds a preset with its tests and runs every test.
#
#   ./test.sh                    preset release
#   ./test.sh asan               another preset
#   ./test.sh -R text            what follows goes to ctest
#   ROTAVEL_WERROR=ON ./test.sh  warnings are errors
#   ROTAVEL_BENCH=ON ./test.sh   the benchmarks are built too
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/setup.sh
source scripts/build.sh

preset=release
if [[ ${1:-} == [a-z]* ]]; then
    preset=$1
    shift
fi

# With the build's -fno-sanitize-recover every report ends its program with a status other than 0.
set_sanitizer_options() {
    export ASAN_OPTIONS=detect_stack_use_after_return=1:check_initialization_order=1
    export UBSAN_OPTIONS=print_stacktrace=1
    export LSAN_OPTIONS=suppressions=$PWD/scripts/leaks.supp:print_suppressions=0
}

install_packages build run wayland tour test
export LC_ALL=C.UTF-8
set_sanitizer_options
# The build starts the test programs too, for a list of their tests.
configure "$preset" -DROTAVEL_TESTS=ON "-DROTAVEL_WERROR=${ROTAVEL_WERROR:-OFF}" \
    "-DROTAVEL_BENCH=${ROTAVEL_BENCH:-OFF}"
build "$preset"
ctest --preset "$preset" --no-tests=error --timeout 300 --parallel "$(nproc)" "$@"

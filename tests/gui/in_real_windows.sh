#!/usr/bin/env bash
# Runs the tests of gui/ in real windows under a window manager.
#
#   in_real_windows.sh GUI_TESTS
#
# shellcheck source-path=SCRIPTDIR
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../scripts/virtual_display.sh"
open_display gui "$here/../../build/tour"
ROTAVEL_TEST_PLATFORM=xcb ROTAVEL_RANDOM_DEEDS=5000 "$1" --gtest_brief=1

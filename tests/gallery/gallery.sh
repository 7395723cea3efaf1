#!/usr/bin/env bash
# Drives the gallery by mouse and keys and compares the events it prints with those that should
# come. Every difference is told; one is enough for status 1.
#
#   gallery.sh GALLERY DRAG_SOURCE [CHECK...]
#
# GALLERY is the program of examples/gallery, DRAG_SOURCE that of this folder. Makes the checks named,
# without names all, each with a gallery of its own. Needs no display, it brings its own. Leaves
# pictures in build/tour of the tree.
#
# shellcheck source-path=SCRIPTDIR
# shellcheck disable=SC2034 # the sourced files use what is set here
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../scripts/virtual_display.sh"
source "$here/hands.sh"
source "$here/window_checks.sh"
source "$here/gadget_checks.sh"

gallery_program=$1 drag_source_program=$2
shift 2
checks=("$@")
if (($# == 0)); then
    checks=(moving zooming starting disabling background drops
        focus fields combo_boxes pictures menus requester)
fi

open_display gallery "$here/../../build/tour"
failures=0
for check in "${checks[@]}"; do
    picture_name=gallery-$check
    xdotool mousemove 0 0
    "$gallery_program" >"$folder/events" &
    program=$!
    (find_gallery && "check_$check") || ((++failures))
    kill -TERM "$program" 2>/dev/null || true # where the check has not ended it
    expect_end
done
((failures == 0))

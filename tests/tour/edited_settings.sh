#!/usr/bin/env bash
# Changes the settings file under the running program, as editors and a second copy do, and looks
# for what the user typed and what the editor wrote in the file that is left.
#
#   edited_settings.sh PROGRAM
#
# shellcheck source-path=SCRIPTDIR
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../scripts/virtual_display.sh"
source "$here/stage.sh"
source "$here/hands.sh"

open_stage "$1" edited_settings
main_title="Rotavel V1.55"
group='[Own - %s]\n; as an editor wrote it\nPrimaryRatio = 1.75\n'

quit() {
    kill -TERM "$program"
    expect_end
}

expect_group() {
    grep -qxF "[Own - $1]" "$settings" || fail "the group that was written $1 is gone"
    [[ $(grep -A 2 -xF "[Own - $1]" "$settings") == *"; as an editor wrote it"* ]] ||
        fail "the comment that was written $1 is gone"
}

write_in_place() {
    # shellcheck disable=SC2059 # the format is this script's
    printf "\n$group" "$1" >>"$settings"
}

rename_over() {
    cp "$settings" "$settings.new"
    # shellcheck disable=SC2059
    printf "\n$group" "$1" >>"$settings.new"
    mv "$settings.new" "$settings"
}

two_windows() {
    [[ $(windows | wc -l) == 2 ]]
}

echo "An editor writes in place, or renames a new file over the old; with a value typed, or none"
width=100
for edit in write_in_place rename_over; do
    for typed in yes no; do
        start "$main_title"
        if [[ $typed == yes ]]; then
            typed_width=$((++width))
            type_over width "$typed_width"
        fi
        "$edit" "$edit-$typed"
        quit
        expect_group "$edit-$typed"
        expect_saved "RearWheelWidth = ${typed_width:?}"
    done
done

echo "Two copies at once: the last to end has the values, and no motorcycle is lost"
start "$main_title"
first=$program
type_over width 201
"$folder/bin/Rotavel" &
program=$!
wait_for "second window" two_windows
write_in_place "beside two copies"
kill -TERM "$program"
expect_end
program=$first
quit
expect_group "beside two copies"
expect_saved "RearWheelWidth = 201"

echo "A save that fails is said, with path and reason"
start "$main_title" 2>"$folder/errors"
type_over width 99
mv "$settings" "$settings.kept"
mkdir "$settings"
quit
grep -q "Resources/Rotavel.ini: ." "$folder/errors" || fail "no word of the save that failed"
grep -qxF "[Own - beside two copies]" "$settings.kept" || fail "the file that was moved away changed"
echo "All as expected"

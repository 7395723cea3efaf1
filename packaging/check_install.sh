#!/usr/bin/env bash
# Installs a build under a prefix of its own and starts the program the way its riders do, by the
# menu entry: each must get settings of their own, and those outlive an update and the removal.
#
#   check_install.sh CMAKE BUILD-FOLDER
set -euo pipefail

cmake=$1 build=$2
here=$(dirname "${BASH_SOURCE[0]}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix="$work/a root/usr"
share=$prefix/share
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work
unset XDG_DATA_HOME

fail() {
    echo "$1" >&2
    exit 1
}

# With a component named, the list for the target "uninstall" stays the user's.
install_program() {
    "$cmake" --install "$build" --prefix "$prefix" --component Unspecified >/dev/null
}

# starts COMMAND SETTINGS: the program starts by COMMAND and SETTINGS are there. It may be asked to
# end before it has got round to listening: then the signal ends it.
starts() {
    local program tenths=200 status=0
    bash -c "exec $1" &
    program=$!
    until [[ -s $2 ]] || ((--tenths == 0)); do
        sleep 0.1
    done
    sleep 0.2 # settings that are there already say nothing of the program
    kill "$program" || true
    wait "$program" || status=$?
    ((status == 0 || status == 128 + 15)) || fail "$1 ended with status $status"
    [[ -s $2 ]] || fail "No settings at $2"
}

install_program
desktop-file-validate "$share/applications/Rotavel.desktop"
appstreamcli validate-tree --no-net "${prefix%/usr}"
command=$(sed -n 's/^Exec=//p' "$share/applications/Rotavel.desktop")
for icon in "$share"/icons/hicolor/[0-9]*/apps/Rotavel.png; do
    side=$(cut -d x -f 1 <<<"${icon#"$share/icons/hicolor/"}")
    [[ $(identify -format '%w %h' "$icon") == "$side $side" ]] || fail "$icon has another size"
done

echo "Two riders, one with a data folder of another name that is no UTF-8"
anna=$work/anna/.local/share/rotavel bert=$work/bert/$'Sp\xE4t'
HOME=$work/anna starts "$command" "$anna/Resources/Rotavel.ini"
XDG_DATA_HOME=$bert starts "$command" "$bert/rotavel/Resources/Rotavel.ini"
[[ ! -e $prefix/lib/rotavel/Resources ]] || fail "Settings beside the installed program"

echo "A link from elsewhere, a data folder whose name is relative, a link gone stale"
printf '[Own - Motorcycle]\r\n' >>"$anna/Resources/Rotavel.ini"
ln -s "$prefix/bin/rotavel" "$work/link"
ln -sf /nowhere "$anna/bin/Rotavel"
HOME=$work/anna XDG_DATA_HOME=relative starts "$work/link" "$anna/Resources/Rotavel.ini"
[[ ! -e relative ]] || fail "Settings in the working directory"

echo "Without a display: one line, and status 1"
status=0
lines=$(HOME=$work/anna env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \
    "$prefix/bin/rotavel" 2>&1) || status=$?
[[ $status == 1 && $lines == Rotavel:* && $lines != *$'\n'* ]] || fail "Status $status: $lines"

echo "An update and the removal keep the settings"
install_program
HOME=$work/anna starts "$command" "$anna/Resources/Rotavel.ini"
"$cmake" -P "$here/uninstall.cmake" "$build/install_manifest_Unspecified.txt"
grep -Fq '[Own - Motorcycle]' "$anna/Resources/Rotavel.ini" || fail "The settings are gone"
left=$(find "$prefix" ! -type d -o -path '*rotavel*')
[[ -z $left ]] || fail "Not removed: $left"

#!/usr/bin/env bash
# Installs a build under a prefix of its own and starts the program the way its rider does, by the
# link in bin/: its settings must appear where it keeps them and outlive the next install.
#
#   check_install.sh CMAKE BUILD-FOLDER
set -euo pipefail

cmake=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix="$work/a prefix"
house=$prefix/lib/rotavel
settings=$house/Resources/Rotavel.ini

fail() {
    echo "$1" >&2
    exit 1
}

# The program may be asked to end before it has got round to listening: then the signal ends it.
start_and_stop() {
    local program tenths=600 status=0
    QT_QPA_PLATFORM=offscreen "$prefix/bin/Rotavel" &
    program=$!
    until [[ -s $settings ]] || ((--tenths == 0)); do
        sleep 0.1
    done
    kill "$program" || true
    wait "$program" || status=$?
    ((status == 0 || status == 128 + 15)) || fail "The program ended with status $status"
    [[ -s $settings ]] || fail "No settings at $settings"
}

"$cmake" --install "$build" --prefix "$prefix"

entry=$prefix/share/applications/Rotavel.desktop
desktop-file-validate "$entry"
grep -Fqx "Exec=\"$house/bin/Rotavel\"" "$entry" || fail "The desktop entry starts something else"
[[ -s $prefix/share/icons/hicolor/scalable/apps/Rotavel.svg ]] || fail "No icon"

start_and_stop

cp "$settings" "$work/before"
"$cmake" --install "$build" --prefix "$prefix" >/dev/null
cmp "$work/before" "$settings"

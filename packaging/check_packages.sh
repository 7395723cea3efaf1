#!/usr/bin/env bash
# Makes the packages of a build, has the Debian package judged, and starts the program from the
# unpacked archive, which keeps its settings in itself.
#
#   check_packages.sh CPACK BUILD-FOLDER
set -euo pipefail

cpack=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cpack" --config "$build/CPackConfig.cmake" -B "$work"
lintian --allow-root --pedantic --fail-on error,warning,pedantic "$work"/rotavel_*.deb

tar -xzf "$work"/rotavel-*.tar.gz -C "$work"
cd "$work"/rotavel-*/
QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work bin/Rotavel &
program=$!
for ((tenths = 0; tenths < 200; ++tenths)); do
    [[ ! -s Resources/Rotavel.ini ]] || break
    sleep 0.1
done
kill "$program" || true
wait "$program" || true
[[ -s Resources/Rotavel.ini ]] || { echo "No settings in the unpacked archive" >&2; exit 1; }

#!/bin/sh
# Runs a Windows program under Wine, in a Windows of this project's own below build/, which the first run makes; or ends that Windows:
# wine.sh --end.
set -eu

top=$(cd "$(dirname "$0")/../.." && pwd)
export WINEPREFIX="$top/build/windows/wine"
export WINEDEBUG="${WINEDEBUG:--all}"
# Nothing here needs .NET or a browser engine, which Wine would ask to fetch.
export WINEDLLOVERRIDES='mscoree,mshtml='
# Names and arguments come to Windows as this locale reads them.
export LC_ALL=C.UTF-8
# The same on every machine: no printer.
export CUPS_SERVER=/nonexistent/cups.sock
mkdir -p "$(dirname "$WINEPREFIX")"
[ "${1-}" != --end ] || exec wineserver --kill

# Wine's own servers outlive the program and keep its output open: a pipe's reader would wait for them.
output=$(mktemp)
errors=$(mktemp)
trap 'rm -f "$output" "$errors"' EXIT
status=0
wine "$@" > "$output" 2> "$errors" || status=$?
cat "$output"
cat "$errors" >&2
exit "$status"

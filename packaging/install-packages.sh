#!/bin/sh
# Installs those Debian packages that this machine lacks: of debian-packages.txt, or of the list that is named.
# As root or through sudo; where neither is possible it says what is missing and fails.
set -eu

list=${1:-$(dirname "$0")/debian-packages.txt}
wanted=$(grep -v '^#' "$list")

if ! command -v dpkg-query >/dev/null 2>&1; then
    echo "This is not a Debian system; these packages (or their like) are needed:" $wanted >&2
    exit 0
fi

missing=
for package in $wanted; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" = 0 ]; then
    as_root=
elif command -v sudo >/dev/null 2>&1 && sudo -n true 2>/dev/null; then
    as_root=sudo
elif command -v sudo >/dev/null 2>&1 && [ -t 0 ]; then
    as_root=sudo
else
    echo "Packages are missing and cannot be installed without root rights:$missing" >&2
    echo "Run as root: apt-get install --no-install-recommends$missing" >&2
    exit 1
fi

echo "Installing:$missing"
$as_root apt-get update -q
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing

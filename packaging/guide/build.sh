#!/bin/sh
# Makes the guide: sh packaging/guide/build.sh FOLDER writes guida.html, which holds its pictures within itself, and
# guida.pdf there, from doc/guida.md. Fetches nothing; the same sources give the same bytes.
set -eu

[ $# -eq 1 ] || { echo "Usage: $0 FOLDER" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
mkdir -p "$1"
target=$(cd "$1" && pwd)

# What writes PDF dates the fonts in it; any date will do.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-0}
export SOURCE_DATE_EPOCH

# Relative names, so that no path of this machine gets into the guide.
cd "$root/doc"
pandoc --from=markdown-smart --to=html5 --standalone --self-contained --toc --toc-depth=2 \
    --template=../packaging/guide/template.html --css=../packaging/guide/guide.css \
    --output="$target/guida.html" guida.md
cd "$target"
weasyprint --quiet guida.html guida.pdf

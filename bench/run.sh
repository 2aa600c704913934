#!/bin/sh
# Measures on generated files, side by side in one run: bench/run.sh BUILD_FOLDER
# RECORDS may name other sizes than one and ten million.
set -eu

build=$1
bin=$build/bin
data=$build/data
mkdir -p "$data"
export QT_QPA_PLATFORM=offscreen

for records in ${RECORDS:-1000000 10000000}; do
    file=$data/$records.rec
    [ -f "$file" ] || "$bin/mkrec" "$records" "$file"
    cat "$file" > /dev/null
    last=$(($(wc -c < "$file") - 157 + 1))
    echo
    echo "== $records records, $(wc -c < "$file") bytes, in the page cache"
    QUORVIN_BENCH_FILE=$file "$bin/record_bench" --benchmark_color=false 2> /dev/null
    [ ! -x "$bin/window_bench" ] || QUORVIN_BENCH_FILE=$file "$bin/window_bench" --benchmark_color=false 2> /dev/null
    echo
    "$bin/compare" <<COMMANDS
quorvin-cli info	$bin/quorvin-cli info $file
quorvin-cli mostra, last record	$bin/quorvin-cli mostra $file $records
tail -c +$last (the last record by its byte)	tail -c +$last $file
wc -l	wc -l $file
cat	cat $file
COMMANDS
done

#!/bin/sh
# Looks for harmful inputs, each target for some seconds: fuzz/run.sh BUILD_FOLDER SECONDS [TARGET...]
# Inputs go on from run to run in BUILD_FOLDER/corpus; those that did harm are in BUILD_FOLDER/found.
set -eu

build=$(cd "$1" && pwd)
seconds=$2
shift 2
sources=$(cd "$(dirname "$0")" && pwd)
[ $# -gt 0 ] || set -- rec mtr rtf fill matcher

# The REC target writes its inputs to files: in memory where there is such a folder.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm

mkdir -p "$build/found"
harm=
for target; do
    inputs=$build/corpus/$target
    mkdir -p "$inputs"
    words=
    [ ! -f "$sources/$target.dict" ] || words=-dict=$sources/$target.dict
    echo "== $target, $seconds s"
    "$build/bin/fuzz_$target" -max_total_time="$seconds" -max_len=16384 -timeout=2 -report_slow_units=1 \
        -malloc_limit_mb=256 -rss_limit_mb=1024 -print_final_stats=1 -verbosity=1 $words \
        -artifact_prefix="$build/found/$target-" "$inputs" "$sources/corpus/$target" \
        > "$build/$target.log" 2>&1 || harm="$harm $target"
    grep -E '^(Done|stat::|Violated|SUMMARY|Slowest|==.*ERROR)|artifact|DONE' "$build/$target.log" || true
done
[ -z "$harm" ] || { echo "Harmful inputs of$harm are in $build/found, the reports beside it"; exit 1; }

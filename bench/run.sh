#!/bin/sh
# Measures on generated files, side by side in one run: bench/run.sh BUILD_FOLDER
# RECORDS may name other sizes than one and ten million.
set -eu

build=$1
bin=$build/bin
data=$build/data
mkdir -p "$data"
export QT_QPA_PLATFORM=offscreen

echo "== one comparison"
"$bin/matcher_bench" --benchmark_color=false 2> /dev/null

if [ -x "$bin/stat_bench" ]; then
    echo "== the largest tables and charts"
    "$bin/stat_bench" --benchmark_color=false 2> /dev/null
fi

# A text that few records hold, and only in this letter case, so that all count the same.
few=Frézet
few_ansi=$(printf 'Fr\351zet')
command -v rg > /dev/null && rg=yes || rg=

for records in ${RECORDS:-1000000 10000000}; do
    file=$data/$records.rec
    [ -f "$file" ] || "$bin/mkrec" "$records" "$file"
    cat "$file" > /dev/null
    cerca="$bin/quorvin-cli cerca $file"
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
COMMANDS
    echo
    # grep stops at the first match when it writes to the null device.
    "$bin/compare" <<COMMANDS
cat	cat $file
quorvin-cli cerca, mode 4, few hits	$cerca -c COGNOME=$few
quorvin-cli cerca, mode 4, field over two lines	$cerca -c DIAGNOSI=$few || true
quorvin-cli cerca, mode 1	$cerca --modo 1 -c COGNOME=Rossi
quorvin-cli cerca, mode 6	$cerca --modo 6 -c 'NOTE=portatore pacemaker'
quorvin-cli cerca, mode 8	$cerca --modo 8 -c 'ETA=>80 <85'
quorvin-cli cerca, two fields	$cerca -c COGNOME=Rossi -c COMUNE=Milano
quorvin-cli cerca, every record a hit	$cerca -c 'COGNOME= '
quorvin-cli cerca, the same, not printed	$cerca -c 'COGNOME= ' --quiet
wc -l	wc -l $file
grep -c	LC_ALL=C grep -c -a $few_ansi $file | cat
grep -c -i	LC_ALL=C grep -c -a -i $few_ansi $file | cat
awk substr	LC_ALL=C awk 'index(substr(\$0, 1, 18), "$few_ansi") { n++ } END { print n + 0 }' $file
${rg:+rg -c	rg -c -a --no-config '(?-u)Fr\\xe9zet' $file
rg -c -i	rg -c -i -a --no-config '(?-u)Fr\\xe9zet' $file}
COMMANDS
    echo
    # Every record is found and counted.
    "$bin/compare" <<COMMANDS
quorvin-cli cerca, mode 4, few hits	$cerca -c COGNOME=$few
quorvin-cli frequenza, the same	$bin/quorvin-cli frequenza $file -c COGNOME=$few
quorvin-cli tabella, few hits	$bin/quorvin-cli tabella $file -c COGNOME=$few -c COMUNE=
quorvin-cli cerca, every record, one field	$cerca -c COMUNE= --quiet
quorvin-cli frequenza, every record	$bin/quorvin-cli frequenza $file -c COMUNE= --quiet
quorvin-cli cerca, every record, two fields	$cerca -c ETA= -c COMUNE= --quiet
quorvin-cli tabella, every record	$bin/quorvin-cli tabella $file -c ETA= -c COMUNE= --quiet
quorvin-cli tabella, full at once	$bin/quorvin-cli tabella $file -c NASCITA= -c COGNOME= --quiet
COMMANDS
    echo
    new=$data/new.rec
    old=$data/old.rec
    one=$data/one.rec
    crea="$bin/quorvin-cli crea $file --quiet --sovrascrivi -c"
    $crea 'COGNOME= ' --ricerca -o "$one"
    $crea 'COGNOME= ' --tutto -o "$old"
    # A new file is on the disk when the program ends; a copy is not.
    "$bin/compare" <<COMMANDS
cp	cp $file $new; rm $new
quorvin-cli crea, every record, all fields	$crea 'COGNOME= ' --tutto -o $new; rm $new
cp over a file	cp $file $old
the same over a file	$crea 'COGNOME= ' --tutto -o $old
cp of one field's file	cp $one $new; rm $new
quorvin-cli crea, every record, one field	$crea 'COGNOME= ' --ricerca -o $new; rm $new
COMMANDS
    rm -f "$old" "$one"
done

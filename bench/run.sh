#!/bin/sh
# Measures on generated files, side by side in one run: bench/run.sh BUILD_FOLDER
# RECORDS   other sizes than one and ten million
# ROUNDS    how often each command runs (7; SLOW_ROUNDS, those that take seconds: 5)
# BASELINE  folder of an older build's programs: they are measured beside these, and no others
# PARTS     which parts, of: opening searching counting listing printing writing databases reading
# DUCKDB_NODE_DIR  folder that holds node_modules with @duckdb/node-api
set -eu

build=$1
bin=$build/bin
data=$build/data
baseline=${BASELINE:-}
slow_rounds=${SLOW_ROUNDS:-5}
mkdir -p "$data"
export QT_QPA_PLATFORM=offscreen NODE_PATH="${DUCKDB_NODE_DIR:-}/node_modules"

# A text that few records hold, and only in this letter case, so that all count the same.
few=Frézet
few_ansi=$(printf 'Fr\351zet')

has() {
    case $1 in
    duckdb) node bench/duckdb.js > /dev/null 2>&1 ;;
    foreign) Rscript -e 'library(foreign)' > /dev/null 2>&1 ;;
    *) command -v "$1" > /dev/null ;;
    esac
}

# One row of a comparison: LABEL ARGUMENTS of quorvin-cli, or TOOL LABEL COMMAND of another program.
ours() { printf 'quorvin-cli %s\t%s/quorvin-cli %s\n' "$1" "$bin" "$2"; }
peer() {
    [ -z "$baseline" ] || return 0
    if has "$1"; then printf '%s\t%s\n' "$2" "$3"; else printf '%s\t\n' "$2, $1"; fi
}
# TITLE [ROUNDS]
compare() { env ${2:+"ROUNDS=$2"} "$bin/compare" "$1" ${baseline:+"$bin/" "$baseline/"}; }
slowly() { compare "$1" "$slow_rounds"; }

# Benchmarks of one program; beside an older build's a table of both.
micro() {
    [ -x "$bin/$1" ] || return 0
    if [ -z "$baseline" ]; then
        "$bin/$1" --benchmark_color=false 2> /dev/null
    elif [ -x "$baseline/$1" ]; then
        for folder in "$baseline" "$bin"; do
            "$folder/$1" --benchmark_format=csv 2> /dev/null
        done | awk -F, '
            { gsub("\"", "", $1) }
            $1 == "name" { build++; next }
            # Processor time.
            build == 1 { before[$1] = $4 }
            build == 2 && before[$1] {
                printf "%-52s %10.3f %s, before %10.3f, times %5.2f\n", $1, $4, $5, before[$1], $4 / before[$1] }'
    fi
    echo
}

opening() {
    micro record_bench
    micro window_bench
    {
        ours "info" "info $file"
        ours "mostra, last record" "mostra $file $records"
        peer tail "tail -c +$last (the last record by its byte)" "tail -c +$last $file"
        [ ! -x "$bin/quorvin" ] || printf '%s\t%s\n' "quorvin --immagine, start to last record's picture" \
            "$bin/quorvin --rekord $records --immagine $data/window.png $file"
    } | compare "opening, whole process"
    rm -f "$data/window.png"
}

searching() {
    {
        peer cat "cat > /dev/null" "cat $file > /dev/null"
        ours "cerca, mode 4, few hits" "$cerca -c COGNOME=$few"
        ours "cerca, mode 4, field over two lines" "$cerca -c DIAGNOSI=$few || true"
        ours "cerca, mode 1" "$cerca --modo 1 -c COGNOME=Rossi"
        ours "cerca, mode 6" "$cerca --modo 6 -c 'NOTE=portatore pacemaker'"
        ours "cerca, mode 8" "$cerca --modo 8 -c 'ETA=>80 <85'"
        ours "cerca, two fields" "$cerca -c COGNOME=Rossi -c COMUNE=Milano"
        ours "cerca, every record a hit, not printed" "$cerca -c 'COGNOME= ' --quiet"
        peer wc "wc -l" "wc -l $file"
        peer rg "rg -c" "rg -c -a --no-config '(?-u)Fr\\xe9zet' $file"
        peer rg "rg -c -i" "rg -c -i -a --no-config '(?-u)Fr\\xe9zet' $file"
        peer grep "grep -c" "LC_ALL=C grep -c -a $few_ansi $file"
        peer grep "grep -c -i" "LC_ALL=C grep -c -a -i $few_ansi $file"
        peer awk "awk substr, letter case as it stands" \
            "LC_ALL=C awk 'index(substr(\$0, 1, 18), \"$few_ansi\") { n++ } END { print n + 0 }' $file"
    } | compare "searching"
}

# Every record is found and counted.
counting() {
    {
        ours "cerca, mode 4, few hits" "$cerca -c COGNOME=$few"
        ours "frequenza, the same" "frequenza $file -c COGNOME=$few"
        ours "tabella, few hits" "tabella $file -c COGNOME=$few -c COMUNE="
        ours "cerca, every record, one field" "$cerca -c COMUNE= --quiet"
        ours "frequenza, every record" "frequenza $file -c COMUNE="
        ours "cerca, every record, two fields" "$cerca -c ETA= -c COMUNE= --quiet"
        ours "tabella, every record" "tabella $file -c ETA= -c COMUNE="
        ours "tabella, full at once" "tabella $file -c NASCITA= -c COGNOME= --quiet"
        peer awk "awk substr, frequency" \
            "LC_ALL=C awk '$every { n[toupper(substr(\$0, 47, 20))]++ } END { for (v in n) print v, n[v] }' $file"
        peer awk "awk substr, pairs" \
            "LC_ALL=C awk '$every { n[substr(\$0, 44, 3) toupper(substr(\$0, 47, 20))]++ } END { for (v in n) print v, n[v] }' $file"
    } | compare "counting"
}

# A line for every record: as they come, and in alphabetical order.
listing() {
    extract="LC_ALL=C awk '$every { print substr(\$0, 47, 20) }' $file"
    {
        peer cat "cat > /dev/null" "cat $file > /dev/null"
        ours "cerca, every record's line" "$cerca -c COMUNE="
        peer awk "awk substr, every record's text" "$extract"
        ours "cerca --sort, every record, 46 cities" "$cerca -c COMUNE= --sort"
        peer sort "awk substr | sort -f -s" "$extract | LC_ALL=C sort -f -s"
        ours "cerca --sort, every record, notes" "$cerca -c NOTE= --sort"
        ours "cerca --formato csv, every record" "$cerca -c COMUNE= --formato csv"
    } | slowly "listing"
}

# The print file holds 32,768 characters: what goes beyond is searched, not printed.
printing() {
    matrix=${file%.rec}.mtr
    printf ' 1\r\n 6\r\n 8\r\nELENCO\r\n 3\r\n""\r\n' > "$matrix"
    {
        peer cat "cat > /dev/null" "cat $file > /dev/null"
        ours "stampa, few hits" "stampa $file -c COGNOME=$few"
        ours "stampa, every record a hit" "stampa $file -c COMUNE="
        ours "stampa, interval of 400" "stampa $file --da 1 --a 400"
    } | compare "printing"
    # Without one the window opens the file as it did before.
    rm -f "$matrix"
}

writing() {
    new=$data/new.rec
    old=$data/old.rec
    one=$data/one.rec
    crea="crea $file --quiet --sovrascrivi -c"
    "$bin/quorvin-cli" $crea 'COGNOME= ' --ricerca -o "$one"
    "$bin/quorvin-cli" $crea 'COGNOME= ' --tutto -o "$old"
    # A new file is on the disk when the program ends; a copy is not.
    {
        peer cp "cp" "cp $file $new; rm $new"
        ours "crea, every record, all fields" "$crea 'COGNOME= ' --tutto -o $new; rm $new"
        peer cp "cp over a file" "cp $file $old"
        ours "the same over a file" "$crea 'COGNOME= ' --tutto -o $old"
        peer cp "cp of one field's file" "cp $one $new; rm $new"
        ours "crea, every record, one field" "$crea 'COGNOME= ' --ricerca -o $new; rm $new"
    } | slowly "writing"
    rm -f "$old" "$one"
}

# Both are asked after they have taken in all records, which is measured once and apart.
databases() {
    [ -z "$baseline" ] || return 0
    csv=$data/records.csv
    sqlite="sqlite3 $data/records.sqlite"
    duck="node bench/duckdb.js $data/records.duckdb"
    rm -f "$data"/records.*
    "$bin/quorvin-cli" cerca "$file" -c COMUNE= --formato csv > "$csv"
    {
        peer sqlite3 "sqlite3 .import of a CSV file" "$sqlite '.import --csv $csv t'"
        peer duckdb "DuckDB read_csv" "$duck \"create table t as select * from read_csv('$csv', all_varchar = true)\""
    } | compare "loading, once" 1
    rm -f "$csv"
    search="select * from t where COGNOME"
    frequency="select upper(COMUNE), count(*) from t group by 1"
    cross="select upper(COMUNE), ETA, count(*) from t group by 1, 2"
    {
        ours "cerca, mode 4, few hits" "$cerca -c COGNOME=$few --formato csv"
        peer sqlite3 "sqlite3 like" "$sqlite \"$search like '%$few%'\""
        peer duckdb "DuckDB ilike" "$duck \"$search ilike '%$few%'\""
        ours "frequenza, every record" "frequenza $file -c COMUNE="
        peer sqlite3 "sqlite3 group by" "$sqlite '$frequency'"
        peer duckdb "DuckDB group by" "$duck '$frequency'"
        ours "tabella, every record" "tabella $file -c ETA= -c COMUNE="
        peer sqlite3 "sqlite3 group by two fields" "$sqlite '$cross'"
        peer duckdb "DuckDB group by two fields" "$duck '$cross'"
    } | slowly "databases that hold the records"
    rm -f "$data"/records.*
}

# The whole file as a table of values. On a small one: the reader of R takes a second for 100,000 records.
reading() {
    [ -z "$baseline" ] || return 0
    cut=$data/cut.rec
    [ -f "$cut" ] || "$bin/mkrec" 100000 "$cut"
    {
        ours "cerca --formato csv" "cerca $cut -c 'COGNOME= ' --formato csv"
        peer foreign "R, foreign::read.epiinfo" \
            "LC_ALL=C Rscript -e 'cat(nrow(foreign::read.epiinfo(\"$cut\")))'"
        peer Rscript "R, nothing" "Rscript -e 1"
    } | slowly "reading all values of 100000 records"
}

echo "== one comparison"
micro matcher_bench
echo "== the largest tables and charts"
micro stat_bench
for records in ${RECORDS:-1000000 10000000}; do
    file=$data/$records.rec
    [ -f "$file" ] || "$bin/mkrec" "$records" "$file"
    cat "$file" > /dev/null
    export QUORVIN_BENCH_FILE="$file"
    cerca="cerca $file"
    last=$(($(wc -c < "$file") - 157 + 1))
    # The first line of each record, behind the header and twelve definitions.
    every='NR > 13 && NR % 2 == 0'
    echo "== $records records, $(wc -c < "$file") bytes, in the page cache"
    for part in ${PARTS:-opening searching counting listing printing writing databases reading}; do
        "$part"
    done
done

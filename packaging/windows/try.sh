#!/bin/sh
# Uses the packed Windows programs as a user would, under Wine, on a screen of its own: try.sh ZIP FOLDER. Unpacks them into a folder
# with blanks and accents, opens the sample, searches, writes a REC file and the settings file, prints a PDF, and looks at what came
# of it. Pictures of the screen stay in FOLDER.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
zip=$(realpath "$1")
mkdir -p "$2"
target=$(cd "$2" && pwd)
. "$root/packaging/guide/driving.sh"
# The shell that runs Wine is not the program: that ends with its Windows.
trap 'status=$?; set +e; "$here/wine.sh" --end; (exit "$status"); clean_up' EXIT

picture() {
    settle
    import -silent -window root -depth 8 "$target/$1.png"
    echo "$target/$1.png"
}

# Behind a dialog of the system's the window manager does not know by itself that this one's turn has come.
come_back() {
    xdotool search --onlyvisible --name "^$main\$" windowactivate
    await_window "$main"
    settle
}

wine() {
    "$here/wine.sh" "$@"
}

scene=try
wine --end || true
start_screen
programs="$work/Programmi però"
data="$work/Dati dell'unità"
mkdir "$programs" "$data"
unzip -q "$zip" -d "$programs"
folder=$(echo "$programs"/*)
for file in guida.html guida.pdf licenze/LGPL-3.0-only.txt; do
    [ -s "$folder/$file" ] || fail "the zip lacks $file"
done
sample="$data/pazienti città.rec"
cp "$folder/esempi/pazienti.rec" "$sample"

scene=command-line
found=$(cd "$data" && wine "$folder/quorvin-cli.exe" cerca 'pazienti città.rec' -c 'COMUNE=DONÀ' | tr -d '\r' | head -n 1)
[ "$found" = ' 3. San Donà di Piave ' ] || fail "quorvin-cli finds: $found"

scene=open
wine "$folder/quorvin.exe" "$sample" &
program_pid=$!
main="pazienti città.rec - Quorvin"
await_window "$main"
picture aperto

scene=search
menu c 0
choose 6 roma
keys Return
keys Down
picture ricerca

# All fields of what is found; the system's own dialog asks for the name.
scene=export
menu e 2
field 6
keys Return
await_window "salva il nuovo file"
picture salva
keys ctrl+a
type_text nuovo
keys Return
await "the new file" test -s "$data/nuovo.rec"
picture scritto
come_back
menu e 2

# The heading of print-outs is kept beside the data file.
scene=settings
menu o 4
await_window Quorvin
type_text "Elenco di prova"
answer Return
await "the settings" grep -q "Elenco di prova" "$data/pazienti città.mtr"

scene=print
menu s 2
field 1
keys ctrl+space
field 2
keys ctrl+space
picture matrice
menu s 2
menu s 0
type_text 1
keys Tab
type_text 20
keys Return
picture stampa
menu f 1
await_window "stampa in un file PDF"
picture pdf
keys ctrl+a
type_text "Z:$(echo "$work/stampa.pdf" | tr / '\\')"
keys Return
sleep 1
come_back
keys ctrl+p
await "the PDF" test -s "$work/stampa.pdf"
pdftotext -layout "$work/stampa.pdf" - | grep -q "^ *CognomeLombardo" || fail "the PDF lacks its first line"
pdftoppm -r 50 -png -singlefile "$work/stampa.pdf" "$target/foglio"

scene=statistics
menu s 0
menu t 0
choose 6 " "
keys Return
picture frequenza

scene=guide
keys F1
picture guida

scene=end
keys ctrl+q
await "the program's end" sh -c "! kill -0 $program_pid"
wait "$program_pid" || fail "the program ended with a failure"
program_pid=
[ "$(cd "$data" && wine "$folder/quorvin-cli.exe" info nuovo.rec | tr -d '\r' | sed -n 's/^rekord *//p')" = \
    "$(cd "$data" && wine "$folder/quorvin-cli.exe" cerca 'pazienti città.rec' -c COMUNE=roma | wc -l)" ] ||
    fail "the new file does not hold what was found"
ls "$data"
echo "The Windows programs do what they should; pictures of them are in $target"

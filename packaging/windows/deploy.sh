#!/bin/sh
# Puts beside the Windows programs of a folder what they need to start: deploy.sh FOLDER QT-PREFIX [PLUGIN ...]
# The libraries that they and the plugins name, the libraries' own, and Qt's plugins and Italian texts.
set -eu

folder=$1
qt=$2
shift 2
compiler=x86_64-w64-mingw32-g++-posix

find_library() {
    for candidate in "$qt/bin/$1" "$($compiler -print-file-name="$1")"; do
        if [ -f "$candidate" ]; then
            echo "$candidate"
            return
        fi
    done
}

imports() {
    x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p'
}

# Names that are found nowhere are the system's own.
bring_imports() {
    for name in $(imports "$1"); do
        [ ! -f "$folder/$name" ] || continue
        library=$(find_library "$name")
        [ -n "$library" ] || continue
        cp "$library" "$folder/"
        bring_imports "$library"
    done
}

for plugin in "$@"; do
    mkdir -p "$folder/$(dirname "$plugin")"
    cp "$qt/plugins/$plugin.dll" "$folder/$plugin.dll"
    bring_imports "$folder/$plugin.dll"
done
for program in "$folder"/*.exe; do
    bring_imports "$program"
done
x86_64-w64-mingw32-strip "$folder"/*.dll
mkdir -p "$folder/translations"
cp /usr/share/qt6/translations/qtbase_it.qm "$folder/translations/"

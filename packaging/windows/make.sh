#!/bin/sh
# Builds the Windows programs on Debian, proves them under Wine and packs them: build/windows/quorvin-<version>-win64.zip.
# With an argument only that step and what it needs: qt, build, test, pack, try.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
out=$top/build/windows
cache=$out/cache
program=$out/program
version=$(sed -n 's/^project(Quorvin VERSION \([0-9.]*\).*/\1/p' "$top/CMakeLists.txt")
name=quorvin-$version-win64
plugins='platforms/qwindows imageformats/qjpeg imageformats/qgif imageformats/qico'

setup() {
    for list in debian-packages.txt guide-packages.txt windows/packages.txt; do
        sh "$top/packaging/install-packages.sh" "$top/packaging/$list"
    done
}

libraries() {
    qt=$(sh "$here/qt.sh" "$cache")
    sh "$here/libraries.sh" "$cache/libraries" > "$cache/libraries.log" 2>&1 || { cat "$cache/libraries.log" >&2; exit 1; }
}

make_icon() {
    icons=$out/icon
    mkdir -p "$icons"
    for size in 16 24 32 48 64 256; do
        rsvg-convert -w "$size" -h "$size" "$top/packaging/quorvin.svg" -o "$icons/$size.png"
    done
    icotool -c -o "$out/quorvin.ico" "$icons/16.png" "$icons/24.png" "$icons/32.png" "$icons/48.png" "$icons/64.png" \
        --raw="$icons/256.png"
}

build() {
    libraries
    make_icon
    # What was built with another Qt remembers its folders and libraries.
    [ "$(cat "$program.qt" 2>/dev/null)" = "$qt" ] || rm -rf "$program"
    echo "$qt" > "$program.qt"
    host_cmake=$(dirname "$(dirname "$(dpkg -L qt6-base-dev | grep '/Qt6Config.cmake$')")")
    cmake -S "$top" -B "$program" -G Ninja -Wno-dev -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DQUORVIN_PREFIXES="$qt;$cache/libraries" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake" -DQUORVIN_ICON="$out/quorvin.ico" \
        -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST > "$out/configure.log" 2>&1 ||
        { cat "$out/configure.log" >&2; exit 1; }
    cmake --build "$program"
    sh "$here/deploy.sh" "$program/bin" "$qt" $plugins
}

# Has Wine's Windows begin afresh, with the fonts that programs expect of it.
renew_wine() {
    "$here/wine.sh" --end > "$out/wine.log" 2>&1 || true
    rm -rf "$out/wine"
    "$here/wine.sh" wineboot --init >> "$out/wine.log" 2>&1
    "$here/wine.sh" regedit /S "$here/fonts.reg" >> "$out/wine.log" 2>&1
}

# Runs a command with a screen and a window manager; a Wine that began on another screen would stay there.
on_screen() {
    "$here/wine.sh" --end || true
    xvfb-run -a -s '-screen 0 2560x1600x24' sh -c 'openbox & "$@"; status=$?; kill $!; exit $status' sh "$@"
}

# Every test, as a Windows program; one at a time, for a window has to be the active one.
run_tests() {
    renew_wine
    # Windows on a screen take their time: a tenth of the random deeds.
    QUORVIN_STRESS_EVENTS=1000 on_screen ctest --test-dir "$program" --output-on-failure
}

licences() {
    mkdir -p "$1"
    cp "$top/LICENSE" "$1/Quorvin.txt"
    cp "$qt/LICENSES/"* "$1/"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$1/gcc-mingw-w64.txt"
    cp /usr/share/doc/mingw-w64-common/copyright "$1/mingw-w64.txt"
    cp /usr/share/doc/qt6-translations-l10n/copyright "$1/qt6-translations.txt"
    cp /usr/share/doc/libcli11-dev/copyright "$1/CLI11.txt"
    cp /usr/share/doc/nlohmann-json3-dev/copyright "$1/nlohmann-json.txt"
    sed "s/@qt@/$(basename "$qt" | sed "s,^qt-,,")/; s/\$/\r/" "$here/leggimi-licenze.txt" > "$1/LEGGIMI.txt"
}

pack() {
    stage=$out/$name
    rm -rf "$stage" "$stage.zip"
    mkdir -p "$stage/esempi"
    cp "$program/bin/quorvin.exe" "$program/bin/quorvin-cli.exe" "$stage/"
    x86_64-w64-mingw32-strip "$stage/"*.exe
    sh "$here/deploy.sh" "$stage" "$qt" $plugins
    sh "$top/packaging/guide/build.sh" "$stage"
    cp "$top/samples/pazienti.rec" "$stage/esempi/"
    # Lines end as Windows editors want them.
    sed 's/$/\r/' "$here/leggimi.txt" > "$stage/LEGGIMI.txt"
    licences "$stage/licenze"
    (cd "$out" && zip -q -X -9 -r "$name.zip" "$name")
    ls -l "$stage.zip"
}

setup
case ${1:-all} in
qt) libraries ;;
build) build ;;
test) build; run_tests ;;
pack) build; pack ;;
try) build; pack; renew_wine; sh "$here/try.sh" "$out/$name.zip" "$out/pictures" ;;
all) build; run_tests; pack; sh "$here/try.sh" "$out/$name.zip" "$out/pictures" ;;
*) echo "unknown step: $1" >&2; exit 2 ;;
esac

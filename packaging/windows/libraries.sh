#!/bin/sh
# Puts the libraries that Debian has as headers or sources under the folder that is named, once: CLI11, nlohmann-json and
# GoogleTest, as CMake packages for the Windows compiler.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
prefix=$1
stamp=$(dpkg-query -W -f='${Version} ' libcli11-dev nlohmann-json3-dev googletest)
if [ "$(cat "$prefix/complete" 2>/dev/null)" = "$stamp" ]; then
    exit 0
fi

rm -rf "$prefix" "$prefix.build"
mkdir -p "$prefix"
# A folder of their own, so that the system's other headers stay out of the compiler's sight.
dpkg -L libcli11-dev nlohmann-json3-dev | grep -E '^/usr/(include|share/cmake)/' | while read -r file; do
    [ ! -f "$file" ] || echo "${file#/usr/}"
done | tar -C /usr -cf - -T - | tar -C "$prefix" -xf -
[ -f "$prefix/include/CLI/CLI.hpp" ] && [ -f "$prefix/include/nlohmann/json.hpp" ]

cmake -S /usr/src/googletest -B "$prefix.build" -G Ninja -Wno-dev -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_GMOCK=OFF
cmake --build "$prefix.build"
cmake --install "$prefix.build"
rm -rf "$prefix.build"
echo "$stamp" > "$prefix/complete"

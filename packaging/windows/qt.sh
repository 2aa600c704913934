#!/bin/sh
# Builds Qt for Windows from Debian's own source package, once for each version of it, below the cache folder that is named: about
# half an hour on two cores. Prints the folder of the result.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cache=$(cd "$1" && pwd)

# The host's tools (moc, rcc, uic) must be of the very version that is built.
version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
prefix=$cache/qt-$version
if [ -f "$prefix/complete" ]; then
    echo "$prefix"
    exit 0
fi

# Source packages of the archives that the system uses already; its own lists are left alone. The signatures are apt's to check.
apt_dir=$cache/apt
mkdir -p "$apt_dir/lists/partial" "$apt_dir/cache/archives/partial"
apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
    sort -u | sed 's/^/deb-src /' > "$apt_dir/sources.list"
[ -s "$apt_dir/sources.list" ] || { echo "apt knows no Debian archive to take Qt's source from; does apt-get update help?" >&2; exit 1; }
apt_source() {
    apt-get -q -o Dir::Etc::SourceList="$apt_dir/sources.list" -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::State::Lists="$apt_dir/lists" -o Dir::Cache="$apt_dir/cache" -o APT::Sandbox::User=root "$@" >&2
}

work=$cache/work
rm -rf "$work" "$prefix"
mkdir -p "$work"
apt_source update
(cd "$work" && apt_source source "qt6-base=$version") ||
    { echo "The archives have no qt6-base $version any more; upgrade the package qt6-base-dev" >&2; exit 1; }

# Off: what Quorvin does not use, and what the source package has no headers for (tabletevent). The system's libraries are Debian's;
# Windows takes the ones that stand in Qt's source.
off='sql dbus network xml icu pkg_config glib tabletevent zstd
    system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion system_libb2'
features=
for feature in $off; do
    features="$features -DFEATURE_$feature=OFF"
done
host_cmake=$(dirname "$(dirname "$(dpkg -L qt6-base-dev | grep '/Qt6Config.cmake$')")")
log=$cache/qt.log
echo "Building Qt $version for Windows: $log" >&2
{
    cmake -S "$work"/qt6-base-*/ -B "$work/build" -G Ninja -Wno-dev \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake" \
        -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DBUILD_SHARED_LIBS=ON -DINPUT_opengl=no $features &&
        cmake --build "$work/build" &&
        cmake --install "$work/build" --strip
} > "$log" 2>&1 || { grep -E -A 5 'error|FAILED' "$log" | head -n 40 >&2; exit 1; }

mkdir "$prefix/LICENSES"
cp "$work"/qt6-base-*/LICENSES/*.txt "$prefix/LICENSES/"
cp "$work"/qt6-base-*/debian/copyright "$prefix/LICENSES/qt6-base-copyright.txt"
# The notices of what others wrote, under the names of their folders.
(cd "$work"/qt6-base-*/src && find 3rdparty corelib gui -type f \( -name '*LICEN[SC]E*' -o -name 'COPYING*' -o -name '*-license.txt' \)) |
    while read -r notice; do
        cp "$work"/qt6-base-*/src/"$notice" "$prefix/LICENSES/qt-$(echo "${notice%.txt}" | tr / -).txt"
    done
rm -rf "$work"
touch "$prefix/complete"
echo "$prefix"

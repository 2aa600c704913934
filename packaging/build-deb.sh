#!/bin/sh
# Builds the Debian package of the last commit, or of the files as they stand where there is no repository, in
# build/deb, and has lintian judge it.
set -eu
cd "$(dirname "$0")/.."

version=$(sed -n 's/^project(Quorvin VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
folder=build/deb
tree=$folder/quorvin-$version

rm -rf "$folder"
mkdir -p "$tree"
if git rev-parse --git-dir >/dev/null 2>&1; then
    git archive HEAD | tar -x -C "$tree"
    [ -z "$(git status --porcelain)" ] || echo "What is not committed is not in the package." >&2
else
    tar -c --exclude=./build --exclude=./.cache . | tar -x -C "$tree"
fi
mv "$tree/packaging/debian" "$tree/debian"

cd "$tree"
described=$(dpkg-parsechangelog -S Version)
if [ "$described" != "$version" ]; then
    echo "CMakeLists.txt has version $version, packaging/debian/changelog $described." >&2
    exit 1
fi
DEB_BUILD_OPTIONS="terse ${DEB_BUILD_OPTIONS:-}" dpkg-buildpackage --unsigned-source --unsigned-changes
cd ..
lintian --info --display-info --pedantic --fail-on error,warning "quorvin_${version}_$(dpkg --print-architecture).changes"
ls -l "quorvin_${version}_"*.deb

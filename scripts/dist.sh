#!/bin/sh
# Builds what ships and packs it into dist/: a zip and a setup program for Windows, a tar for Linux, and a package for
# Octave. The same sources and tools give the same bytes; scripts/check_dist.sh makes sure of it.
#
#   scripts/dist.sh [FOLDER]        FOLDER is dist unless it says otherwise
set -eu
cd "$(dirname "$0")/.."
mkdir -p "${1:-dist}"
output=$(cd "${1:-dist}" && pwd)
version=$(scripts/version.sh)

# No file carries the time at which it was made, but that of the last change of the sources.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 1767225600)}
export SOURCE_DATE_EPOCH LC_ALL=C TZ=UTC
umask 022

for preset in windows-x64 windows-x86 linux; do
    cmake --preset "$preset"
    cmake --build --preset "$preset" --target shipped
done

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

put() { cmake --install "build/$1" --component "$2" --prefix "$3" >/dev/null; }
same_time() { find "$1" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +; }

put windows-x64 windows "$stage/windows/Verdanth"
put windows-x86 windows "$stage/windows/Verdanth"
same_time "$stage/windows"
rm -f "$output/Verdanth-$version-win64.zip"
(cd "$stage/windows" && find Verdanth | sort | zip -X -q -9 -@ "$output/Verdanth-$version-win64.zip")
scripts/make_setup.sh "$stage/windows/Verdanth" "$output/Verdanth-$version-setup.exe"

put linux linux "$stage/linux/verdanth"
same_time "$stage/linux"
tar -C "$stage/linux" --sort=name --owner=0 --group=0 --numeric-owner --format=ustar -cf - verdanth |
    gzip -9 -n >"$output/verdanth-linux-x64.tar.gz"
scripts/dist_octave.sh "$output"

ls -l "$output"

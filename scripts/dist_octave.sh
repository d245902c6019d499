#!/bin/sh
# Makes the Octave package, a file for `pkg install`, from what the preset linux has built.
#
#   scripts/dist_octave.sh FOLDER
set -eu
output=$(cd "$1" && pwd)
cd "$(dirname "$0")/.."
name=verdanth-$(scripts/version.sh)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 1767225600)}
export SOURCE_DATE_EPOCH LC_ALL=C TZ=UTC
umask 022

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cmake --install build/linux --component octave --prefix "$stage/$name" >/dev/null
find "$stage/$name" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
tar -C "$stage" --sort=name --owner=0 --group=0 --numeric-owner --format=ustar -cf - "$name" |
    gzip -9 -n >"$output/verdanth-octave-${name#verdanth-}.tar.gz"

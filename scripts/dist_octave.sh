#!/bin/sh
# Makes the Octave package: a file for `pkg install`. The library is in it as built; the little that depends on Octave's
# version, Verdanth.mex, is compiled when the package is installed, by Octave's own mkoctfile.
#
#   scripts/dist_octave.sh LINUX FOLDER      LINUX is what scripts/stage_linux.sh has made
set -eu
linux=$(cd "$1" && pwd)
output=$(cd "$2" && pwd)
cd "$(dirname "$0")/.."
version=$(scripts/version.sh)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 1767225600)}
export LC_ALL=C TZ=UTC

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
package=$stage/verdanth-$version
mkdir -p "$package/src/toolbox/octave"

cp -r "$linux/toolbox" "$package/inst"
rm "$package/inst/Contents.m"
cp -r "$linux/doc" "$package/doc"
for file in "$linux"/lib/*; do
    [ "$(basename "$file")" = Verdanth.mex ] || cp -r "$file" "$package/inst/"
done
cp toolbox/octave/bridge.h toolbox/octave/octave_errors.cpp toolbox/octave/octave_errors.h toolbox/octave/octave_side.cpp \
    "$package/src/toolbox/octave/"
cat >"$package/src/Makefile" <<'END'
# Octave calls this when the package is installed. Verdanth.mex has to lie beside the libraries.
MKOCTFILE ?= mkoctfile
sources = toolbox/octave/octave_errors.cpp toolbox/octave/octave_side.cpp

../inst/Verdanth.mex: $(sources) toolbox/octave/bridge.h toolbox/octave/octave_errors.h
	$(MKOCTFILE) --mex -O2 -I. -o $@ $(sources)
	rm -f $(notdir $(sources:.cpp=.o)) $(sources:.cpp=.o)
END
cat >"$package/DESCRIPTION" <<END
Name: verdanth
Version: $version
Date: $(date -u -d "@$SOURCE_DATE_EPOCH" +%Y-%m-%d)
Author: The Verdanth developers
Maintainer: The Verdanth developers
Title: CAPE-OPEN 1.1 property packages
Description: Lists, opens and uses thermodynamic property packages through the CAPE-OPEN 1.1 standard: constants, properties
 of pure compounds, of phases and of pairs of phases, and phase equilibria, over arrays of conditions. For 64-bit Linux.
Depends: octave (>= 6.0)
SystemRequirements: a C++ compiler and mkoctfile
END
cat >"$package/COPYING" <<'END'
This package is a part of Verdanth. What was agreed with you on the use of Verdanth
holds for it, too.
END

# The index is that of Contents.m: groups, and names below them.
{
    echo "verdanth >> Verdanth"
    sed -n 's/^% \([A-Z].*[a-z]\)$/\1/p; s/^%   \(\S*\) .*/ \1/p' toolbox/Contents.m
} >"$package/INDEX"

find "$package" -exec chmod u=rwX,go=rX {} + -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
tar -C "$stage" --sort=name --owner=0 --group=0 --numeric-owner --format=ustar -cf - "verdanth-$version" |
    gzip -9 -n >"$output/verdanth-octave-$version.tar.gz"

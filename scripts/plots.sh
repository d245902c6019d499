#!/bin/sh
# Draws the plots of the user guide anew, into docs/images: the curves by the library in Octave, the pictures by gnuplot;
# those of the page on diagrams by the functions that it tells of.
set -eu
cd "$(dirname "$0")/.."

cmake --preset linux
cmake --build --preset linux --target verdanth_mex
curves=$(mktemp -d)
trap 'rm -rf "$curves"' EXIT
octave-cli --quiet --norc --no-history docs/plots/curves.m toolbox build/linux "$curves"
mkdir -p docs/images
gnuplot -e "curves='$curves'; data='docs/plots'; images='docs/images'" docs/plots/plots.gnuplot
octave-cli --quiet --norc --no-history docs/plots/diagrams.m toolbox build/linux docs/pages/diagrams.md docs/images

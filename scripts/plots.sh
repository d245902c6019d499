#!/bin/sh
# Draws the plots of the user guide anew, into docs/images: the curves by the library in Octave, the pictures by gnuplot;
# those of the page on diagrams by the functions that it tells of, and the report of a check by a browser.
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

octave-cli --quiet --norc --no-history tests/toolbox/report/make_reports.m toolbox build/linux "$curves"
chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --user-data-dir="$curves/profile" --window-size=960,760 \
    --screenshot=docs/images/check_report.png "file://$curves/numbers.html"

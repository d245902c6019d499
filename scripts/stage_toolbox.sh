#!/bin/sh
# Copies the functions for MATLAB and Octave, with all that belongs to them, into a folder. What connects Octave with the
# library is a program, and not among them.
#
#   scripts/stage_toolbox.sh FOLDER         one that is there
set -eu
folder=$(cd "$1" && pwd)
cd "$(dirname "$0")/../toolbox"
find . -name octave -prune -o -type f ! -name CMakeLists.txt -print0 | xargs -0 cp --parents -t "$folder"

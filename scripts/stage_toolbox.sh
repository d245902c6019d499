#!/bin/sh
# Copies the functions for MATLAB and Octave, with all that belongs to them, into a folder, and the pages of a guide, if
# there is one, to where MATLAB's help finds them. What connects Octave with the library is a program, and not among them.
#
#   scripts/stage_toolbox.sh FOLDER [GUIDE]        FOLDER is there; GUIDE is that of a build folder
set -eu
folder=$(cd "$1" && pwd)
guide=${2:+$(cd "$2" && pwd)}
cd "$(dirname "$0")/../toolbox"
find . -name octave -prune -o -type f ! -name CMakeLists.txt ! -name PKG_ADD ! -name info.xml ! -name functionSignatures.json \
    -print0 | xargs -0 cp --parents -t "$folder"
if [ -n "$guide" ]; then
    cp functionSignatures.json info.xml "$folder/"
    mkdir -p "$folder/html"
    cp "$guide"/*.html "$guide"/*.png "$guide/style.css" "$guide/helptoc.xml" "$folder/html/"
fi

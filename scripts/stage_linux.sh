#!/bin/sh
# Puts what a Linux user gets into a folder, from what the preset linux has built.
#
#   scripts/stage_linux.sh FOLDER          a new one
set -eu
cd "$(dirname "$0")/.."
mkdir -p "$1/lib/registry.d" "$1/toolbox" "$1/doc"
for file in Verdanth.so Verdanth.mex VerdanthReference.so libverdanth_platform.so libverdanth_matlab.so libverdanth_octave.so; do
    # The build id would tell of folders and of debug information that is not there.
    strip --strip-unneeded --remove-section=.note.gnu.build-id -o "$1/lib/$file" "build/linux/$file"
done
cp build/linux/registry.d/VerdanthReference.reg "$1/lib/registry.d/"
scripts/stage_toolbox.sh "$1/toolbox"
cp build/linux/guide/*.html build/linux/guide/*.png build/linux/guide/style.css "$1/doc/"
cp README.md "$1/"
find "$1" -exec chmod u=rwX,go=rX {} +

#!/bin/sh
# Builds what ships and packs it into dist/: a zip for Windows, a tar for Linux, both with fixed names.
set -eu
cd "$(dirname "$0")/.."

rm -rf dist build/dist
for preset in windows-x64 linux; do
    cmake --preset "$preset"
    cmake --build --preset "$preset"
done

# stage PRESET STRIP FILE...: the files of a build, without debug information, and the README.
stage() {
    preset=$1 strip=$2 folder=build/dist/$1/verdanth
    shift 2
    mkdir -p "$folder"
    for file in "$@"; do "$strip" --strip-unneeded -o "$folder/$file" "build/$preset/$file"; done
    cp README.md "$folder/"
}
stage windows-x64 x86_64-w64-mingw32-strip Verdanth.mexw64
stage linux strip Verdanth.so libverdanth_platform.so

root=$PWD
mkdir dist
cmake -E chdir build/dist/windows-x64 cmake -E tar cf "$root/dist/verdanth-windows-x64.zip" --format=zip verdanth
cmake -E chdir build/dist/linux cmake -E tar czf "$root/dist/verdanth-linux-x64.tar.gz" verdanth
ls -l dist

#!/bin/sh
# Puts what a Windows user gets into a folder, from what the presets windows-x64 and windows-x86 have built.
#
#   scripts/stage_windows.sh FOLDER         a new one
set -eu
cd "$(dirname "$0")/.."
folder=$1
version=$(scripts/version.sh)

mkdir "$folder"
mkdir -p "$folder/toolbox" "$folder/reference/x64" "$folder/reference/x86" "$folder/licences"

strip64() { x86_64-w64-mingw32-strip --strip-unneeded -o "$folder/$2" "build/windows-x64/$1"; }
strip32() { i686-w64-mingw32-strip --strip-unneeded -o "$folder/$2" "build/windows-x86/$1"; }
strip64 Verdanth.mexw64 toolbox/Verdanth.mexw64
strip64 VerdanthReference.dll reference/x64/VerdanthReference.dll
strip32 VerdanthReference.dll reference/x86/VerdanthReference.dll
strip32 Verdanth6432Relay.exe Verdanth6432Relay.exe

scripts/stage_toolbox.sh "$folder/toolbox" build/windows-x64/guide
cp installer/install.m "$folder/"
cp build/windows-x64/CapeOpen11.tlb build/windows-x64/guide/Verdanth.chm "$folder/"

# Editors of older Windows want the carriage returns.
windows_text() { sed "s/@VERSION@/$version/; s/\$/\r/" "$1" >"$2"; }
windows_text installer/README.txt "$folder/README.txt"

# What the compiler's runtime, which is linked into the binaries, asks to be handed on.
windows_text /usr/share/doc/mingw-w64-common/copyright "$folder/licences/mingw-w64.txt"
windows_text /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licences/gcc.txt"
windows_text /usr/share/common-licenses/GPL-3 "$folder/licences/GPL-3.txt"
windows_text /usr/share/doc/nsis/copyright "$folder/licences/nsis.txt"
for phrase in "mingw-w64.txt:winpthreads" "gcc.txt:GCC RUNTIME LIBRARY EXCEPTION"; do
    grep -q "${phrase#*:}" "$folder/licences/${phrase%%:*}" || {
        echo "stage_windows.sh: ${phrase%%:*} does not hold the text for ${phrase#*:}." >&2
        exit 1
    }
done

find "$folder" -exec chmod u=rwX,go=rX {} +

#!/bin/sh
# Makes the setup program for a folder that holds what a Windows user gets.
#
#   scripts/make_setup.sh FOLDER SETUP.exe
set -eu
folder=$(cd "$1" && pwd)
output=$(cd "$(dirname "$2")" && pwd)/$(basename "$2")
cd "$(dirname "$0")/.."

lists=$(mktemp -d)
trap 'rm -rf "$lists"' EXIT

# The files by name, for installing and for removing: what users put beside them is left alone.
(cd "$folder" && find . -mindepth 1 -type f | LC_ALL=C sort) | sed 's,^\./,,' >"$lists/files"
(cd "$folder" && find . -mindepth 1 -type d | LC_ALL=C sort -r) | sed 's,^\./,,' >"$lists/folders"
awk '{
    name = $0; where = ""
    if (match(name, /.*\//)) where = "\\" substr(name, 1, RLENGTH - 1)
    gsub("/", "\\", where)
    if (where != last || NR == 1) printf "SetOutPath \"$INSTDIR%s\"\n", where
    last = where
    printf "File \"${STAGE}/%s\"\n", name
}' "$lists/files" >"$lists/install_files.nsh"
# shellcheck disable=SC2016  # the variable is the setup program's
{
    sed 's,/,\\,g; s,.*,Delete "$INSTDIR\\&",' "$lists/files"
    sed 's,/,\\,g; s,.*,RMDir "$INSTDIR\\&",' "$lists/folders"
} >"$lists/remove_files.nsh"

makensis -V2 -WX -NOCD -DVERSION="$(scripts/version.sh)" -DSTAGE="$folder" -DLISTS="$lists" -DOUTPUT="$output" installer/Verdanth.nsi

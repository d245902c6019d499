#!/bin/sh
# Makes ready the Wine prefixes in which the functions of the toolbox are tested: as Octave makes one for a user, with the
# reference packages for 64 bits; one with those for 32 bits alone, which go through the relay; one with packages that end
# their process besides.
#
#   tests/toolbox/windows/prefixes.sh OCTAVE SOURCE LINUX_BUILD
set -eu
octave=$1
source=$2
linux=$3
build=$source/build
[ -f "$linux/Verdanth.mex" ] || {
    echo "prefixes.sh: $linux/Verdanth.mex is not built; the preset linux builds it." >&2
    exit 1
}

managers_in() { # PREFIX
    VERDANTH_BACKEND=windows VERDANTH_WINEPREFIX=$1 "$octave" --quiet --norc --no-history \
        --eval "addpath('$source/toolbox', '$linux'); printf('%s\n', capeOpenManagerList(){:})"
}

half=/usr/local/lib/verdanth-wine # as scripts/wine.sh has it
[ ! -d $half ] || export WINEDLLPATH=$half
wine=/usr/lib/wine/wine64
[ -x $wine ] || wine=$(command -v wine64 || command -v wine)

regsvr32_in() { # PREFIX FOLDER_OF_SYSTEM ARGUMENT...
    prefix=$1
    program="C:\\windows\\$2\\regsvr32.exe"
    shift 2
    WINEPREFIX=$prefix WINEDEBUG=-all setarch -R "$wine" "$program" /s "$@" </dev/null >/dev/null 2>&1
    WINEPREFIX=$prefix wineserver -w # until then the registry is in its memory
}

register_in() { # PREFIX FOLDER_OF_SYSTEM LIBRARY BUILD
    [ -n "$(find "$1/.$3" -newer "$build/$4/$3" 2>/dev/null)" ] || {
        regsvr32_in "$1" "$2" "Z:$build/$4/$3"
        touch "$1/.$3"
    }
}

# Octave makes one; the others are copies of it, which spares them half a minute.
managers_in "$build/wine-octave"
for copy in "$build/wine-octave-32" "$build/wine-octave-ill"; do
    [ -d "$copy" ] || {
        WINEPREFIX=$build/wine-octave wineserver -k || true # until then the registry is in its memory
        rm -rf "$copy.made"
        "$source/scripts/wine.sh" --copy "$build/wine-octave" "$copy.made"
        mv "$copy.made" "$copy"
    }
done
# With those for 64 bits the tests of the relay would do without it.
only64='windows-x64.*VerdanthReference\.dll'
if grep -q "$only64" "$build/wine-octave-32/system.reg"; then
    regsvr32_in "$build/wine-octave-32" system32 /u "Z:$build/windows-x64/VerdanthReference.dll"
    ! grep "$only64" "$build/wine-octave-32/system.reg" || exit 1
fi

# The same files but for the packages.
files=$build/windows-octave-32
mkdir -p "$files"
for file in VerdanthHost64.exe Verdanth.mexw64 libmx.dll libmex.dll; do
    cp -u "$build/windows-x64/$file" "$files"
done
for file in Verdanth6432Relay.exe CapeOpen11.tlb; do cp -u "$build/windows-x86/$file" "$files"; done
export VERDANTH_WINDOWS_FILES="$files"
managers_in "$build/wine-octave-32"
register_in "$build/wine-octave-32" syswow64 VerdanthReference.dll windows-x86
managers_in "$build/wine-octave-32"

unset VERDANTH_WINDOWS_FILES
managers_in "$build/wine-octave-ill"
register_in "$build/wine-octave-ill" system32 ill_packages.dll windows-x64
managers_in "$build/wine-octave-ill"

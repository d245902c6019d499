#!/bin/sh
# Checks that a MEX file loads wherever MATLAB and Windows are: it exports mexFunction and nothing else, and needs no
# DLL but MATLAB's two and those that every Windows has.
#
#   scripts/check_mex.sh OBJDUMP FILE.mexw64
set -eu
headers=$("$1" -p "$2")

exports=$(printf '%s\n' "$headers" | awk '
    /^\[Ordinal\/Name Pointer\] Table/ { names = 1; next }
    names && !/\[/ { exit }
    names { print $NF }')
imports=$(printf '%s\n' "$headers" | awk '/DLL Name: / { print tolower($3) }')

status=0
[ "$exports" = mexFunction ] || {
    printf 'It should export mexFunction alone, and exports:\n%s\n' "$exports"
    status=1
}
for wanted in libmx.dll libmex.dll; do
    printf '%s\n' "$imports" | grep -qx "$wanted" || {
        echo "It should import from $wanted, and does not."
        status=1
    }
done
for dll in $imports; do
    case $dll in
    libmx.dll | libmex.dll) ;;
    advapi32.dll | gdi32.dll | kernel32.dll | msvcrt.dll | ole32.dll | oleaut32.dll | shell32.dll | user32.dll | version.dll) ;;
    *)
        echo "It needs $dll, which is neither MATLAB's nor Windows' own."
        status=1
        ;;
    esac
done
exit $status

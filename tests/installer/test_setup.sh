#!/bin/sh
# The setup program under Wine, from installing to the last trace.
#
#   tests/installer/test_setup.sh BUILD      the build folder of windows-x64
set -eu
export VERDANTH_WINE=second # the whole registry is compared: nothing else may change it
build=$(cd "$1" && pwd)
cd "$(dirname "$0")/../.."
root=$PWD
wine=$root/scripts/wine.sh
drive=$root/build/wine-$VERDANTH_WINE/drive_c
installed="$drive/Program Files/Verdanth"
work=$build/installer_test
rm -rf "$work"
mkdir -p "$work" "$drive/setup_test"

fail() {
    echo "test_setup.sh: $*" >&2
    exit 1
}
holds() { grep -qF "$2" "$1" || fail "\"$2\" is not in $1"; }
lacks() { if grep -qF "$2" "$1"; then fail "\"$2\" is in $1"; fi; }

# The registry, one line for each value with its key in front, without what Wine notes about its own windows. The 32-bit
# part of it is not written out a second time, which takes seconds; its classes are among the others.
registry() {
    for key in 'HKLM\Software' 'HKLM\Software\Wow6432Node'; do "$wine" reg query "$key"; done
    for hive in 'HKEY_LOCAL_MACHINE\Software\Classes' 'HKEY_LOCAL_MACHINE\Software\Microsoft\Windows' HKEY_CURRENT_USER; do
        "$wine" regedit /E 'C:\setup_test\export.reg' "$hive"
        iconv -f utf-16 -t utf-8 "$drive/setup_test/export.reg"
    done | awk '/^\[HKEY_CURRENT_USER\\(Software\\Wine|Control Panel)\\/ { key = ""; next } { sub(/\r$/, "") } /^\[/ { key = $0; print key; next } NF && key != "" { print key " " $0 }'
}
same() { diff "$1" "$2" >"$work/difference" || { head -n 40 "$work/difference" >&2; fail "$3"; }; }

# The uninstaller goes on in a copy of itself, which outlives it.
uninstall() {
    "$wine" 'C:\Program Files\Verdanth\uninstall.exe' /S
    tries=100
    while [ -e "$1" ]; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || fail "the uninstaller has not removed $1"
        sleep 0.1
    done
}

# A machine without the CAPE-OPEN type library and the library's own, whatever the test prefix has; it gets back what it
# had.
type_library='{4A5E2E81-C093-11D4-9F1B-0010A4D198C2}'
own_library='{5C1B7C0E-2D6F-4B9A-935E-7A40D16E2B58}'
restore() {
    for library in "$type_library" "$own_library"; do
        "$wine" reg delete "HKLM\\Software\\Classes\\TypeLib\\$library" /f >/dev/null 2>&1 || true
    done
    "$wine" regedit /S 'C:\setup_test\removed.reg' || echo "test_setup.sh: the registry could not be restored" >&2
    rm -rf "$drive/setup_test"
}
remove_type_libraries() {
    "$wine" regedit /E 'C:\setup_test\classes.reg' 'HKEY_LOCAL_MACHINE\Software\Classes'
    # The keys of the libraries and of their interfaces: once whole, to be put back, and once to be taken away.
    iconv -f utf-16 -t utf-8 "$drive/setup_test/classes.reg" | awk -v ids="$type_library $own_library" -v removed="$work/removed" -v removal="$work/removal" '
        function is_of_them(text) { return length(text) == 38 && index(ids, text) != 0 }
        { sub(/\r$/, "") }
        /^\[/ { key = substr($0, 2, length($0) - 2); texts[key] = $0; keys[++count] = key; next }
        key != "" { texts[key] = texts[key] "\n" $0 }
        is_of_them(substr($0, 4, 38)) && key ~ /\\Interface\\.*\\TypeLib$/ { ours[substr(key, 1, length(key) - 8)] }
        END {
            print "Windows Registry Editor Version 5.00\n" >removed
            print "Windows Registry Editor Version 5.00\n" >removal
            for (i = 1; i <= count; ++i) {
                key = keys[i]; top = key
                if (match(key, /\\(Interface|TypeLib)\\\{[^}]*\}/)) top = substr(key, 1, RSTART + RLENGTH - 1)
                if (!(top in ours) && !(top ~ /\\TypeLib\\\{[^}]*\}$/ && is_of_them(substr(top, length(top) - 37)))) continue
                print texts[key] >removed
                if (key == top) print "[-" key "]\n" >removal
            }
        }'
    for file in removed removal; do iconv -f utf-8 -t utf-16 "$work/$file" >"$drive/setup_test/$file.reg"; done
    trap restore EXIT
    trap 'exit 130' INT TERM HUP
    "$wine" regedit /S 'C:\setup_test\removal.reg'
}
[ ! -e "$installed" ] || uninstall "$installed" # an earlier run has failed
remove_type_libraries

for bits in x64 x86; do
    cmake --install "build/windows-$bits" --component windows --prefix "$work/Verdanth" >"$work/install.log" || fail "$(cat "$work/install.log")"
done
(cd toolbox && find . -name '*.m' -not -path './octave/*' | sort) >"$work/functions" # but for what Octave's package has
(cd "$work/Verdanth/toolbox" && find . -name '*.m' | sort) >"$work/found"
same "$work/functions" "$work/found" "other functions are shipped than there are"
(cd client/octave && find . -name '*.m' | sort) >"$work/functions"
(cd "$work/Verdanth/octave" && find . -type f | sort) >"$work/found"
same "$work/functions" "$work/found" "Octave's client is shipped in part, or with something else"
[ -f "$work/Verdanth/toolbox/PKG_ADD" ] || fail "Octave does not find its client"
scripts/make_setup.sh "$work/Verdanth" "$work/Verdanth-setup.exe"
scripts/make_setup.sh "$work/Verdanth" "$work/Verdanth-again.exe"
cmp "$work/Verdanth-setup.exe" "$work/Verdanth-again.exe" || fail "the same files give another setup program"
registry >"$work/before"
lacks "$work/before" "Verdanth Reference Packages"
lacks "$work/before" "$type_library"
lacks "$work/before" "$own_library"

echo "== everything =="
"$wine" "$work/Verdanth-setup.exe" /S /REFERENCE /TYPELIB || fail "the setup program gave $?"
(cd "$work/Verdanth" && find . -type f | sort) >"$work/staged"
(cd "$installed" && find . -type f ! -name uninstall.exe | sort) >"$work/found"
same "$work/staged" "$work/found" "other files are installed than staged"
(cd "$work/Verdanth" && find . -type f) | while read -r file; do cmp "$work/Verdanth/$file" "$installed/$file"; done
[ -f "$installed/uninstall.exe" ] || fail "there is no uninstaller"
registry >"$work/installed"
holds "$work/installed" '@="C:\\Program Files\\Verdanth\\reference\\x64\\VerdanthReference.dll"'
holds "$work/installed" '@="C:\\Program Files\\Verdanth\\reference\\x86\\VerdanthReference.dll"'
holds "$work/installed" 'C:\\Program Files\\Verdanth\\CapeOpen11.tlb'
holds "$work/installed" "TypeLib\\$own_library\\1.1"
holds "$work/installed" 'C:\\Program Files\\Verdanth\\Verdanth6432Relay.exe'
holds "$work/installed" "\"DisplayVersion\"=\"$(scripts/version.sh)\""

echo "== a program that uses it =="
mkdir "$work/host"
for file in natural_gas_demo.exe installed_client.exe installed_help.exe holder.exe libmx.dll libmex.dll; do cp "$build/$file" "$work/host/"; done
export WINEPATH='C:\Program Files\Verdanth\toolbox'
"$wine" "$work/host/natural_gas_demo.exe" >"$work/demo.txt" || fail "the demo gave $?"
holds "$work/demo.txt" "Verdanth.DLL version: $(scripts/version.sh)"
shown_in_readme=$(sed -n 's/^ *\(of the total .*\)/\1/p' README.md | grep .)
holds "$work/demo.txt" "$shown_in_readme"
cp "$build/help_viewer.dll" "$work/host/hhctrl.ocx"
WINEDLLOVERRIDES=hhctrl.ocx=n "$wine" "$work/host/installed_help.exe" >"$work/help.txt" || fail "the help file is not found: $?"
holds "$work/help.txt" 'C:\Program Files\Verdanth\Verdanth.chm'

echo "== a program of another system =="
WINEPATH='' python3 -B tests/isolation/client.py "$wine" 'C:\Program Files\Verdanth\host\VerdanthHost64.exe' >"$work/version.txt" ||
    fail "the host process gave $?"
holds "$work/version.txt" "Verdanth.DLL version: $(scripts/version.sh)"

echo "== MATLAB with the library in another process =="
WINEPATH='C:\Program Files\Verdanth\isolated' "$wine" "$work/host/installed_client.exe" >"$work/isolated.txt" ||
    fail "the client gave $?"
holds "$work/isolated.txt" "Verdanth.DLL version: $(scripts/version.sh)"
holds "$work/isolated.txt" 'isolated: C:\Program Files\Verdanth\host\VerdanthHost64.exe'

echo "== a package that 32-bit programs alone can load =="
"$wine" regsvr32 /s /u 'C:\Program Files\Verdanth\reference\x64\VerdanthReference.dll'
"$wine" "$work/host/natural_gas_demo.exe" >"$work/relayed.txt" || fail "through the relay, the demo gave $?"
same "$work/demo.txt" "$work/relayed.txt" "through the relay the numbers are others"
tries=100
while pgrep -f 'Program Files.Verdanth.Verdanth6432Relay.exe' >/dev/null; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || fail "the relay does not end"
    sleep 0.1
done
unset WINEPATH

echo "== nothing is taken away while somebody uses it =="
for used in toolbox/Verdanth.mexw64 isolated/VerdanthClient.mexw64; do
    : >"$drive/setup_test/hold"
    WINEPATH="C:\\Program Files\\Verdanth\\${used%/*}" "$wine" "$work/host/holder.exe" "${used#*/}" 'C:\setup_test\hold' </dev/null >/dev/null 2>&1 &
    holder=$!
    sleep 1
    "$wine" 'C:\Program Files\Verdanth\uninstall.exe' /S
    sleep 1
    while pgrep -f '~nsu.*Un.*exe' >/dev/null; do sleep 0.1; done
    (cd "$installed" && find . -type f ! -name uninstall.exe | sort) >"$work/found"
    same "$work/staged" "$work/found" "the uninstaller removes files of a library in use, $used"
    rm "$drive/setup_test/hold"
    wait $holder || fail "$used could not be held: $?"
done

echo "== and away =="
uninstall "$installed"
registry >"$work/after"
same "$work/before" "$work/after" "the uninstaller leaves something in the registry"

echo "== the least, with a file of the user's, and with somebody else's type library =="
cp "$work/Verdanth/CapeOpen11.tlb" "$drive/setup_test/other.tlb"
"$wine" reg add "HKLM\\Software\\Classes\\TypeLib\\$type_library\\1.1\\0\\win32" /ve /d 'C:\setup_test\other.tlb' /f >/dev/null
registry >"$work/before"
"$wine" "$work/Verdanth-setup.exe" /S /TYPELIB /D=C:\\setup_test\\a folder || fail "the setup program gave $?"
registry >"$work/installed"
lacks "$work/installed" "Verdanth Reference Packages"
lacks "$work/installed" "CapeOpen11.tlb"
: >"$drive/setup_test/a folder/toolbox/mine.m"
"$wine" 'C:\setup_test\a folder\uninstall.exe' /S
tries=100
while [ -e "$drive/setup_test/a folder/uninstall.exe" ] && [ $tries -gt 0 ]; do
    tries=$((tries - 1))
    sleep 0.1
done
[ "$(cd "$drive/setup_test/a folder" && find . -type f)" = ./toolbox/mine.m ] || fail "the user's file is not all that is left"
registry >"$work/after"
same "$work/before" "$work/after" "the uninstaller changes what it did not install"
echo "All is as it should be."

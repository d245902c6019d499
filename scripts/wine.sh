#!/bin/sh
# Runs Windows programs under Wine in a prefix of the project's own, build/wine. What works on the registry can be run
# beside others that do with VERDANTH_WINE=second, which has a copy of the prefix to itself, build/wine-second.
#
#   scripts/wine.sh PROGRAM.exe [ARGUMENT...]   runs it; makes the prefix and starts the server first if need be
#   scripts/wine.sh --apart PROGRAM.exe [ARGUMENT...]
#                                               runs it in a copy of the prefix with a server of its own, both of which
#                                               then go: for what spoils the session for others
#   scripts/wine.sh --copy FROM TO              makes a copy of the prefix FROM, in which nothing runs
#   scripts/wine.sh --up                        only makes ready
#   scripts/wine.sh --down                      stops the servers in which no program is running
#   scripts/wine.sh --kill                      stops the servers and whatever runs in the prefixes
#
# With the server and Wine's services already up, a test process starts in 20 ms; without, each takes seconds. So the
# server outlives the programs for a while, and ends by itself when nobody asks for it any more.
set -eu

# Every Windows program needs the page at 0x7ffe0000, and Debian's Wine comes without the preloader that keeps it free.
# Linux puts the heap of Wine's loader at random between 0x7d000000 and 0xbd000000: in one start of some 8,000 it takes
# that page, and the program ends at once, without a word. Not at random, the heap begins right behind the loader, far
# enough below. What a program starts inherits this. Where it is forbidden, as in some containers, a test tells.
{ read -r personality </proc/self/personality; } 2>/dev/null || personality=40000
if [ $((0x$personality & 0x40000)) -eq 0 ] && setarch -R true 2>/dev/null; then
    exec setarch -R "$0" "$@"
fi

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build
first=$build/wine
second=$build/wine-second
case ${VERDANTH_WINE-} in
"") prefix=$first ;;
second) prefix=$second ;;
*)
    echo "wine.sh: VERDANTH_WINE is second, or nothing" >&2
    exit 2
    ;;
esac
lock=$prefix.lock
ready=$prefix/.ready
window=$prefix/.window
recipe=6        # raise when make_prefix changes: older prefixes are then made anew
idle_seconds=60
window_seconds=1800

export WINEPREFIX="$prefix"
# Of Wine's own messages only those on memory: why a program could not begin.
export WINEDEBUG="${WINEDEBUG:--all,err+virtual}"
# The same code page and language everywhere, whoever runs the tests.
export LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY WINEARCH LANGUAGE

# The libraries of 32-bit programs, where scripts/bootstrap.sh had to put them beside the installed Wine.
half=/usr/local/lib/verdanth-wine
[ ! -d $half ] || export WINEDLLPATH=$half

# Debian's loader for 64-bit programs, without its launcher's advice about 32-bit ones.
wine=/usr/lib/wine/wine64
[ -x $wine ] || wine=$(command -v wine64 || command -v wine) || {
    echo "wine.sh: Wine is not installed; scripts/bootstrap.sh installs it." >&2
    exit 127
}

is_ready() { [ -f "$ready" ] && [ "$(cat "$ready")" = "$recipe" ]; }
is_up() { wineserver -k0 2>/dev/null; }
has_window() { [ -f "$window" ] && kill -0 "$(cat "$window")" 2>/dev/null; }

# Everything that may stay behind gets no descriptor of ours: neither the lock nor a pipe that a test runner waits on.
quietly() { "$@" </dev/null >>"$build/wine.log" 2>&1 9>&-; }

make_prefix() {
    quietly wineserver -k || true
    rm -rf "$WINEPREFIX"
    : >"$build/wine.log"
    # No questions about Mono and Gecko, no entries in the user's menus.
    WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d" quietly "$wine" wineboot -i
    # As a prefix that the toolbox makes, but without a look for a display.
    sed 's/"x11,null"/"null"/' "$root/toolbox/octave/windows/prefix_setup.reg" >"$build/wine-setup.reg"
    quietly "$wine" regedit /S "$build/wine-setup.reg"
    quietly wineserver -k || true
    [ -f "$WINEPREFIX/system.reg" ] || {
        echo "wine.sh: the Wine prefix could not be made; see $build/wine.log" >&2
        return 1
    }
    # Wine leaves the 32-bit half out without a word when it does not find it.
    [ -f "$WINEPREFIX/drive_c/windows/syswow64/kernel32.dll" ] || {
        echo "wine.sh: this Wine has no 32-bit half; scripts/bootstrap.sh installs it." >&2
        return 1
    }
    drop_classes
    echo $recipe >"$ready"
}

# A copy with a registry of its own. The other files are the same ones: nothing of Wine writes to those.
copy_prefix() { # FROM TO
    mkdir -p "$2"
    cp -al "$1/." "$2"
    rm -f "$2"/*.reg "$2/.ready" "$2/.window" "$2/.verdanth"
    cp "$1"/*.reg "$2"
}

# Every test that lists the packages of the machine walks the classes of the prefix. Of Wine's own, 600 and more, only
# COM's and automation's are needed here, those that end as theirs do, and the ones that carry calls between processes.
drop_classes() {
    registry=$WINEPREFIX/system.reg
    # shellcheck disable=SC2016  # awk's dollars
    awk '
        /^\[/ { section = toupper($1) }
        FNR == NR { if (section ~ /PROXYSTUBCLSID32/ && /^@=/) kept[toupper(substr($0, 4, 38))]; next }
        /^\[/ {
            ours = match(section, /^\[SOFTWARE\\\\CLASSES\\\\(WOW6432NODE\\\\)?CLSID\\\\\{/)
            class = substr(section, RSTART + RLENGTH - 1, 38)
            drop = ours && class !~ /-0000-0000-C000-000000000046\}/ && !(class in kept)
        }
        !drop' "$registry" "$registry" >"$registry.new"
    mv "$registry.new" "$registry"
}

make_second_prefix() {
    quietly wineserver -k || true
    VERDANTH_WINE="" "$0" --up 9>&-
    rm -rf "$second"
    copy_prefix "$first" "$second"
    echo $recipe >"$ready"
}

bring_up() {
    if ! is_ready; then
        if [ "$prefix" = "$first" ]; then make_prefix; else make_second_prefix; fi
    fi
    if ! is_up; then
        quietly wineserver "-p$idle_seconds" || true
        # The first program brings up Wine's services, which inherit its output and would keep a pipe open.
        quietly "$wine" cmd /c exit || {
            echo "wine.sh: Wine's services did not start; see $build/wine.log" >&2
            return 1
        }
    fi
    # The first window of all starts a desktop, which inherits its program's output, too, and ends a second after the
    # last window. With a window that stays for a while, a test is not kept waiting for that.
    has_window || {
        # Replaces the shell that the & makes, which would hold a caller's pipe for as long as the window stays.
        (exec setsid timeout $window_seconds "$wine" notepad </dev/null >>"$build/wine.log" 2>&1 9>&-) &
        echo $! >"$window"
    }
}

# Programs run under a shared lock, so that nobody takes the server from under them.
ensure_up() {
    until flock -s 9 && is_ready && is_up && has_window; do
        flock -x 9
        bring_up
    done
}

mkdir -p "$build"
exec 9>>"$lock"

case ${1-} in
--up)
    ensure_up
    ;;
--copy)
    copy_prefix "$2" "$3"
    ;;
--down)
    for WINEPREFIX in "$first" "$second"; do
        exec 9>>"$WINEPREFIX.lock"
        if flock -n -x 9; then quietly wineserver -k || true; fi
    done
    ;;
--kill)
    for WINEPREFIX in "$first" "$second"; do quietly wineserver -k || true; done
    ;;
--apart)
    shift
    ensure_up
    for left in "$build"/wine-apart.*; do # by one that was killed
        kill -0 "${left##*.}" 2>/dev/null || rm -rf "$left"
    done
    apart=$build/wine-apart.$$
    trap 'quietly wineserver -k || true; rm -rf "$apart"' EXIT
    copy_prefix "$WINEPREFIX" "$apart"
    export WINEPREFIX="$apart"
    quietly wineserver "-p$idle_seconds" || true
    quietly "$wine" cmd /c exit
    "$wine" "$@" 9>&-
    ;;
"" | --*)
    echo "usage: wine.sh [--apart] PROGRAM [ARGUMENT...] | --copy FROM TO | --up | --down | --kill" >&2
    exit 2
    ;;
*)
    ensure_up
    # The shell stays, holding the lock; the program, and what it starts, do not get it. How a program ended is noted:
    # CTest tells no exit codes.
    "$wine" "$@" 9>&- || {
        status=$?
        echo "$(date +%T) $*: exit code $status" >>"$build/wine.log"
        exit $status
    }
    ;;
esac

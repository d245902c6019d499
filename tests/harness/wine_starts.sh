#!/bin/sh
# Sees that no start under Wine fails because of where the loader's heap lies.
#
#   tests/harness/wine_starts.sh SCRIPT PROGRAM.exe [ARGUMENT...]      PROGRAM is to succeed when SCRIPT runs it
set -eu

personality=$("$1" /bin/cat /proc/self/personality)
[ $((0x$personality & 0x40000)) -ne 0 ] || {
    echo "wine_starts.sh: $1 leaves the address of the heap to chance; is setarch -R forbidden here?" >&2
    exit 1
}

# At random, a heap of 40 MB takes the page at 0x7ffe0000 in one start of 26; right behind the loader it ends 7 MB below.
export GLIBC_TUNABLES=glibc.malloc.top_pad=41943040
for start in $(seq 50); do
    "$@" || {
        echo "wine_starts.sh: start $start ended with exit code $?" >&2
        exit 1
    }
done

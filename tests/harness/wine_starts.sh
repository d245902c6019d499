#!/bin/sh
# Sees that programs start under Wine wherever their loader's heap might have come to lie.
#
#   tests/harness/wine_starts.sh SCRIPT PROGRAM.exe [ARGUMENT...]      PROGRAM is to succeed when SCRIPT runs it
set -eu

personality=$("$1" /bin/cat /proc/self/personality)
[ $((0x$personality & 0x40000)) -ne 0 ] || {
    echo "wine_starts.sh: $1 leaves the heap's place to chance; is setarch -R forbidden here?" >&2
    exit 1
}

# With a heap of 40 MB one start in 26 would fail if the heap lay anywhere; begun where it has to, it ends 7 MB below the
# page that must be free.
export GLIBC_TUNABLES=glibc.malloc.top_pad=41943040
for start in $(seq 50); do
    "$@" || {
        echo "wine_starts.sh: start $start ended with exit code $?" >&2
        exit 1
    }
done

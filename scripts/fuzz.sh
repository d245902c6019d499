#!/bin/sh
# Looks for bytes that the targets of fuzz/ do not survive. What is found lies in build/linux-fuzz/findings/NAME/.
#
#   scripts/fuzz.sh [MINUTES]       MINUTES of processor time for each target, 1 unless it says otherwise; ends with a table
#   scripts/fuzz.sh --minimize      brings into fuzz/corpus/ the few files that reach what all of them reach
#   scripts/fuzz.sh --coverage      the lines that fuzz/corpus/ reaches, of each target in what it is there for; what they
#                                   are: build/linux-fuzz-coverage/coverage/NAME/index.html
#
# TARGETS='a b' limits each of these to some targets, JOBS=n to n at the same time instead of two.
set -eu
cd "$(dirname "$0")/.."

task=${1:-1}
preset=linux-fuzz
[ "$task" != --coverage ] || preset=linux-fuzz-coverage
build=build/$preset

cmake --preset $preset >/dev/null
targets=${TARGETS:-$(cut -d' ' -f1 "$build/fuzz/targets.txt")}
# shellcheck disable=SC2086,SC2046  # lists of words
cmake --build --preset $preset --target $(printf 'fuzz_%s ' $targets)

case $task in
--minimize)
    for name in $targets; do
        kept=$build/kept/$name
        rm -rf "$kept"
        mkdir -p "$kept" "$build/corpus/$name"
        # Features without how often: a file for each place that is reached, not for each number of times.
        "$build/fuzz_$name" -set_cover_merge=1 -use_counters=0 -timeout=120 "$kept" "fuzz/corpus/$name" "$build/corpus/$name" \
            2>"$build/kept/$name.log"
        [ -n "$(ls "$kept")" ] || {
            echo "$name: nothing was kept; see $build/kept/$name.log" >&2
            exit 1
        }
        rm -rf "fuzz/corpus/$name"
        cp -r "$kept" "fuzz/corpus/$name"
        echo "$name: $(find "fuzz/corpus/$name" -type f | wc -l) files, $(cat "fuzz/corpus/$name"/* | wc -c) bytes"
    done
    ;;
--coverage)
    export LLVM_PROFILE_FILE="$build/coverage/%p-%m.profraw"
    printf '%-18s %8s %8s %8s\n' target lines reached percent
    for name in $targets; do
        rm -rf "$build/coverage/$name" "$build"/coverage/*.profraw
        mkdir -p "$build/coverage/$name"
        "$build/fuzz_$name" "fuzz/corpus/$name" >"$build/coverage/$name.log" 2>&1 || {
            tail "$build/coverage/$name.log" >&2
            exit 1
        }
        llvm-profdata merge -o "$build/coverage/$name.profdata" "$build"/coverage/*.profraw
        set -- "$build/fuzz_$name" -instr-profile "$build/coverage/$name.profdata"
        for library in "$build"/*.so; do set -- "$@" -object "$library"; done
        # shellcheck disable=SC2046  # a list of paths
        set -- "$@" $(sed -n "s|^$name ||p" "$build/fuzz/targets.txt")
        # An inline function that two libraries have differently is not counted, which llvm-cov says each time.
        llvm-cov show "$@" -format html -output-dir "$build/coverage/$name" 2>>"$build/coverage/$name.log"
        llvm-cov export "$@" -summary-only 2>>"$build/coverage/$name.log" | python3 -c '
import json, sys
lines = json.load(sys.stdin)["data"][0]["totals"]["lines"]
print("%-18s %8d %8d %7.1f%%" % (sys.argv[1], lines["count"], lines["covered"], lines["percent"]))' "$name"
    done
    ;;
*)
    # shellcheck disable=SC2086  # a list of words
    exec scripts/run_fuzzers.py --minutes "$task" --jobs "${JOBS:-2}" "$build" $targets
    ;;
esac

#!/bin/sh
# Builds and runs the tests of the presets that are named, or of all four that count. At the end it says what failed and
# why; the last line is "N passed, N failed". Skipped tests are neither; whatever could not be run has failed.
#
#   scripts/test.sh [PRESET...]
set -u
cd "$(dirname "$0")/.." || exit 1
mkdir -p build

# One run at a time in one build folder; a second one waits for the first.
exec 8>build/test.lock
flock -n 8 || {
    echo "Another run of the tests is on in this folder; waiting for it to end."
    flock 8
}

trap 'scripts/wine.sh --down 2>/dev/null 8>&-' EXIT
trap 'exit 130' INT TERM HUP

passed=0
failed=0
skipped=0
failures= # each on a line of its own

# Counts as one failed test what is none: $1 is the preset, $2 says what happened.
fail_whole() {
    failed=$((failed + 1))
    failures="$failures$1: $2
"
}

# Counts what CTest wrote down about a preset's tests; $2 is CTest's exit code.
add_results() {
    results=build/$1/test-results.xml
    if [ ! -s "$results" ] || ! counted=$(scripts/count_tests.py "$results" "build/$1/test-cases"); then
        fail_whole "$1" "CTest left no results."
        return
    fi
    named=$(echo "$counted" | sed "\$d; s/^/$1: /")
    [ -z "$named" ] || failures="$failures$named
"
    read -r good bad left_out <<EOF
$(echo "$counted" | tail -n 1)
EOF
    if [ $((good + bad + left_out)) -eq 0 ]; then
        fail_whole "$1" "no test ran."
    elif [ "$2" -ne 0 ] && [ "$bad" -eq 0 ]; then
        fail_whole "$1" "CTest ended with $2 though no single test failed."
    fi
    echo "$1: $good of $((good + bad + left_out)) tests passed, $left_out skipped."
    passed=$((passed + good))
    failed=$((failed + bad))
    skipped=$((skipped + left_out))
}

run_preset() {
    echo "== $1 =="
    # Wine's first start takes half a minute, in which compilers can work.
    case $1 in windows-*) scripts/wine.sh --up >/dev/null 2>&1 8>&- & ;; esac
    if ! scripts/build.sh "$1"; then
        fail_whole "$1" "the build failed."
        return
    fi
    rm -rf "build/$1/test-results.xml" "build/$1/test-cases"
    ctest --preset "$1" --output-junit "$PWD/build/$1/test-results.xml" 8>&-
    add_results "$1" $?
}

[ $# -gt 0 ] || set -- linux-sanitize linux windows-x86 windows-x64
for preset in "$@"; do run_preset "$preset"; done

printf %s "$failures"
[ $skipped -eq 0 ] || echo "$skipped skipped"
echo "$passed passed, $failed failed"
[ $failed -eq 0 ] && [ $passed -gt 0 ]

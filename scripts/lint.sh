#!/bin/sh
# Everything that is kept at zero: layout, clang++'s warnings, clang-tidy, spelling, shellcheck, what MATLAB or Octave would
# refuse, and the rules of the house. clang-tidy passes over what has not changed since it was clean.
#
#   scripts/lint.sh [--all]        with --all clang-tidy looks at everything
set -u
cd "$(dirname "$0")/.." || exit 1
failures=

check() {
    echo "== $1 =="
    shift
    "$@" || failures="$failures $1"
}

layout() { git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror; }
clang_build() { cmake --preset linux-clang -DVERDANTH_BENCH=ON >/dev/null && cmake --build --preset linux-clang; }
tidy() { scripts/tidy.py "$@" build/linux-clang; }
functions_of_toolbox() { python3 -B tests/toolbox/lint/lint.py octave-cli; }
# Two files spell in another way, which others see: the native system's messages, and the description of a phase.
spelling() {
    git ls-files -z ':!*.png' ':!*.csv' ':!*.dat' ':!fuzz/corpus/*' ':!scripts/spelling.txt' ':!platform/native/system_messages.cpp' \
        ':!reference/package/phases.cpp' |
        xargs -0 codespell --builtin clear,en-GB_to_en-US --dictionary - --dictionary scripts/spelling.txt \
            --ignore-words-list inout,freez,freze
}
shell_scripts() { git ls-files -z '*.sh' .ci/run | xargs -0 shellcheck; }

check "Layout" layout
check "clang++" clang_build
check "clang-tidy" tidy "$@"
check "Spelling" spelling
check "Shell scripts" shell_scripts
check "MATLAB and Octave functions" functions_of_toolbox
check "Includes" scripts/check_includes.sh
check "Calls" scripts/check_calls.sh build/linux-clang/objects

[ -z "$failures" ] || {
    echo "Not clean:$failures"
    exit 1
}
echo "Clean."

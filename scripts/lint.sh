#!/bin/sh
# Everything that is kept at zero: layout, clang++'s warnings, clang-tidy, shellcheck, what MATLAB or Octave would refuse,
# and the rules of the house. clang-tidy passes over what has not changed since it was clean.
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
shell_scripts() { git ls-files -z '*.sh' .ci/run | xargs -0 shellcheck; }

check "Layout" layout
check "clang++" clang_build
check "clang-tidy" tidy "$@"
check "Shell scripts" shell_scripts
check "MATLAB and Octave functions" functions_of_toolbox
check "Rules of the house" scripts/check_includes.sh

[ -z "$failures" ] || {
    echo "Not clean:$failures"
    exit 1
}
echo "Clean."

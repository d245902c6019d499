#!/bin/sh
# Installs what building and testing need and this machine has not got. Looks for each thing itself, so that a second
# run finds everything in place and touches neither the package manager nor the network.
#
#   scripts/bootstrap.sh [lint] [bench] [coverage]      the words add what only that work needs
set -u

missing=

# need PACKAGE CONDITION...: remembers the Debian package if the condition, a command, does not hold.
need() {
    package=$1
    shift
    "$@" >/dev/null 2>&1 || missing="$missing $package"
}

program() { command -v "$1"; }
any_of() {
    for candidate in "$@"; do command -v "$candidate" && return 0; done
    return 1
}

need make program make
need cmake program cmake
need ninja-build program ninja
need g++ program g++
need googletest test -f /usr/src/googletest/CMakeLists.txt
need g++-mingw-w64-x86-64-posix program x86_64-w64-mingw32-g++-posix
need g++-mingw-w64-i686-posix program i686-w64-mingw32-g++-posix
need wine64 any_of /usr/lib/wine/wine64 wine64 wine
need wine program wineserver
need util-linux program flock
need octave program octave-cli
need octave-dev program mkoctfile

for work in "$@"; do
    case $work in
    bench)
        need libbenchmark-dev test -f /usr/include/benchmark/benchmark.h
        ;;
    coverage)
        need gcovr program gcovr
        ;;
    lint)
        need git program git
        need clang program clang++
        need clang-format program clang-format
        need clang-tidy program clang-tidy
        need clang-tidy program run-clang-tidy
        need shellcheck program shellcheck
        ;;
    *)
        echo "bootstrap: unknown word '$work' (lint, bench and coverage are known)." >&2
        exit 2
        ;;
    esac
done

[ -n "$missing" ] || exit 0

echo "To be installed:$missing"
if ! command -v apt-get >/dev/null; then
    echo "bootstrap: this is not Debian or Ubuntu; please install the programs behind these Debian packages:$missing" >&2
    exit 1
fi
if [ "$(id -u)" -eq 0 ]; then
    as_root="env"
elif command -v sudo >/dev/null; then
    as_root="sudo env"
else
    echo "bootstrap: root is needed once; please run as root: apt-get install --no-install-recommends$missing" >&2
    exit 1
fi

# An index that is only partly refreshed is good enough if the packages can be got, so the installation decides.
$as_root DEBIAN_FRONTEND=noninteractive apt-get update -q || true
# shellcheck disable=SC2086  # both are lists of words
if ! $as_root DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing; then
    echo "bootstrap: installing failed; wanted were:$missing" >&2
    exit 1
fi

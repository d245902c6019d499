#!/bin/sh
# Builds what the tests of a preset need.
#
#   scripts/build.sh PRESET
cd "$(dirname "$0")/.." || exit 1

build() { cmake --preset "$1" && cmake --build --preset "$@"; }

# What the 64-bit tests use, too: the relay and the 32-bit package; and of the native build the library to compare answers
# with, and what Octave loads.
[ "$1" != windows-x64 ] || { build windows-x86 && build linux --target native_host verdanth_mex; } || exit

build "$1"

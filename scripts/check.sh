#!/bin/sh
# What is run before each commit: the native build with sanitizers, and its tests. Ends with the line
# "N passed, N failed"; the tests that failed stand above it.
cd "$(dirname "$0")/.." || exit 1
exec scripts/test.sh linux-sanitize

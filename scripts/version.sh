#!/bin/sh
# Prints the version of the project, as CMake knows it.
set -eu
sed -n 's/^project(Verdanth VERSION \([0-9.]*\).*/\1/p' "$(dirname "$0")/../CMakeLists.txt" | grep .

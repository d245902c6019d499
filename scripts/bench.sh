#!/bin/sh
# Builds and runs the measurements in bench/, as a native release build.
set -eu
cd "$(dirname "$0")/.."

names=$(for source in bench/*.cpp; do [ ! -f "$source" ] || basename "$source" .cpp; done)
[ -n "$names" ] || {
    echo "There is no measurement in bench/ yet." >&2
    exit 1
}

cmake --preset linux -DVERDANTH_BENCH=ON
cmake --build --preset linux --target bench
for name in $names; do
    echo "== $name =="
    "build/linux/$name"
done

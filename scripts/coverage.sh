#!/bin/sh
# Which lines of the library's six folders the native tests reach. Fails when they are fewer than they have to be; the
# report, with every line left over, is build/linux-coverage/coverage/index.html.
set -eu
cd "$(dirname "$0")/.."

least=97 # percent of the lines

build=build/linux-coverage
cmake --preset linux-coverage
cmake --build --preset linux-coverage
find $build -name '*.gcda' -delete # what an earlier run counted
ctest --preset linux-coverage

mkdir -p $build/coverage
gcovr --root . --object-directory $build \
    --filter cape/ --filter properties/ --filter packages/ --filter material/ --filter commands/ --filter gateway/ \
    --fail-under-line $least --txt --html-details $build/coverage/index.html

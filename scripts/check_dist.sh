#!/bin/sh
# Makes sure that what ships has the same bytes whenever it is made: packs it, compiles and links the Windows binaries
# once more in a fresh copy of the sources, packs that, and compares.
set -eu
cd "$(dirname "$0")/.."
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH

mkdir -p build
copy=$(mktemp -d "$PWD/build/check_dist.XXXXXX")
trap 'rm -rf "$copy"' EXIT
scripts/dist.sh "$copy/first" >/dev/null
mkdir "$copy/sources"
git ls-files -z | xargs -0 cp --parents -t "$copy/sources"
"$copy/sources/scripts/dist.sh" "$copy/second" >/dev/null

status=0
for file in "$copy"/first/*; do
    if cmp "$file" "$copy/second/$(basename "$file")"; then
        echo "the same: $(basename "$file")"
    else
        status=1
    fi
done
exit $status

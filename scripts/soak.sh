#!/bin/sh
# A million mixed calls in one process, natively and as a Windows program under Wine, with both ways in which an error
# leaves a call: memory, handles and arrays must stay as they are.
#
#   scripts/soak.sh [CALLS]
set -u
cd "$(dirname "$0")/.." || exit 1

SOAK_CALLS=${1:-1000000}
export SOAK_CALLS
failed=0

for preset in linux windows-x64; do
    if ! cmake --preset $preset >/dev/null || ! cmake --build --preset $preset --target soak; then
        echo "soak: the build of $preset failed."
        exit 1
    fi
done
trap 'scripts/wine.sh --down 2>/dev/null' EXIT
for leave in unwind jump; do
    export VERDANTH_TEST_LEAVE=$leave
    echo "== native, $leave =="
    build/linux/soak --gtest_brief=1 || failed=1
    echo "== Wine, $leave =="
    scripts/wine.sh build/windows-x64/soak.exe --gtest_brief=1 || failed=1
done
[ $failed -eq 0 ] && echo "soak: everything stayed as it was." || echo "soak: something grew or failed, see above."
exit $failed

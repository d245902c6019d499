#!/bin/sh
# The Octave package, from packing to a flash: packed twice it has the same bytes, `pkg install` takes it, and a fresh
# Octave that loads it calculates. Nothing is written outside of a folder of its own.
#
#   tests/toolbox/test_octave_package.sh OCTAVE
set -eu
octave=$1
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "test_octave_package.sh: $*" >&2
    exit 1
}

mkdir "$work/first" "$work/second" "$work/home" "$work/empty"
scripts/dist_octave.sh "$work/first"
scripts/dist_octave.sh "$work/second"
package=$(echo "$work"/first/*.tar.gz)
cmp "$package" "$work/second/$(basename "$package")"

export HOME="$work/home"
in_octave() { (cd "$work/empty" && "$octave" --quiet --norc --no-history --eval "$1") >"$work/said" 2>&1 || fail "$(cat "$work/said")"; }
says() { grep -q "$1" "$work/said" || fail "\"$1\" is not in: $(cat "$work/said")"; }
where="pkg('prefix', '$work/packages', '$work/packages'); pkg('local_list', '$work/list');"

in_octave "$where pkg install $package"
! grep "help text" "$work/said" || fail "Octave finds no help text"
in_octave "$where pkg load verdanth
    disp(which('Verdanth'));
    p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
    p.flash([0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0], 'Temperature', 220, 'Pressure', 40e5)
    description = pkg('describe', 'verdanth');
    groups = cellfun(@(group) group.functions, description{1}.provides, 'UniformOutput', false);
    names = [groups{:}];
    disp(get_first_help_sentence('Verdanth'));
    absent = names(cellfun(@(name) exist(name) ~= 2, names));
    printf('more than thirty: %d, not there: %s.\n', numel(names) > 30, strjoin(absent, ' '));"
says "$work/packages/verdanth-$(scripts/version.sh)/Verdanth.mex"
says 'The library that the functions'
says 'fraction  *0.791127  *0.208873'
says 'more than thirty: 1, not there: capeopen.Package\.' # of a class in a package Octave does not tell
in_octave "$where pkg uninstall verdanth"
[ -z "$(find "$work/packages" -name '*.mex')" ] || fail "the package is still there"

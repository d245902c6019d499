#!/bin/sh
# Builds the library with the reference packages. Runs the demo program, then the quick start of the toolbox in Octave,
# and saves the figure that this makes; and a package for Windows, where that is built.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build
{
    cmake --preset linux
    cmake --build --preset linux --target natural_gas_demo verdanth_mex
} >build/demo.log 2>&1 || {
    cat build/demo.log
    exit 1
}
build/linux/natural_gas_demo

printf '\nThe same from Octave: toolbox/examples/quickStart.m\n\n'
octave-cli --quiet --norc --no-history demo/run_example.m toolbox build/linux quickStart build/quickStart.png
printf '\nIts figure is in build/quickStart.png.\n'

# The Windows library is built by the tests, which takes longer than a demo should.
if [ -f build/windows-x64/VerdanthHost64.exe ] && [ -f build/windows-x64/VerdanthReference.dll ]; then
    printf '\nA package for Windows, under Wine: capeOpenBackend\n\n'
    octave-cli --quiet --norc --no-history demo/windows_package.m toolbox build/linux "$PWD/build/wine-demo"
else
    printf '\nAfter make test, make demo shows a package for Windows in Octave, too.\n'
fi

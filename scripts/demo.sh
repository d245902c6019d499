#!/bin/sh
# Builds the demo with the library and the reference packages, and runs it.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build
{
    cmake --preset linux
    cmake --build --preset linux --target natural_gas_demo
} >build/demo.log 2>&1 || {
    cat build/demo.log
    exit 1
}
exec build/linux/natural_gas_demo

#!/bin/sh
# Builds everything for debugging and runs all tests, without a display. Installs the packages that are
# missing; can be run again at any time.
set -eu
cd "$(dirname "$(readlink -f "$0")")"
unset DISPLAY WAYLAND_DISPLAY

packaging/install-packages.sh build test
cmake --preset debug --log-level=WARNING -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --build --preset debug
ctest --test-dir build/debug --output-on-failure --no-tests=error -j "$(nproc)"

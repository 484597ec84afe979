#!/bin/sh
# Builds the programs, prints the example batch into build/forms.pdf and, where there is a display,
# opens the desktop program. Installs the packages that are missing; can be run again at any time.
set -eu
cd "$(dirname "$(readlink -f "$0")")"

packaging/install-packages.sh build
cmake --preset release --log-level=WARNING -DQFR_BUILD_TESTS=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --build --preset release

build/release/bin/qfrbatch print example/example.qff -o build/forms.pdf
echo "The forms of the example batch are in $PWD/build/forms.pdf"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "Opening the program; its file dialogs start in the example batch."
    exec build/release/bin/qfrforms
fi
echo "There is no display, so the program is not opened: $PWD/build/release/bin/qfrforms"

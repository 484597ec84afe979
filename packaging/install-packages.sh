#!/bin/sh
# Installs what is missing of the Debian packages that a task needs: "build" the programs, "test" them,
# "check" the sources, make the "package", build for "windows", or the "windows-libraries" for that, measure
# with "bench", test the server "image". Asks for nothing, and needs neither root nor the network when
# nothing is missing.
#
#     packaging/install-packages.sh build [test] [check] [package] [windows] [windows-libraries] [bench]
#         [image]
set -eu

packagesFor() {
    case "$1" in
        build)
            echo cmake ninja-build g++ ccache qt6-base-dev libcups2-dev libqpdf-dev zlib1g-dev \
                libharfbuzz-dev libfontconfig-dev pkgconf libchm-dev libcli11-dev nlohmann-json3-dev \
                fp-utils fonts-dejavu-core fonts-liberation ;;
        test)
            echo libgtest-dev libgmock-dev poppler-utils qpdf cups printer-driver-cups-pdf xvfb \
                openbox dbus at-spi2-core python3-pyatspi imagemagick parallel xclip ;;
        check) echo git clang clang-format clang-tidy libclang-rt-14-dev ;;
        package)
            echo dpkg-dev file fakeroot lintian desktop-file-utils appstream shared-mime-info \
                libglib2.0-bin man-db poppler-utils ;;
        windows)
            packagesFor windows-libraries
            # For their licences, those of what is shipped.
            echo libqpdf-dev libharfbuzz-dev libchm-dev libjpeg62-turbo fonts-liberation
            echo googletest wine nsis imagemagick openbox xvfb xauth xdotool poppler-utils ;;
        windows-libraries)
            echo cmake ninja-build g++-mingw-w64-x86-64-posix libz-mingw-w64-dev qt6-base-dev \
                qt6-base-dev-tools dpkg-dev ;;
        bench) echo libbenchmark-dev libcairo2-dev ;;
        image) echo debootstrap ;;
        *)
            echo "$0: no such task: $1" >&2
            exit 2
            ;;
    esac
}

missing=
for task in "$@"; do
    packages=$(packagesFor "$task")
    for package in $packages; do
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$state" = installed ] || missing="$missing $package"
    done
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
    asRoot=
elif command -v sudo >/dev/null; then
    asRoot=sudo
else
    echo "These packages are missing, and installing them needs root or sudo. As root, run" >&2
    echo "    apt-get install$missing" >&2
    exit 1
fi

echo "Installing$missing"
# Package lists that cannot be renewed may still do.
$asRoot apt-get update -qq || true
# shellcheck disable=SC2086 # one word a package
if ! $asRoot env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends \
    $missing; then
    echo "The packages could not be installed:$missing" >&2
    exit 1
fi

#!/bin/sh
# Puts the libraries that the build for Windows needs into build/windows-libraries: cross-compiled from Debian's
# source packages, each version as it stands in the list below. It can be run again: a library that is there is
# left alone, one that was interrupted goes on. It takes about half an hour on two processors, most of it for Qt.
#
# An archive with the result for the same list, made on another machine, saves the wait:
# ../shared/windows-libraries.tar.xz beside the repository, or what QFR_WINDOWS_LIBRARIES names.
#
#     packaging/windows/build-libraries.sh            all of them
#     packaging/windows/build-libraries.sh fetch      their sources only
#     packaging/windows/build-libraries.sh LIBRARY    that one, of source
set -eu
repository=$(dirname "$(readlink -f "$0")")/../..
cd "$repository"
repository=$PWD
prepared=${QFR_WINDOWS_LIBRARIES:-../shared/windows-libraries.tar.xz}
result=$repository/build/windows-libraries
work=$repository/build/windows-sources
system=/usr/x86_64-w64-mingw32
# What this system has is nothing for the other one.
export PKG_CONFIG_LIBDIR="$result/lib/pkgconfig" PKG_CONFIG_PATH=

# Each library with its version in Debian 12 and what it is built with.
list() {
    cat <<'END'
  qt6-base 6.4.2+dfsg-10   -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake
                           -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
                           -DINPUT_opengl=no, and -DFEATURE_...=OFF for sql network dbus opengl opengl_dynamic dynamicgl
                           tabletevent vulkan concurrent xml icu system_zlib system_freetype system_png system_jpeg
                           system_pcre2 system_harfbuzz
  qpdf 11.3.0-1+deb12u1    static, native crypto, -DCMAKE_CXX_FLAGS="-include cstdint", zlib of libz-mingw-w64-dev
  libjpeg-turbo 2.1.5-2    static, WITH_SIMD=OFF WITH_TURBOJPEG=OFF
  harfbuzz 6.0.0+dfsg-3    static, HB_BUILD_SUBSET=ON, without freetype, glib, icu
  chmlib 0.40a-8           static
END
}
# In the order in which they need each other.
libraries="libjpeg-turbo qpdf harfbuzz chmlib qt6-base"

# One line a library, of a list as the one above that is read from standard input.
lines() {
    awk '/^  [a-z]/ { if (line) print line; line = "" }
         /^  / { line = line " " $0 }
         END { if (line) print line }' | sed -E 's/[[:space:]]+/ /g; s/^ //; s/ $//'
}
# lineOf LIBRARY
lineOf() { list | lines | grep "^$1 "; }
versionOf() { lineOf "$1" | cut -d ' ' -f 2; }
# isDone LIBRARY; the mark holds the line that the library was built by.
isDone() { [ "$(cat "$result/.done/$1" 2>/dev/null)" = "$(lineOf "$1")" ]; }
markDone() {
    mkdir -p "$result/.done"
    lineOf "$1" >"$result/.done/$1"
}

# Takes the archive if all that it names is in the list, with the same version and options.
takePrepared() {
    fresh=$work/prepared
    rm -rf "$fresh"
    mkdir -p "$fresh"
    tar -C "$fresh" -xf "$prepared" windows-libraries/README
    lines <"$fresh/windows-libraries/README" >"$fresh/offered"
    list | lines >"$fresh/wanted"
    if [ ! -s "$fresh/offered" ] || grep -Fxqv -f "$fresh/wanted" "$fresh/offered"; then
        echo "$prepared holds other versions or options than the list in $0, so it is not used:" >&2
        grep -Fxv -f "$fresh/wanted" "$fresh/offered" >&2 || true
        return 1
    fi
    echo "Unpacking $prepared"
    tar -C "$fresh" -xf "$prepared"
    rm -rf "$result"
    mv "$fresh/windows-libraries" "$result"
    while read -r library rest; do
        markDone "$library"
    done <"$fresh/offered"
    rm -rf "$fresh"
}

# apt PROGRAM ARGUMENTS...: apt with lists of its own, of the sources that belong to the system's packages.
apt() {
    program=$1
    shift
    "$program" -o "Dir::Etc::SourceList=$work/apt/sources.list" -o Dir::Etc::SourceParts=- \
        -o "Dir::State::Lists=$work/apt/lists" -o "Dir::Cache=$work/apt/cache" -o APT::Sandbox::User= "$@"
}
updateApt() {
    [ ! -e "$work/apt/updated" ] || return 0
    mkdir -p "$work/apt/lists/partial" "$work/apt/cache/archives/partial"
    key=/usr/share/keyrings/debian-archive-keyring.gpg
    apt-get indextargets --format "deb-src [signed-by=$key] \$(REPO_URI) \$(RELEASE) \$(COMPONENT)" \
        'Created-By: Packages' 'Origin: Debian' 2>/dev/null | sort -u >"$work/apt/sources.list" || true
    if [ ! -s "$work/apt/sources.list" ]; then
        for suite in debian:bookworm debian:bookworm-updates debian-security:bookworm-security; do
            echo "deb-src [signed-by=$key] http://deb.debian.org/${suite%%:*} ${suite#*:} main"
        done >"$work/apt/sources.list"
    fi
    apt apt-get update -qq
    touch "$work/apt/updated"
}

# fetch LIBRARY: its source, checked by apt, into $work/LIBRARY/source.
fetch() {
    [ ! -d "$work/$1/source" ] || return 0
    updateApt
    wanted=$(versionOf "$1")
    version=$(apt apt-cache showsrc --only-source "$1" | sed -n 's/^Version: //p' | sort -u |
        grep -Ex "([0-9]+:)?$(echo "$wanted" | sed 's/[.+]/[&]/g')") || {
        echo "Debian has no source of $1 $wanted any more. It has" >&2
        apt apt-cache showsrc --only-source "$1" | sed -n 's/^Version: /    /p' | sort -u >&2
        exit 1
    }
    echo "Fetching $1 $version"
    mkdir -p "$work/$1"
    (
        cd "$work/$1"
        apt apt-get source -qq --only-source --download-only "$1=$version"
        rm -rf unpacked
        dpkg-source --no-check -x ./*.dsc unpacked >unpack.log
        mv unpacked source
    )
}

# configure LIBRARY OPTIONS...
configure() {
    library=$1
    shift
    cmake -S "$work/$library/source" -B "$work/$library/build" -G Ninja --log-level=WARNING -Wno-dev \
        --toolchain "$repository/cmake/mingw-w64.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$result" -DQFR_WINE=OFF "$@" >"$work/$library/configure.log" 2>&1 || {
        tail -n 40 "$work/$library/configure.log" >&2
        exit 1
    }
}
# make LIBRARY [TARGETS...]
make() {
    library=$1
    shift
    cmake --build "$work/$library/build" ${1+--target "$@"} >"$work/$library/build.log" 2>&1 || {
        tail -n 40 "$work/$library/build.log" >&2
        exit 1
    }
}

build_libjpeg_turbo() {
    configure libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_SIMD=OFF -DWITH_TURBOJPEG=OFF
    make libjpeg-turbo install
}

# From pkg-config it would take names of libraries only, and the programs would not find them.
build_qpdf() {
    configure qpdf -DBUILD_SHARED_LIBS=OFF -DBUILD_DOC=OFF -DUSE_IMPLICIT_CRYPTO=OFF \
        -DPKG_CONFIG_EXECUTABLE=false \
        -DREQUIRE_CRYPTO_NATIVE=ON -DCMAKE_CXX_FLAGS="-include cstdint" \
        -DZLIB_H_PATH="$system/include" -DZLIB_LIB_PATH="$system/lib/libz.a" \
        -DLIBJPEG_H_PATH="$result/include" -DLIBJPEG_LIB_PATH="$result/lib/libjpeg.a"
    make qpdf libqpdf
    # What CMake finds it by belongs to no component. The programs are not built.
    for component in dev Unspecified; do
        cmake --install "$work/qpdf/build" --component "$component" >/dev/null
    done
}

build_harfbuzz() {
    configure harfbuzz -DBUILD_SHARED_LIBS=OFF -DHB_BUILD_SUBSET=ON -DHB_HAVE_FREETYPE=OFF \
        -DHB_HAVE_GLIB=OFF -DHB_HAVE_ICU=OFF
    make harfbuzz install
}

# Two sources, and no project for CMake. It would lock out others who read the help of the same installation.
build_chmlib() {
    mkdir -p "$work/chmlib/build" "$result/include" "$result/lib"
    sed -i '/CreateFileA/,/OPEN_EXISTING/s/^ *0,$/FILE_SHARE_READ,/' "$work/chmlib/source/src/chm_lib.c"
    for source in chm_lib lzx; do
        x86_64-w64-mingw32-gcc-posix -O2 -DWIN32 -Dffs=__builtin_ffs -c \
            "$work/chmlib/source/src/$source.c" -o "$work/chmlib/build/$source.o"
    done
    rm -f "$result/lib/libchm.a"
    x86_64-w64-mingw32-ar rcs "$result/lib/libchm.a" "$work/chmlib/build/chm_lib.o" \
        "$work/chmlib/build/lzx.o"
    cp "$work/chmlib/source/src/chm_lib.h" "$result/include"
}

# Its options stand in the list.
configure_qt6_base() {
    line=$(lineOf qt6-base)
    set -- $(echo "$line" | sed 's/, and .*//; s/^[^ ]* [^ ]* //')
    for feature in ${line#* for }; do
        set -- "$@" "-DFEATURE_$feature=OFF"
    done
    configure qt6-base "$@"
}
build_qt6_base() {
    configure_qt6_base
    make qt6-base
    make qt6-base install
}

# build LIBRARY
build() {
    fetch "$1"
    echo "Building $1 $(versionOf "$1") ($(date +%T))"
    "build_$(echo "$1" | tr - _)"
    markDone "$1"
}

packaging/install-packages.sh windows-libraries
mkdir -p "$work"
if [ "${1-}" = fetch ]; then
    for library in $libraries; do
        fetch "$library"
    done
    exit
fi
if [ $# -gt 0 ]; then
    build "$1"
    exit
fi

missing=
for library in $libraries; do
    isDone "$library" || missing="$missing $library"
done
if [ "$missing" = " $libraries" ] && [ -e "$prepared" ]; then
    takePrepared || true
fi
for library in $libraries; do
    isDone "$library" || build "$library"
done
# Packed as it is (tar -C build -cJf windows-libraries.tar.xz windows-libraries), it saves others the wait.
{
    echo "Libraries for building QFR Forms for 64-bit Windows, of Debian's source packages:"
    echo
    list
} >"$result/README"

#!/bin/sh
# Builds the Debian packages and tests them: their form, and the programs as they install them in a clean
# directory tree, run by an ordinary user who may write nothing there; qfrbatch first alone. Installs the
# packages that are missing; can be run again at any time.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
unset DISPLAY WAYLAND_DISPLAY
export LC_ALL=C.UTF-8

fail() {
    echo "The packages fail: $*" >&2
    exit 1
}

packaging/install-packages.sh build package
cmake --preset release --log-level=WARNING -DQFR_BUILD_TESTS=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
cmake --build --preset release
rm -rf build/release/package
cpack --preset release
batchPackage=$(echo "$PWD"/build/release/package/qfrbatch_*.deb)
formsPackage=$(echo "$PWD"/build/release/package/qfrforms_*.deb)

lintian --allow-root --fail-on error,warning "$batchPackage" "$formsPackage"
version=$(dpkg-deb --field "$batchPackage" Version)
dpkg-deb --field "$formsPackage" Depends | grep -qF "qfrbatch (= $version)" ||
    fail "qfrforms does not depend on qfrbatch $version"
dpkg-deb --field "$batchPackage" Recommends | grep -q libcups2 || fail "qfrbatch does not recommend CUPS"
! dpkg-deb --field "$batchPackage" Depends | grep cups || fail "qfrbatch depends on CUPS"

# Files printed here and there have the same bytes.
export TZ=UTC0 SOURCE_DATE_EPOCH=1792000000
work=$(mktemp -d)
desktopProgram=
cleanUp() {
    [ -z "$desktopProgram" ] || kill "$desktopProgram" 2>/dev/null || true
    chmod -R u+w "$work"
    rm -rf "$work"
}
trap cleanUp EXIT
trap 'exit 1' HUP INT TERM
tree=$work/tree
home=$work/home
mkdir -p "$tree/var/lib/dpkg/updates" "$home"
touch "$tree/var/lib/dpkg/status" "$tree/var/lib/dpkg/available"

# Installs a package in the tree; what it depends on is this machine's.
install() {
    chmod -R u+w "$tree"
    fakeroot dpkg --root="$tree" --log="$work/dpkg.log" --force-depends --force-not-root \
        --install "$1" >"$work/dpkg.out" 2>&1 || {
        cat "$work/dpkg.out"
        fail "${1##*/} cannot be installed"
    }
    chmod -R a-w "$tree"
}

# Runs a command as a user who owns nothing here but a home directory.
chmod 755 "$work"
chmod 700 "$home"
[ "$(id -u)" -ne 0 ] || chown 65534:65534 "$home"
asUser() {
    set -- env -i HOME="$home" TMPDIR="$home" XDG_RUNTIME_DIR="$home" PATH="$tree/usr/bin:$PATH" \
        LC_ALL="$LC_ALL" TZ="$TZ" SOURCE_DATE_EPOCH="$SOURCE_DATE_EPOCH" QT_QPA_PLATFORM=offscreen "$@"
    [ "$(id -u)" -ne 0 ] || set -- setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
    exec "$@"
}

# The command, for itself.
install "$batchPackage"
batch=$tree/usr/lib/qfrforms/example/example.qff
(asUser qfrbatch print "$batch" -o "$home/forms.pdf") || fail "the example cannot be printed"
build/release/bin/qfrbatch print example/example.qff -o "$work/expected.pdf"
cmp "$home/forms.pdf" "$work/expected.pdf" || fail "it does not print what the build prints"
pdftotext -layout "$home/forms.pdf" "$work/forms.txt"
grep -q "VOLATILE ORGANICS" "$work/forms.txt" || fail "the forms hold no text"
ldd "$tree/usr/lib/qfrforms/qfrbatch" "$tree"/usr/lib/qfrforms/*.so >"$work/libraries"
! grep -E 'not found|libQt|libX|libxcb|libGL|libEGL|libwayland|libgtk' "$work/libraries" ||
    fail "qfrbatch loads a window toolkit, or what is missing"

# The desktop program, beside it.
install "$formsPackage"
[ -s "$tree/usr/lib/qfrforms/QFRHelp.chm" ] || fail "it has no help file"
desktop-file-validate "$tree/usr/share/applications/qfrforms.desktop"
appstreamcli validate --no-net --no-color "$tree"/usr/share/metainfo/*.metainfo.xml
export XDG_DATA_HOME="$home" XDG_DATA_DIRS="$tree/usr/share"
chmod -R u+w "$tree"
cp -R /usr/share/mime/packages/freedesktop.org.xml "$tree/usr/share/mime/packages"
update-mime-database "$tree/usr/share/mime"
chmod -R a-w "$tree"
cp "$batch" "$work/batch"
for file in "$batch" "$work/batch"; do
    gio info -a standard::content-type "$file" | grep -q ': application/x-qfrforms-batch$' ||
        fail "$file is not known as a batch"
done
for command in qfrforms qfrbatch; do
    page=$tree/usr/share/man/man1/$command.1.gz
    warnings=$(man --warnings --encoding=UTF-8 --local-file "$page" 2>&1 >"$work/$command.txt")
    [ -z "$warnings" ] || fail "$warnings"
done
for command in load print show check export; do
    "$tree/usr/bin/qfrbatch" "$command" --help | grep -oE '(^| )--?[a-z-]+' | sort -u >"$work/options"
    while read -r option; do
        grep -q -e "$option" "$work/qfrbatch.txt" || fail "qfrbatch(1) lacks $option of $command"
    done <"$work/options"
done

asUser qfrforms "$batch" &
desktopProgram=$!
settings="$home/.config/QFR Forms/QFRpaths.txt"
for _ in $(seq 100); do
    [ ! -e "$settings" ] || break
    sleep 0.2
done
kill -0 "$desktopProgram" || fail "the desktop program ended by itself"
[ "$(tail -n 1 "$settings")" = "${batch%/*}" ] || fail "the batch it was started with is not restored"

echo "The packages are $batchPackage and $formsPackage"

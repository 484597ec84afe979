#!/bin/sh
# Builds the installer and the archive for Windows and tests them under Wine: size, silent installation for one
# user and for everyone, printing, what *.qff files are opened with, start menu, an installation over another one,
# silent removal that leaves the user's files alone; the archive from a folder of its own. Can be run again at any
# time; with "built" it takes the packages that are there.
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
unset DISPLAY WAYLAND_DISPLAY
export WINEPREFIX="$PWD/build/windows/wine-installer" WINEDEBUG=-all WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree,mshtml="
export SOURCE_DATE_EPOCH=1792000000

fail() {
    echo "The installer fails: $*" >&2
    exit 1
}

if [ "${1-}" != built ]; then
    rm -rf build/windows/package
    cpack --preset windows >build/windows/cpack.log || {
        cat build/windows/cpack.log
        exit 1
    }
fi
setup=$(echo "$PWD"/build/windows/package/qfrforms-*-windows.exe)
archive=$(echo "$PWD"/build/windows/package/qfrforms-*-windows.zip)
for package in "$setup" "$archive"; do
    size=$(stat -c %s "$package")
    echo "$((size / 1024)) KB $(basename "$package")"
    [ "$size" -le $((25 * 1024 * 1024)) ] || fail "$package has more than 25 MB"
done

# A Windows of its own, so that nothing else is in its registry, and none of the user's folders in it.
rm -rf "$WINEPREFIX"
drive=$WINEPREFIX/drive_c
work=$(mktemp -d)
trap 'wineserver -k || true; rm -rf "$work" "$WINEPREFIX"' EXIT
trap 'exit 1' HUP INT TERM
mkdir "$work/home"
export HOME="$work/home"
wine wineboot -i >/dev/null 2>&1

# valueOf KEY [VALUE]: what the registry has there, or nothing.
valueOf() {
    if [ $# -eq 1 ]; then
        set -- "$1" /ve
    else
        set -- "$1" /v "$2"
    fi
    wine reg query "$@" 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_[A-Z]* *//p'
}
uninstallKey='Software\Microsoft\Windows\CurrentVersion\Uninstall\QFRForms'
# Everything on the drive but what Windows itself writes as it goes.
listed() { (cd "$drive" && find . -ipath './windows/*' -prune -o -ipath '*/temp/*' -prune -o -print | sort); }
# printsAsHere FOLDER: its qfrbatch prints what the build's does.
printsAsHere() {
    (cd "$1" && wine ./qfrbatch.exe print example/example.qff -o "Z:$work/forms.pdf") ||
        fail "qfrbatch in $1 ended with $?"
    cmp "$work/forms.pdf" "$work/expected.pdf" || fail "qfrbatch in $1 prints something else"
}

(cd build/windows/bin && wine ./qfrbatch.exe print example/example.qff -o "Z:$work/expected.pdf")
listed >"$work/before"

# testInstallation ROOT FOLDER MENU OPTIONS...
testInstallation() {
    root=$1
    folder=$2
    menu=$3
    shift 3
    wine "$setup" /S "$@" || fail "$setup /S $* ended with $?"
    [ -f "$folder/qfrforms.exe" ] || fail "there is no $folder/qfrforms.exe"
    printsAsHere "$folder"
    for licence in README Qt qpdf libjpeg-turbo HarfBuzz zlib CHMLib GCC MinGW-w64 Liberation LGPL-3 GPL-3; do
        [ -s "$folder/licences/$licence.txt" ] || fail "there is no licence $licence"
    done
    [ "$(valueOf "$root\\Software\\Classes\\.qff")" = QFRForms.Batch ] || fail "batches have no program"
    opens=$(valueOf "$root\\Software\\Classes\\QFRForms.Batch\\shell\\open\\command")
    case $opens in
        *qfrforms.exe*%1*) ;;
        *) fail "batches are opened by \"$opens\"" ;;
    esac
    [ "$(valueOf "$root\\$uninstallKey" Publisher)" = "QFR Forms developers" ] ||
        fail "the list of programs does not name the publisher"
    for entry in "QFR Forms" "QFR Forms Help" "QFR Forms Prompt"; do
        [ -f "$menu/QFR Forms/$entry.lnk" ] || fail "the start menu has no $entry"
    done

    echo "the user's" >"$folder/QFRpaths.txt"
    wine "$setup" /S "$@" || fail "$setup over itself ended with $?"
    grep -q user "$folder/QFRpaths.txt" || fail "an update replaces the user's paths"

    echo "the user's" >"$folder/DefaultInfo.txt"
    wine "$folder/uninstall.exe" /S || fail "uninstall.exe ended with $?"
    # A copy of it does the work.
    for _ in $(seq 300); do
        [ -e "$folder/uninstall.exe" ] || break
        sleep 0.1
    done
    wineserver -w
    [ "$(ls "$folder")" = DefaultInfo.txt ] || fail "it leaves $(ls "$folder")"
    rm -r "$folder"
    [ -z "$(valueOf "$root\\Software\\Classes\\.qff")" ] || fail "it leaves what batches are opened by"
    ! wine reg query "$root\\$uninstallKey" >/dev/null 2>&1 || fail "it leaves the list of programs"
    listed >"$work/after"
    # Folders that Windows has of its own, and makes with the first program.
    diff "$work/before" "$work/after" | grep '^>' | grep -vE '/(Programs|Program Files/QFR Forms)$' >"$work/left" || true
    [ ! -s "$work/left" ] || fail "it leaves $(cat "$work/left")"
}

users=$drive/users/$(id -un)
testInstallation HKCU "$users/AppData/Local/Programs/QFR Forms" \
    "$users/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
testInstallation HKLM "$drive/Program Files/QFR Forms" \
    "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs" /AllUsers
testInstallation HKCU "$work/elsewhere" "$users/AppData/Roaming/Microsoft/Windows/Start Menu/Programs" \
    "/D=Z:$(echo "$work" | tr / '\\')\\elsewhere"

# The archive: where it is unpacked it runs, and its settings lie beside it.
mkdir "$work/stick"
(cd "$work/stick" && cmake -E tar xf "$archive")
stick=$(echo "$work"/stick/*)
printsAsHere "$stick"
echo "Installer and archive pass."

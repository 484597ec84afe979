#!/bin/sh
# desktop.sh PROGRAMS PICTURES: the desktop program for Windows of the folder PROGRAMS, under Wine on a screen of
# its own, driven by its keyboard and read by the titles of its windows: a batch by argument, Form 1 with header
# and preview, the package as a PDF file that reads as qfrbatch's, the batch saved and left. Pictures of its
# windows stay in PICTURES. Ends with 77 where there can be no screen.
set -eu
programs=$1
pictures=$2
if [ -z "${QFR_OWN_SCREEN-}" ]; then
    for tool in Xvfb xvfb-run openbox xdotool import pdftotext; do
        command -v $tool >/dev/null || {
            echo "Not tested: there is no $tool."
            exit 77
        }
    done
    QFR_OWN_SCREEN=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

unset QT_QPA_PLATFORM
export SOURCE_DATE_EPOCH=1792000000 TZ=UTC
rm -rf "$pictures"
mkdir -p "$pictures"
work=$(mktemp -d)
pids=
trap 'for pid in $pids; do kill $pid 2>/dev/null || true; done; rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
mkdir "$work/home"
export HOME="$work/home"
cp -R "$programs" "$work/program"
drive=$(printf 'Z:%s' "$work" | tr / '\\')

title() { xdotool getactivewindow getwindowname 2>/dev/null || true; }
picture() { import -window root "$pictures/$1.png"; }
fail() {
    picture fault
    echo "$*; the active window is \"$(title)\". See $pictures/fault.png" >&2
    exit 1
}
# until_ WHAT COMMAND...: waits for the command to succeed. Only a fault takes all the time.
until_() {
    what=$1
    shift
    for _ in $(seq 600); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "$what did not come"
}
isActive() { title | grep -qE "^($1)$"; }
# press KEY TITLE: the window of that title comes of it.
press() {
    xdotool key --clearmodifiers "$1"
    until_ "\"$2\"" isActive "$2"
    sleep 1 # it is drawn
}
# enter FILE TITLE: into a file dialog that asks for a name.
enter() {
    xdotool type --delay 20 "$drive\\$1"
    press Return "$2"
}

openbox --startup "touch $work/managed" >/dev/null 2>&1 &
pids="$pids $!"
until_ "The window manager" [ -e "$work/managed" ]
cd "$work/program"
wine ./qfrforms.exe "$drive\\program\\example\\example.qff" 2>"$work/errors" &
program=$!
pids="$pids $program"
main='QFR Forms.*'
until_ "The main window" isActive "$main"
sleep 3
picture main-window
! grep -q libGLX "/proc/$program/maps" || fail "Its start waits for the graphics card"

press ctrl+1 "Form 1 Header"
picture form1-header
press alt+p "Printer Setup"
press Down "Printer Setup"
press Return ".*Form 1.*VBLK01.*|.*[Pp]review.*"
picture preview
press alt+F4 "Form 1 Header"
press Escape "$main"

press ctrl+p "Printer Setup"
press Up "Printer Setup"
press Return "$main"
press ctrl+shift+p "Print All Forms"
picture print-all
press Return "Save As"
enter all.pdf "$main"
until_ all.pdf [ -s "$work/all.pdf" ]
wine ./qfrbatch.exe print example/example.qff -o "$drive\\batch.pdf"
for name in all batch; do
    pdftotext "$work/$name.pdf" "$work/$name.txt"
done
cmp "$work/all.txt" "$work/batch.txt" || fail "The package reads otherwise than qfrbatch's"

xdotool key alt+d
sleep 1
press s "Save As|Save Batch.*"
# Beside the reports that it names.
xdotool type --delay 20 "$drive\\program\\example\\saved.qff"
xdotool key Return
until_ saved.qff [ -s example/saved.qff ]
answered() { isActive "$main" || { xdotool key Return && false; }; }
until_ "The main window" answered
for batch in example saved; do
    wine ./qfrbatch.exe export "example/$batch.qff" --format csv -o "$drive\\$batch"
done
diff -r "$work/example" "$work/saved" || fail "The saved batch states something else"

until_ "The saved batch's name" isActive ".*saved\\.qff.*"
press ctrl+r Warning
press alt+n Open
picture open
enter 'program\example\example.qff' ".*example\\.qff.*"

xdotool key alt+x
hasEnded() {
    ! isActive Warning || xdotool key alt+n
    ! kill -0 $program
}
until_ "The end" hasEnded
status=0
wait $program || status=$?
[ $status -eq 0 ] || fail "It ended with $status"
! wine reg query 'HKCU\Software\QtProject' /s 2>/dev/null | grep REG_ || fail "Dialogs leave settings behind"
echo "The desktop program passes."

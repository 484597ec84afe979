#!/bin/sh
# names.sh PROGRAMS EXAMPLE: qfrbatch of the folder PROGRAMS, under Wine, on copies of the example under names that
# only Windows has, or that some programs get wrong there: the batch that it makes names its reports in full, and
# prints as under any other name. Then Ctrl+C at the prompt.
set -eu
programs=$1
example=$2
export SOURCE_DATE_EPOCH=1792000000 TZ=UTC LC_ALL=C.UTF-8
work=$(mktemp -d)
share=$WINEPREFIX/dosdevices/unc/localhost/$(basename "$work")
trap 'rm -rf "$work" "$share"' EXIT
trap 'exit 1' HUP INT TERM
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}
# Servers and their shares are folders there.
mkdir -p "$(dirname "$share")"
ln -s "$work" "$share"

long=$(printf '%0120d/%0120d' 1 2)
for folder in plain 'δείγματα 日本' "$long"; do
    mkdir -p "$work/$folder"
    cp -R "$example"/. "$work/$folder"
done
cp "$work/δείγματα 日本/ZA101.PRN" "$work/δείγματα 日本/ZA10Ω.PRN"
# It finds its modules and the typeface beside itself wherever that is.
program="$work/Πρόγραμμα"
mkdir "$program"
cp -R "$programs"/qfrbatch.exe "$programs"/*.dll "$programs"/fonts "$program"

drive=$(printf 'Z:%s' "$work" | tr / '\\')
expected=
for name in "$drive\\plain" "z:$work/long/../PLAIN" '\\localhost\'"$(basename "$work")\\Plain" "//localhost/$(basename "$work")/plain" \
    "\\\\?\\$drive\\plain" "$drive\\δείγματα 日本" "$drive\\$(echo "$long" | tr / '\\')"; do
    rm -f "$work/new.qff"
    (
        cd "$program"
        wine ./qfrbatch.exe load --blank "$name\\VBLK01.PRN" --cal "$name\\VOA0516.CAL" \
            --check "$name\\VSTD050C.CHECK" -o "$drive\\new.qff" "$name\\za10?.prn"
        wine ./qfrbatch.exe print "$name\\example.qff" --forms 2,4 -o "$name\\Έντυπα.pdf"
    ) || fail "It ended with $? for $name"
    full=$(printf %s "$name" | sed 's|/long/\.\./|/|' | tr '[:upper:]/' '[:lower:]\\')
    for report in vblk01.prn za104.prn; do
        grep -qF "$full\\$report" "$work/new.qff" || fail "$(cat "$work/new.qff") does not name $full\\$report"
    done
    printed=$(find "$work" -name Έντυπα.pdf)
    : "${expected:=$(md5sum <"$printed")}"
    [ "$(md5sum <"$printed")" = "$expected" ] || fail "It prints something else for $name"
    rm "$printed"
done

cd "$work/plain"
for i in $(seq -w 20); do
    cp example.qff "$i.qff"
done
wine "$program/qfrbatch.exe" print [0-9]*.qff --output-dir forms 2>"$work/said" &
pid=$!
until [ -d forms/02 ]; do
    kill -0 $pid || fail "It ended with $(cat "$work/said")"
    sleep 0.1
done
kill -INT $pid
status=0
wait $pid || status=$?
[ $status -eq 1 ] && grep -q "ended before all was done" "$work/said" ||
    fail "After Ctrl+C it ended with $status: $(cat "$work/said")"
[ ! -e forms/20 ] || fail "It did not end"
torn=$(find forms -type f ! -exec sh -c 'tail -n 1 "$1" | grep -q ^%%EOF' _ {} \; -print)
[ -z "$torn" ] || fail "It leaves $torn"
echo "$(find forms -type f | wc -l) whole files, and every name leads to the same pages."

#!/bin/sh
# compare.sh WINDOWS HERE EXAMPLE: the companion command of the folder WINDOWS, under Wine, against this system's
# own one, HERE, on the example: what they say, their exit status, and every file that they write, byte by byte.
# Ends with 77 where there is no such program to compare with.
set -eu
windows=$1
here=$2
example=$3
[ -x "$here" ] || {
    echo "Not compared: there is no $here."
    exit 77
}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
export SOURCE_DATE_EPOCH=1792000000 TZ=UTC

# take FOLDER PROGRAM...: the same commands, in a copy of the example.
take() {
    folder=$1
    shift
    cp -R "$example" "$work/$folder"
    cd "$work/$folder"
    answer() {
        name=$1
        shift
        status=0
        "$@" >"$name.out" 2>"$name.err" </dev/null || status=$?
        echo "$status" >"$name.status"
    }
    answer load "$@" load --blank VBLK01.PRN --cal VOA0516.CAL --check VSTD050C.CHECK -o new.qff ZA10?.PRN
    answer print "$@" print example.qff -o forms.pdf
    answer own "$@" print new.qff --forms 4,6 -o own.pdf
    answer sheets "$@" print example.qff --forms 1,tic --sample ZA101 --output-dir sheets
    answer slashes "$@" print ".\\example.qff" --forms 2 --output-dir sheets
    answer show "$@" show example.qff
    answer check "$@" check example.qff
    answer json "$@" check example.qff --format json
    answer csv "$@" export example.qff --format csv -o values
    answer values "$@" export example.qff --format json -o values.json
    answer none "$@" print none.qff -o none.pdf
    answer usage "$@" print
}
take windows wine "$windows/qfrbatch.exe"
wine "$windows/qfrbatch.exe" print example.qff --printer Office 2>printer.txt && exit 1
grep -q 'there is no printer "Office"; on this system qfrbatch prints into files' printer.txt || {
    cat printer.txt
    exit 1
}
rm printer.txt
take here "$here"

# A batch names its reports in full, as each system does.
folder=$(printf 'z:%s/windows/' "$work" | tr '[:upper:]/' '[:lower:]\\' | sed 's/\\/\\\\/g')
sed -i "s|$folder||g" "$work/windows/new.qff"
sed -i "s|$(echo "$work" | tr '[:upper:]' '[:lower:]')/here/||g" "$work/here/new.qff"
diff -r "$work/here" "$work/windows" || {
    echo "What is written under Windows (>) differs from what is written here (<)."
    exit 1
}
[ "$(cat "$work/here/print.status")" = 0 ] && [ -s "$work/here/forms.pdf" ] || {
    cat "$work/here/print.err"
    exit 1
}
echo "$(find "$work/here" -type f | wc -l) files are the same."

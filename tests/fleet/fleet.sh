#!/bin/sh
# fleet.sh QFRBATCH EXAMPLE: 200 batches that lie in one folder with their reports are printed, each form and
# one sample's sheets, and as many are loaded, by two workers of GNU parallel, and then by one. The files must
# have the same bytes, and there must be no others. Ends with 77 where there is no GNU parallel.
set -eu
program=$1
parallel --version 2>/dev/null | grep -q '^GNU parallel' || {
    echo "Fleets are not tested without GNU parallel."
    exit 77
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' HUP INT TERM
cp "$2"/* "$work"
cd "$work"
mkdir one two temporary
export SOURCE_DATE_EPOCH=1792000000 TMPDIR="$work/temporary" PARALLEL_HOME="$work/temporary/parallel"
# Each with a case and sample numbers of its own.
for number in $(seq -w 200); do
    sed "s/;34417;/;20$number;/; s/^ZA1/Z$number-/" example.qff >"batch$number.qff"
    sed "s/^34417/20$number/" DefaultInfo.txt >"batch$number.txt"
done

set -- load --blank VBLK01.PRN --cal VOA0516.CAL --check VSTD050C.CHECK ZA10?.PRN
parallel --halt now,fail=1 -j2 "$program" print {} --sample VBLK01 -o 'two/{.}.pdf' ::: batch*.qff
parallel --halt now,fail=1 -j2 "$program" "$@" --defaults {} -o 'two/{.}.qff' ::: batch*.txt
for batch in batch*.qff; do
    "$program" print "$batch" --sample VBLK01 -o "one/${batch%.qff}.pdf"
    "$program" "$@" --defaults "${batch%.qff}.txt" -o "one/$batch"
done

diff -r one two
[ "$(find two -type f | wc -l)" -eq 400 ]
[ "$(cksum two/* | cut -d ' ' -f 1 | sort -u | wc -l)" -eq 400 ]
[ "$(find . -name '.qfr-*' | wc -l)" -eq 0 ]

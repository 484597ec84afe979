#!/bin/sh
# printing.sh TESTS: the tests of the system's printers, under Wine, beside the print daemon of with-cups.sh: what comes
# to lie on the paper is what the PDF file of the same job shows, under the job's title.
set -eu
for tool in pdftoppm convert; do
    command -v $tool >/dev/null || {
        echo "Not tested: there is no $tool."
        exit 77
    }
done
lpadmin -x Spare
# Wine's driver leaves it to the queue how a job lies, and prints nothing where the printer cannot.
sed '/^\*ImageableArea/s/"30 50 580 740"/"20 30 590 760"/' "$QFR_PRINTED/../printer.ppd" >"$QFR_PRINTED/../near.ppd"
lpadmin -p Lab -P "$QFR_PRINTED/../near.ppd" -R print-scaling-default -R orientation-requested-default
cd "$QFR_PRINTED/.."
wine "$1"
timeout 60 sh -c 'while lpstat -o Lab | grep -q .; do sleep 0.1; done'
printed=$(find "$QFR_PRINTED" -type f)
[ "$(echo "$printed" | wc -l)" -eq 1 ] || {
    echo "Not one job, but $printed" >&2
    exit 1
}
pdftoppm -r 300 -gray own.pdf own
pdftoppm -r 300 -gray "$printed" printed
convert own-2.pgm -rotate 270 own-2.pgm
# strayDots ONE OTHER: how many dark dots of the one have nothing dark of the other beside them.
strayDots() {
    convert "$1" -threshold 50% -negate \( "$2" -threshold 80% -morphology Erode Square:1 \) \
        -compose Multiply -composite -format '%[fx:round(mean*w*h)]' info:
}
for page in 1 2 3; do
    lost=$(strayDots own-$page.pgm printed-$page.pgm)
    added=$(strayDots printed-$page.pgm own-$page.pgm)
    # A text takes away the edge of a rule: on this printer, with half the dots of a page, a little more of it.
    [ $((lost + added)) -le 300 ] || {
        echo "Page $page lacks $lost dots, and $added are too many" >&2
        exit 1
    }
done
[ "$(pdfinfo "$printed" | sed -n 's/^Title: *//p')" = "Form 5 BFB01" ] || exit 1
echo "What lies on the paper is what the PDF file shows."

#!/bin/sh
# Runs a command beside a CUPS daemon of its own, on a socket file. Its queues "Lab" and "Spare" leave what
# lies on the paper as PDF files in QFR_PRINTED. Ends with 77 where the daemon cannot be started.
set -eu
PATH=$PATH:/usr/sbin
backend=/usr/lib/cups/backend/cups-pdf
[ "$(id -u)" -eq 0 ] && [ -x /usr/sbin/cupsd ] && [ -x "$backend" ] || {
    echo "Printing on queues is not tested without root, cups and printer-driver-cups-pdf." && exit 77
}

root=$(mktemp -d)
trap 'kill "${daemon-}" 2>/dev/null || true; wait; rm -rf "$root"' EXIT
trap 'exit 1' HUP INT TERM
install -d -o lp "$root/printed" "$root/temp"
ln -s /usr/lib/cups/daemon /usr/lib/cups/filter "$root"
# The backend has its settings at a fixed place of the machine; this copy has them beside itself.
sed 's#/etc/cups#./backend#' "$backend" | install -D -m 700 /dev/stdin "$root/backend/cups-pdf"
printf '%s\n' "Out $root/printed" "Spool $root/spooled" "Log $root" 'Label 1' \
    'GSCall %s -q -dCompatibilityLevel=%s -dNOPAUSE -dBATCH -dSAFER -sDEVICE=pdfwrite -dAutoRotatePages=/None -sOutputFile="%s" -f %s' \
    >"$root/backend/cups-pdf.conf"
for file in ServerBin/. ServerRoot/. CacheDir/cache RequestRoot/jobs StateDir/state TempDir/temp \
    AccessLog/access.log ErrorLog/error.log PageLog/page.log; do
    echo "${file%%/*} $root/${file#*/}"
done >"$root/files.conf"
export CUPS_SERVER="$root/socket" QFR_PRINTED="$root/printed"
printf '%s\n' "Listen $CUPS_SERVER" '<Policy default>' '<Limit All>' '</Limit>' '</Policy>' >"$root/cupsd.conf"
(cd "$root" && exec cupsd -f -c "$root/cupsd.conf" -s "$root/files.conf") &
daemon=$!
until lpstat -r 2>/dev/null | grep -q 'is running'; do
    kill -0 $daemon || exit 77 # it said why it does not start
    sleep 0.1
done
# Queues that do with other jobs what the forms must be spared: they have another paper, cannot
# print on its edges, shrink what would lie there and turn pages.
sed '/^\*ImageableArea/s/"0 0 [0-9]* [0-9]*"/"30 50 580 740"/' \
    /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd >"$root/printer.ppd"
for queue in Lab Spare; do
    lpadmin -p "$queue" -E -v cups-pdf:/ -P "$root/printer.ppd" -o print-scaling-default=fit \
        -o orientation-requested-default=4 -o pdftops-renderer-default=pdftocairo 2>/dev/null
done
QFR_DAEMON=$daemon "$@"

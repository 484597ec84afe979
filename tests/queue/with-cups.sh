#!/bin/sh
# Runs a command beside a CUPS daemon of its own, on loopback, that is gone afterwards with all its
# files. Its queues "Lab" and "Spare" leave what lies on the paper as PDF files in QFR_PRINTED.
# Ends with 77 where no daemon can be started.
set -eu
PATH=$PATH:/usr/sbin
backend=/usr/lib/cups/backend/cups-pdf

skip() {
    echo "Printing on queues is not tested: $1"
    exit 77
}
[ "$(id -u)" -eq 0 ] && [ -x /usr/sbin/cupsd ] && [ -x "$backend" ] ||
    skip "that needs root and the packages cups and printer-driver-cups-pdf."

root=$(mktemp -d)
daemon=
trap 'kill $daemon 2>/dev/null || true; wait; rm -rf "$root"' EXIT
trap 'exit 1' HUP INT TERM
mkdir "$root/backend" "$root/printed" "$root/temp"
chown lp "$root/temp"
ln -s /usr/lib/cups/daemon /usr/lib/cups/filter "$root"
# The backend has its settings at a fixed place of the machine; this copy has them beside itself.
sed 's|/etc/cups|./backend|' "$backend" >"$root/backend/cups-pdf"
chmod 700 "$root/backend/cups-pdf"
cat >"$root/backend/cups-pdf.conf" <<END
Out $root/printed
Spool $root/spooled
Log $root
GSCall %s -q -dCompatibilityLevel=%s -dNOPAUSE -dBATCH -dSAFER -sDEVICE=pdfwrite -dAutoRotatePages=/None -sOutputFile="%s" -f %s
END
for file in ServerBin/. ServerRoot/. CacheDir/cache RequestRoot/jobs StateDir/state TempDir/temp \
    AccessLog/access.log ErrorLog/error.log PageLog/page.log; do
    echo "${file%%/*} $root/${file#*/}"
done >"$root/files.conf"
port=$(perl -MIO::Socket::INET -e \
    'print IO::Socket::INET->new(Listen => 1, LocalAddr => "127.0.0.1")->sockport')
printf '%s\n' "Listen 127.0.0.1:$port" '<Policy default>' '<Limit All>' '</Limit>' '</Policy>' \
    >"$root/cupsd.conf"
export CUPS_SERVER="127.0.0.1:$port" QFR_PRINTED="$root/printed"
(cd "$root" && exec cupsd -f -c "$root/cupsd.conf" -s "$root/files.conf") 2>"$root/said" &
daemon=$!
until lpstat -r 2>/dev/null | grep -q 'is running'; do
    kill -0 $daemon 2>/dev/null || skip "the print daemon does not start. $(cat "$root/said")"
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

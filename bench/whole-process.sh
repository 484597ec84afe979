#!/bin/sh
# What qfrbatch needs as a whole process, from its start to its end: CPU time (user and system),
# libraries, peak memory and the size of what it writes. BIN is the folder of the programs, that of the
# release build unless it is given. Needs python3 and poppler-utils.
#
#     bench/whole-process.sh [BIN]
set -eu

here=$(dirname "$0")
bin=${1:-$here/../build/release/bin}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM

# measured RUNS BATCH: prints all forms of the batch and says what a run has taken, CPU time as the
# median.
measured() {
    python3 - "$1" "$bin/qfrbatch" print "$2" -o "$folder/forms.pdf" <<'END'
import resource, statistics, subprocess, sys

times, before = [], 0
for _ in range(int(sys.argv[1])):
    subprocess.run(sys.argv[2:], check=True)
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    times.append(used.ru_utime + used.ru_stime - before)
    before += times[-1]
print(f"{1000 * statistics.median(times):.1f} ms, {used.ru_maxrss / 1024:.0f} MB at the peak", end="")
END
    pages=$(pdfinfo "$folder/forms.pdf" | sed -n 's/^Pages: *//p')
    bytes=$(wc -c < "$folder/forms.pdf")
    echo ", $pages pages, $((bytes / pages)) bytes a page"
}

# The names of the libraries that a file needs, one a line.
librariesOf() {
    ldd "$@" | sed -n 's/^[[:space:]]\{1,\}\([^ ]*\).*/\1/p' | sort -u
}

echo "libraries: $(librariesOf "$bin/qfrbatch" | wc -l)," \
    "while it writes PDF files $(librariesOf "$bin/qfrbatch" "$bin/qfr-pdf.so" | wc -l)"
echo "example: $(measured 20 "$here/../example/example.qff")"
for samples in 500 1000 2000; do
    "$here/make-batch.py" "$folder/$samples" "$samples"
    echo "$samples samples: $(measured 3 "$folder/$samples/batch.qff")"
done

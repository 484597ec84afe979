#!/bin/sh
# What the desktop program takes to start under Wine, against this system's own: CPU time (user and system) of its
# process, from its start until its main window is in sight and it has nothing left to do, as the medians of RUNS
# starts in turn. Both are release builds on the same screen; Wine's server and desktop run already. A window
# with nothing in it is measured too: what Wine takes for itself. Needs xvfb, openbox, xdotool, xprop, wine,
# g++-mingw-w64-x86-64-posix and python3.
#
#     bench/windows-start.sh [RUNS]
set -eu

build=$(dirname "$(readlink -f "$0")")/../build
if [ -z "${QFR_OWN_SCREEN-}" ]; then
    QFR_OWN_SCREEN=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi
unset QT_QPA_PLATFORM
folder=$(mktemp -d)
export HOME="$folder" WINEPREFIX="$folder/wine" WINEDEBUG=-all \
    WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree,mshtml="
pids=
trap 'wineboot -k || true; for pid in $pids; do kill $pid 2>/dev/null || true; done; rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM

openbox >/dev/null 2>&1 &
pids="$pids $!"
cp -R "$build/release/bin" "$folder/here"
cp -R "$build/windows/bin" "$folder/windows"
cat >"$folder/empty.cpp" <<'EMPTY'
#include <windows.h>
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    CreateWindowW(L"#32770", L"QFR Forms", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 960, 640, 0, 0, 0, 0);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0)) {
        DispatchMessageW(&message);
    }
    return 0;
}
EMPTY
x86_64-w64-mingw32-g++-posix -O2 -s -static -mwindows "$folder/empty.cpp" -o "$folder/empty.exe"
wineboot -i >/dev/null 2>&1
# As long as it shows a window, Wine's desktop stays.
wine notepad >/dev/null 2>&1 &
pids="$pids $!"
xdotool search --sync --onlyvisible --name Notepad >/dev/null
# Every desktop has some. Where there are none, Wine looks for a file of them for each text that it draws.
xprop -root -f RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "Xft.dpi: 96"

# The commands as Wine's own program, not by way of the script that finds it.
wine64=/usr/lib/wine/wine64
[ -x "$wine64" ] || wine64=$(command -v wine)
cat >"$folder/measure.py" <<'MEASURE'
import statistics, subprocess, sys, time

CPU_TIME = 2  # of a process, as the kernel numbers its clocks
QUIET = 0.5  # seconds

def is_in_sight():
    search = ["xdotool", "search", "--onlyvisible", "--name", "^QFR Forms"]
    return subprocess.run(search, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

def start(command):
    program = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    used = lambda: 1000 * time.clock_gettime(~program.pid << 3 | CPU_TIME)
    while not is_in_sight():
        if program.poll() is not None:
            sys.exit(f"{command} has ended")
        time.sleep(0.02)
    before, now = 0, used()
    while now - before > 1:
        time.sleep(QUIET)
        before, now = now, used()
    program.kill()
    program.wait()
    while is_in_sight():
        time.sleep(0.02)
    return now

runs, wine, folder = int(sys.argv[1]), sys.argv[2], sys.argv[3]
commands = {
    "here": [folder + "/here/qfrforms"],
    "under Wine": [wine, folder + "/windows/qfrforms.exe"],
    "an empty window under Wine": [wine, folder + "/empty.exe"],
}
times = {name: [] for name in commands}
for run in range(runs + 1):
    for name, command in commands.items():
        taken = start(command)
        if run > 0:  # after the first one, all files are in memory
            times[name].append(taken)
medians = [statistics.median(taken) for taken in times.values()]
for name, taken in times.items():
    print(f"{name}: {statistics.median(taken):.0f} ms ({min(taken):.0f} to {max(taken):.0f})")
here, windows, empty = medians
print(f"ratio: {windows / here:.2f}, without the empty window {(windows - empty) / here:.2f}")
MEASURE
python3 "$folder/measure.py" "${1:-10}" "$wine64" "$folder"

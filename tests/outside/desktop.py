"""A desktop of its own for the program, and somebody before it who goes by what a screen reader says."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

DEADLINE = 60  # seconds, for anything that is waited for; only a fault needs them all
# Their codes on every X server's keyboard, and the symbols of keys that type nothing.
MODIFIERS = {"Ctrl": 37, "Shift": 50, "Alt": 64}
KEYS = {"Tab": 0xFF09, "Return": 0xFF0D, "Escape": 0xFF1B, "Home": 0xFF50, "Left": 0xFF51, "Up": 0xFF52,
        "Right": 0xFF53, "Down": 0xFF54, "End": 0xFF57,
        "Delete": 0xFFFF, "Page_Up": 0xFF55, "Page_Down": 0xFF56, "F3": 0xFFC0, "F9": 0xFFC6}
SCALE = float(os.environ.get("QT_SCALE_FACTOR", "1"))


class Unavailable(Exception):
    """This machine cannot give the program a desktop."""


def wait_for(what, look):
    """What look() finds; it is tried again until it finds something."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        with contextlib.suppress(RuntimeError):  # what was looked at has gone meanwhile
            if found := look():
                return found
        time.sleep(0.05)
    raise TimeoutError(f"{what} did not come within {DEADLINE} seconds")


def described(thing, depth=0):
    """What shows, a line each, with where input goes."""
    with contextlib.suppress(RuntimeError):
        states = [str(state.value_nick) for state in thing.getState().getStates()] if depth else ["showing"]
        if "showing" in states:
            input_at = [state for state in ("active", "focused") if state in states]
            yield "  " * depth + " ".join([thing.getRoleName(), repr(thing.name), *input_at])
            for child in (each for each in thing if each is not None):
                yield from described(child, depth + 1)


class Desktop:
    """Screen, session bus and window manager, and everything that runs there."""

    def __init__(self, home, pictures):
        self._processes = []
        self._pictures = pictures
        self._log = (pictures / "desktop.log").open("w", encoding="utf-8")
        self._managed = home / "managed"
        (home / "run").mkdir(mode=0o700)
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        os.environ.update(HOME=str(home), XDG_RUNTIME_DIR=str(home / "run"), LC_ALL="C.UTF-8",
                          XDG_CONFIG_HOME=str(home / ".config"), QT_QPA_PLATFORM="xcb",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="1")

    def start(self):
        tools = ("Xvfb", "dbus-daemon", "openbox", "import", "setpriv")
        if missing := [tool for tool in tools if not shutil.which(tool)]:
            raise Unavailable(f"{' '.join(missing)} not installed")
        # Between its first clients there may be none, and it would start anew and drop the next one.
        os.environ["DISPLAY"] = ":" + self._answer_of(
            "Xvfb", "-displayfd", "1", "-screen", "0", f"{1280 * SCALE:.0f}x{1024 * SCALE:.0f}x24",
            "-noreset", "-nolisten", "tcp")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._answer_of(
            "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address")
        ask = "dbus-send --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress"
        if subprocess.run(ask.split(), capture_output=True, check=False).returncode:
            raise Unavailable("no accessibility bus")
        # A window that is there before it would never become the active one.
        self.run("openbox", "--startup", f"touch {self._managed}", stdout=self._log, stderr=self._log)
        wait_for("the window manager", self._managed.exists)

    def end(self):
        for process in reversed(self._processes):
            for end in (signal.SIGTERM, signal.SIGKILL):
                with contextlib.suppress(ProcessLookupError, subprocess.TimeoutExpired):
                    os.killpg(process.pid, end)
                    process.wait(timeout=5)

    def run(self, *command, **more):
        # Ends with this process, whatever ends that.
        self._processes.append(subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", *command], start_new_session=True, **more))
        return self._processes[-1]

    def _answer_of(self, *command):
        process = self.run(*command, stdout=subprocess.PIPE, stderr=self._log, text=True)
        if not (answer := process.stdout.readline().strip()):
            raise Unavailable(f"{command[0]} does not start")
        return answer

    def picture(self, name):
        subprocess.run(["import", "-window", "root", self._pictures / f"{name}.png"], check=True,
                       timeout=DEADLINE)

    def report(self):
        """What there is at a fault."""
        import pyatspi

        with contextlib.suppress(subprocess.SubprocessError):
            self.picture("fault")
        print("There were:", *described(pyatspi.Registry.getDesktop(0)), sep="\n", file=sys.stderr)
        for process in self._processes:
            if process.poll() is not None:
                print(process.args[3], "ended with", process.returncode, file=sys.stderr)
        print("See also", self._pictures / "fault.png", self._log.name, file=sys.stderr)


@contextlib.contextmanager
def fresh_program(programs, pictures):
    """The program, running, and its directory; both as freshly installed, in a home of its own."""
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    with tempfile.TemporaryDirectory() as temporary:
        home = pathlib.Path(temporary)
        fresh = shutil.copytree(programs, home / "program", ignore=shutil.ignore_patterns("*_tests"))
        for left in ("QFRwindows.ini", "DefaultInfo.txt"):  # by somebody who ran it there
            (fresh / left).unlink(missing_ok=True)
        shutil.copy(pathlib.Path(__file__).parents[2] / "packaging" / "QFRpaths.txt", fresh)
        desktop = Desktop(home, pictures)
        try:
            desktop.start()
            yield Program(desktop, fresh / "qfrforms"), fresh
        except (Unavailable, ImportError):
            raise
        except Exception:
            desktop.report()
            raise
        finally:
            desktop.end()


def run_main(main):
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("Ended from outside"))
    try:
        main(*map(pathlib.Path, sys.argv[1:]))
    except (Unavailable, ImportError) as reason:
        print(f"Skipped, because there can be no desktop here: {reason}")
        sys.exit(77)  # skipped, for ctest


class Program:
    """The program, as assistive technology sees it."""

    def __init__(self, desktop, path):
        import pyatspi  # looks for the desktop at once

        self._atspi = pyatspi
        pyatspi.setTimeout(DEADLINE * 1000, DEADLINE * 1000)  # it may be busy
        self._desktop = desktop
        self._path = path
        self.start()

    def start(self):
        """Also once more, when it has ended."""
        running = self._atspi.Registry.getDesktop(0)
        self._process = self._desktop.run(str(self._path))
        self._root = wait_for("the program", lambda: next(
            (each for each in running if each is not None and each.name == "QFR Forms"
             and each.get_process_id() == self._process.pid), None))
        self._root.setCacheMask(0)

    def file_manager(self, log):
        """Starts one for this desktop. What it is to show it writes to the log."""
        self._desktop.run(sys.executable, "-B", str(pathlib.Path(__file__).with_name("file_manager.py")), str(log))
        wait_for("the file manager", log.exists)

    def send(self, signal_number):
        """What ends the program at once, or asks it to end."""
        self._process.send_signal(signal_number)
        self._process.wait(timeout=DEADLINE)

    def _look(self, role, name, inside):
        for child in (each for each in inside if each is not None):
            showing = child.getState().contains(self._atspi.STATE_SHOWING)
            if showing and child.getRoleName() == role and child.name == name:
                return child
            if showing and (found := self._look(role, name, child)):
                return found
        return None

    def find(self, role, name, inside=None):
        return wait_for(f"{role} {name}", lambda: self._look(role, name, inside or self._root))

    def _window(self, title, state):
        # The main window's title goes on with the batch's name.
        return next((each for each in self._root if each is not None
                     and (each.name + " - ").startswith(title + " - ") and each.getState().contains(state)), None)

    def _active(self, title):
        """The window, when the window manager has put it in its place and made it the active one."""
        return wait_for(f"{title} as active window", lambda: self._window(title, self._atspi.STATE_ACTIVE))

    def window(self, title, picture=None):
        found = self._active(title)
        self._desktop.picture(picture or title)
        return found

    def gone(self, title):
        wait_for(f"the end of {title}", lambda: not self._window(title, self._atspi.STATE_SHOWING))

    def menu(self, *captions):
        for caption in captions:
            self._active("QFR Forms")  # a click before would miss it
            self.click(self.find("menu item", caption))

    def restore(self, batch, complete="10 of 10"):
        self.menu("Data Files", "Restore Batch")
        dialog = self.window("Open")
        self.enter("File name:", batch, dialog)
        self.press("Open", dialog)
        self.find("label", f"Headers complete: {complete}")

    def press(self, caption, window):
        self._act(self.find("push button", caption, window), "Press")

    def choose(self, caption, item, window):
        box = self.find("combo box", caption, window)
        self._act(box, "ShowMenu")
        self.click(self.find("list item", item, box))
        wait_for(f"the choice of {item}", lambda: not self._look("list item", item, box))

    def text(self, caption, window):
        return self.find("text", caption, window).queryText().getText(0, -1)

    def enter(self, caption, text, window):
        self.find("text", caption, window).queryEditableText().setTextContents(text)

    def has(self, role, name):
        return self._look(role, name, self._root) is not None

    def type(self, text, over=True):
        """Over what the control that has the focus holds."""
        if over:
            self.press_keys("Ctrl+a")
        for character in text:
            self._atspi.Registry.generateKeyboardEvent(ord(character), None, self._atspi.KEY_SYM)
            time.sleep(0.02)  # the next one may need another keyboard mapping

    def press_keys(self, *chords):
        """Each like "Ctrl+Shift+End"; how many keys that are."""
        send, events = self._atspi.Registry.generateKeyboardEvent, self._atspi
        for chord in chords:
            *modifiers, key = chord.split("+")
            for modifier in modifiers:
                send(MODIFIERS[modifier], None, events.KEY_PRESS)
            send(KEYS.get(key) or ord(key), None, events.KEY_SYM)
            for modifier in reversed(modifiers):
                send(MODIFIERS[modifier], None, events.KEY_RELEASE)
            time.sleep(0.02)
        return sum(chord.count("+") + 1 for chord in chords)

    def focus(self, role, caption, window):
        self.find(role, caption, window).queryComponent().grabFocus()

    def wait_for_focus(self, role, name, inside=None):
        """Waits until the control has the focus."""
        wait_for(f"the focus on {role} {name}", lambda: self.find(role, name, inside).getState().contains(
            self._atspi.STATE_FOCUSED))

    def ended(self):
        return self._process.wait(timeout=DEADLINE)

    def _act(self, thing, name):
        actions = thing.queryAction()
        actions.doAction([actions.getName(i) for i in range(actions.nActions)].index(name))

    def click(self, thing):
        place = thing.queryComponent().getExtents(self._atspi.DESKTOP_COORDS)
        self._atspi.Registry.generateMouseEvent(int(SCALE * (place.x + place.width // 2)),
                                                int(SCALE * (place.y + place.height // 2)), "b1c")

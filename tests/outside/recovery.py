"""recovery.py PROGRAMS PICTURES: the program is killed at odd moments, and what was typed comes back."""

import contextlib
import shutil
import signal

from desktop import fresh_program, run_main, wait_for

HEADER = ("Form 1 Volatile Organics Analysis", "Form 1 Header")
TICS = ("Form 1 Tentative Identified Compounds", "Form 1 TIC Header")
COMMENTS = ("Form 4 Method Blank Summary", "Method Blank Summary Comment")
TUNE = ("Form 5 Instrument Performance Check", "Instrument Performance Check")
STANDARD = ("Form 7 Cont. Cal. Data", "Continuing Calibration Data Input")


class Chemist:
    """Works on one batch, and gets it back after each accident."""

    def __init__(self, program, home):
        self.program = program
        self.batch = home / "work" / "monday.qff"
        self.kept = home / ".config" / "QFR Forms" / "recovery"
        self.typed = 0

    def open(self, form):
        command, title = form
        self.program.menu("Forms", command)
        return self.program.window(title)

    def text(self):
        """One that was never typed before."""
        self.typed += 1
        return f"t{self.typed}t"

    def wait_until_kept(self, text):
        def kept():
            with contextlib.suppress(FileNotFoundError):  # it has just been replaced
                return any(text in file.read_text(encoding="utf-8") for file in self.kept.glob("*.recovery"))
        wait_for(f"{text} in a recovery file", kept)

    def fill_in(self, form):
        """Types where the window has its focus at first."""
        self.open(form)
        self.program.type(text := self.text())
        self.wait_until_kept(text)
        return text

    def change_and_leave(self):
        window = self.open(HEADER)
        self.program.type(text := self.text())
        self.program.press("Exit", window)
        self.program.window("QFR Forms")
        return text

    def begin_again(self):
        self.program.start()
        self.program.window("QFR Forms")

    def recover(self):
        self.program.menu("Data Files", "Recover Last Batch")
        self.program.find("label", "Headers complete: 10 of 10")
        self.program.window("QFR Forms", "QFR Forms, recovered")

    def save(self, text):
        self.program.menu("Data Files", "Save")
        wait_for(f"{text} in the batch file", lambda: text in self.batch.read_text(encoding="utf-8"))
        wait_for("the end of the recovery file", lambda: not list(self.kept.glob("*.recovery")))

    def answer(self, button):
        self.program.press(button, self.program.window("Warning"))


def in_the_header_dialog(chemist):
    return chemist.fill_in(HEADER)


def in_a_sample_without_tics(chemist):
    window = chemist.open(TICS)
    chemist.program.press("Enter TICs", window)
    chemist.program.window("Tentatively Identified Compound Input")
    # The text comes last: a row that is kept while it still lacks a cell is told of when it comes back.
    for cell in ("x", "x", "1", "2"):
        chemist.program.type(cell)
        chemist.program.press_keys("Tab")
    chemist.program.type(text := chemist.text())
    chemist.wait_until_kept(text)
    return text


def in_the_comment(chemist):
    return chemist.fill_in(COMMENTS)


def in_the_tune(chemist):
    return chemist.fill_in(TUNE)


def by_assistive_technology(chemist):
    window = chemist.open(STANDARD)
    for _ in range(2):  # for the second one nothing but the text changes
        chemist.program.enter("Lab File ID:", text := chemist.text(), window)
        chemist.wait_until_kept(text)
    return text


def back_in_the_main_window(chemist):
    text = chemist.change_and_leave()
    chemist.wait_until_kept(text)
    return text


def after_a_restore(chemist):
    text = chemist.change_and_leave()
    chemist.program.menu("Data Files", "Restore Batch")
    chemist.answer("No")
    dialog = chemist.program.window("Open")
    chemist.program.enter("File name:", str(chemist.batch), dialog)
    chemist.program.press("Open", dialog)
    chemist.program.gone("Open")
    chemist.wait_until_kept(text)
    return text


def after_clear_all(chemist):
    text = chemist.change_and_leave()
    chemist.program.menu("Data Files", "Load Files")
    chemist.program.press("Clear All", chemist.program.window("Load Files"))
    chemist.answer("No")
    chemist.wait_until_kept(text)
    return text


def while_it_saves(chemist):
    text = chemist.change_and_leave()
    chemist.wait_until_kept(text)
    chemist.program.press_keys("Ctrl+s")
    return text


def twice(chemist):
    text = in_the_tune(chemist)
    chemist.program.send(signal.SIGKILL)
    chemist.begin_again()
    chemist.recover()
    return text


ACCIDENTS = [in_the_header_dialog, in_a_sample_without_tics, in_the_comment, in_the_tune, by_assistive_technology,
             back_in_the_main_window, after_a_restore, after_clear_all, while_it_saves, twice]


def end_without_saving(chemist):
    chemist.change_and_leave()
    chemist.program.menu("Exit")
    chemist.answer("No")
    assert chemist.program.ended() == 0


def end_by_the_system(chemist):
    in_a_sample_without_tics(chemist)
    chemist.program.send(signal.SIGTERM)


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        home = fresh.parent
        shutil.copytree(fresh / "example", home / "work")
        chemist = Chemist(program, home)
        (home / "work" / "example.qff").rename(chemist.batch)
        program.restore(str(chemist.batch))
        for accident in ACCIDENTS:
            text = accident(chemist)
            program.send(signal.SIGKILL)
            chemist.begin_again()
            if text in chemist.batch.read_text(encoding="utf-8"):  # it had been saved
                assert accident is while_it_saves
                program.restore(str(chemist.batch))
            else:
                chemist.recover()
                chemist.save(text)
        for end in (end_without_saving, end_by_the_system):
            end(chemist)
            chemist.begin_again()
            chemist.recover()
            chemist.save(f"t{chemist.typed}t")


if __name__ == "__main__":
    run_main(main)

"""headers.py PROGRAMS PICTURES: the headers of 61 samples and a blank, from a spreadsheet, by keys alone.

The keys are counted, and Form I of a sample must print what was pasted for it."""

import re
import shutil
import subprocess

from desktop import Unavailable, fresh_program, run_main, wait_for
from first_run import choose_printer

SAMPLES = 61
MOST_KEYS = 150

LABORATORY = "Fairhaven Analytical\tTQW-05-0417\tFHAV\t34417\t1284.1\tZB001"
RECEIVED = [":", *(f"5/{10 + i % 7}/2005 {8 + i % 9}:{i % 60:02}" for i in range(SAMPLES))]
NO_FIELD_END = 'A value cannot hold ";": typed, it is left out; pasted, it becomes ",".'
DILUTIONS = ["1", *(str(1 + i % 5) for i in range(SAMPLES))]


def make_batch(fresh):
    """Of the example's reports, each some times under other names."""
    folder = fresh / "example"
    originals = [(folder / f"ZA10{i}.PRN").read_bytes().decode("latin-1") for i in range(1, 8)]
    names = []
    for i in range(SAMPLES):
        text = originals[i % len(originals)]
        for line, value in (("Sample ID", f"ZB{i:03}"), ("Client Sample", f"F06{i:05}"),
                            ("Lab File ID", f"ZB{i:03}.D; Instrument: GCMS2")):
            text = re.sub(f"{line}: [^\\r]*", f"{line}: {value}", text, count=1)
        names.append(folder / f"ZB{i:03}.PRN")
        names[-1].write_bytes(text.encode("latin-1"))
    subprocess.run([fresh / "qfrbatch", "load", "--blank", folder / "VBLK01.PRN", "--cal", folder / "VOA0516.CAL",
                    "--check", folder / "VSTD050C.CHECK", "-o", folder / "many.qff", *names], check=True)


def copy(text):
    """As a spreadsheet does."""
    clipboard = ["xclip", "-selection", "clipboard"]
    subprocess.run(clipboard, input=text.encode(), check=True)
    wait_for("the copy", lambda: subprocess.run([*clipboard, "-o"], capture_output=True, check=False).stdout
             == text.encode())


def paste_all(program):
    keys = program.press_keys("Ctrl+h")
    window = program.window("Edit All Headers", "Edit All Headers, empty")
    table = program.find("table", "Headers", window).queryTable()
    assert (table.nRows, table.nColumns) == (SAMPLES + 1, 26)

    def press(*chords):
        nonlocal keys
        keys += program.press_keys(*chords)

    def paste(text, row, column, shown, *ways):
        press(*ways)
        copy(text.replace("\n", "\r\n"))
        press("Ctrl+v")
        wait_for(shown, lambda: table.getAccessibleAt(row, column).name == shown)

    paste(LABORATORY, 0, 2, "Fairhaven Analytical", "Right", "Right")
    paste("\n".join(RECEIVED), SAMPLES, 13, "05/14/2005 14:00", *["Right"] * 11)
    paste("VOCOL\t0.25", 0, 16, "VOCOL", *["Right"] * 3)
    paste("\n".join(DILUTIONS), SAMPLES, 18, DILUTIONS[-1], "Right", "Right")
    paste("5.0", 0, 21, "5.0", *["Right"] * 3)
    paste("30", 0, 25, "30", "End")
    press("Ctrl+a", "Ctrl+e")
    program.find("label", f"{SAMPLES + 1} of {SAMPLES + 1} headers complete", window)
    assert program.press_keys("Ctrl+z") == 2
    program.find("label", f"1 of {SAMPLES + 1} headers complete", window)
    program.press_keys("Ctrl+y")
    program.find("label", f"{SAMPLES + 1} of {SAMPLES + 1} headers complete", window)
    program.window("Edit All Headers", "Edit All Headers, complete")
    press("Alt+c")
    program.gone("Edit All Headers")
    return keys


def find_and_refuse(program):
    """What is looked for is counted; and a date that is none is not lost without a word."""
    program.press_keys("Ctrl+h")
    window = program.window("Edit All Headers", "Edit All Headers, again")
    program.press_keys("Ctrl+f")
    program.wait_for_focus("text", "Find:", window)
    program.type("zb01")
    program.find("label", "1 of 20", window)  # ten numbers, and ten lab file IDs
    program.press_keys("Return", "Shift+F3", "Shift+F3")
    program.find("label", "20 of 20", window)
    program.type("nowhere")
    program.find("label", "Not found", window)
    program.window("Edit All Headers", "Edit All Headers, finding")
    program.press_keys("Escape", "Ctrl+Home", *["Right"] * 14)
    program.type("5/32/2005;", over=False)
    program.press_keys("Return")
    reason = "Date Analyzed is no date. 05/32/2005 does not exist: May 2005 has 31 days."
    program.find("label", f'Not taken: VBLK01: "5/32/2005". {reason} {NO_FIELD_END}', window)
    program.window("Edit All Headers", "Edit All Headers, refused")
    for key, stays in (("Escape", True), ("Return", True), ("Alt+y", False)):
        program.press_keys("Alt+c")
        program.window("Warning", "Close without them")
        program.press_keys(key)
        program.gone("Warning")
        program.window("Edit All Headers" if stays else "QFR Forms")


def print_sample(program, number, pdf):
    program.menu("Forms", "Form 1 Volatile Organics Analysis")
    dialog = program.window("Form 1 Header")
    program.choose("ZOV Sample Number", number, dialog)
    program.press("Print Form", dialog)
    choose_printer(program, "PDF file")
    save = program.window("Save As")
    program.enter("File name:", str(pdf), save)
    program.press("Save", save)
    program.gone("Save As")
    program.press("Exit", dialog)
    program.gone("Form 1 Header")
    return subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, text=True, check=True).stdout


def main(programs, pictures):
    if not shutil.which("xclip"):
        raise Unavailable("xclip not installed")
    with fresh_program(programs, pictures) as (program, fresh):
        make_batch(fresh)
        program.restore("many.qff", f"0 of {SAMPLES + 1}")
        keys = paste_all(program)
        print("Keys:", keys)
        assert keys <= MOST_KEYS
        program.find("label", f"Headers complete: {SAMPLES + 1} of {SAMPLES + 1}")
        find_and_refuse(program)
        page = print_sample(program, "ZB005", fresh.parent / "ZB005.pdf")
        for value in ("Fairhaven Analytical", "TQW-05-0417", "05/15/2005 13:05", "VOCOL", "0.25"):
            assert value in page, (value, page)


if __name__ == "__main__":
    run_main(main)

"""first_run.py PROGRAMS PICTURES: the quick start of the help, with the programs in PROGRAMS.

Everything is found by what a screen reader says of it, and the forms must be those that qfrbatch prints."""

import subprocess

from desktop import fresh_program, run_main

# Menu command, its dialog, and what the form's file is called; a sample where one is chosen.
FORMS = [
    ("Form 2 Monitoring Compound Recovery", "Form 2 Advisory Recovery Ranges", "Form 2"),
    ("Form 1 Volatile Organics Analysis", "Form 1 Header", "Form 1 ZA103", "ZA103"),
    ("Form 1 Tentative Identified Compounds", "Form 1 TIC Header", "Form 1 TIC ZA102", "ZA102"),
    ("Form 4 Method Blank Summary", "Method Blank Summary Comment", "Form 4 VBLK01"),
    ("Form 5 Instrument Performance Check", "Instrument Performance Check", "Form 5 BFB0518"),
    ("Form 6 Initial Calibration Data", "Initial Calibration Data", "Form 6"),
    ("Form 7 Cont. Cal. Data", "Continuing Calibration Data Input", "Form 7 vstd050cc"),
    ("Form 8 Internal Standard Summary", "Internal Standard Summary Input", "Form 8 vstd050cc"),
]


def choose_printer(program, printer):
    setup = program.window("Printer Setup")
    program.choose("Printer:", printer, setup)
    program.press("OK", setup)
    program.gone("Printer Setup")


def print_form(program, directory, command, title, name, sample=None):
    program.menu("Forms", command)
    dialog = program.window(title)
    if sample:
        program.choose("ZOV Sample Number", sample, dialog)
    program.press("Print Form" if sample else "OK", dialog)
    if name == FORMS[0][2]:
        choose_printer(program, "PDF file")
    save = program.window("Save As")
    assert program.text("File name:", save) == name + ".pdf"
    program.enter("File name:", str(directory / name) + ".pdf", save)
    program.press("Save", save)
    program.gone("Save As")
    if sample:
        program.press("Exit", dialog)
    program.gone(title)


def look_around(program):
    program.menu("Reports", "Select Printer")
    choose_printer(program, "Screen preview")
    for commands, title, button in [
            (["Forms", FORMS[0][0]], FORMS[0][1], "OK"), ([], "Print Preview - Form 2", "Close"),
            (["Reports", "Print All Forms..."], "Print All Forms", "Print"),
            ([], "Print Preview - Data Package ZA101", "Close"),
            (["Data Files", "Load Files"], "Load Files", "OK"), (["Help"], "QFR Forms Help", "Close"),
            (["About"], "About QFRForms", "Okay")]:
        program.menu(*commands)
        program.press(button, program.window(title))
        program.gone(title)
    program.menu("Exit")
    program.press("No", program.window("Warning"))
    assert program.ended() == 0


def seen(pdf):
    """The document's text and its pages in dots."""
    return [subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
            for command in (["pdftotext", "-layout", pdf, "-"], ["pdftoppm", "-r", "75", pdf])]


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        home = fresh.parent
        program.restore("example.qff")
        for form in FORMS:
            print_form(program, home, *form)
        look_around(program)
        subprocess.run([fresh / "qfrbatch", "print", fresh / "example" / "example.qff",
                        "--output-dir", home / "expected"], check=True)
        for _, _, name, *_ in FORMS:
            assert seen(home / f"{name}.pdf") == seen(home / "expected" / f"{name}.pdf"), name


if __name__ == "__main__":
    run_main(main)

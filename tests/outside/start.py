"""start.py PROGRAMS PICTURES: from the first start to the example's preview with two keys, and back to it later."""

from desktop import fresh_program, run_main

PREVIEW = "Print Preview - Data Package ZA101"


def leave(program, saves):
    program.menu("Exit")
    if saves:
        program.press("No", program.window("Warning"))
    assert program.ended() == 0


def open_first(program, role, name):
    """Two keys from what has the focus to the preview."""
    program.wait_for_focus(role, name)
    program.press_keys("Return")
    program.wait_for_focus("push button", "Preview All Forms")
    program.press_keys("Return")
    program.press("Close", program.window(PREVIEW))
    program.gone(PREVIEW)


def look_around(program, folder):
    """What the two tables know, and where they lead."""
    program.find("table cell", "Ready")
    program.find("table cell", "2 warnings")
    program.window("QFR Forms", "batch")
    program.press("Print Sample's Sheets", program.window("QFR Forms"))
    setup = program.window("Printer Setup")
    program.choose("Printer:", "PDF file", setup)
    program.press("OK", setup)
    save = program.window("Save As")
    assert program.text("File name:", save) == "Form 1 VBLK01.pdf"
    program.enter("File name:", str(folder / "sheets.pdf"), save)
    program.press("Save", save)
    program.gone("Save As")
    program.press_keys("Tab", "Tab", "Return")
    program.press("Exit", program.window("Form 1 Header"))
    program.gone("Form 1 Header")
    assert (folder / "sheets.pdf").stat().st_size > 0


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        program.window("QFR Forms", "start")
        open_first(program, "push button", "Open Example")
        look_around(program, fresh.parent)
        leave(program, saves=True)

        program.start()
        program.window("QFR Forms", "start again")
        open_first(program, "table cell", "example.qff")
        leave(program, saves=True)

        (fresh / "example").rename(fresh / "moved")
        program.start()
        program.find("table cell", "is missing")
        program.window("QFR Forms", "start without the example")
        program.press_keys("Return")
        program.press("OK", program.window("File Not Found"))
        program.gone("File Not Found")
        leave(program, saves=False)


if __name__ == "__main__":
    run_main(main)

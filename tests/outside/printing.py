"""printing.py PROGRAMS PICTURES: where forms go, and how they are looked at, with the programs in PROGRAMS.

Form 4 goes to a file and Form 2 to the preview, each by the drop-down beside the button that prints it."""

from desktop import fresh_program, run_main, wait_for

FILE = "blank #1.pdf"  # as no URL has it


def print_to_file(program, directory):
    program.menu("Forms", "Form 4 Method Blank Summary")
    dialog = program.window("Method Blank Summary Comment")
    program.choose("Print to:", "PDF file", dialog)
    program.press("OK", dialog)
    save = program.window("Save As")
    program.enter("File name:", str(directory / FILE), save)
    program.press("Save", save)
    program.gone("Save As")
    assert (directory / FILE).exists()
    program.find("label", f"Form 4 VBLK01 saved as {FILE}")
    window = program.window("QFR Forms", "printed")
    program.file_manager(directory / "shown")
    program.press("Show in Folder", window)
    wait_for("the file in its folder",
             lambda: (directory / "shown").read_text(encoding="utf-8") == (directory / FILE).as_uri() + "\n")
    (directory / FILE).unlink()
    for caption in ("Open File", "Show in Folder"):
        program.press(caption, window)
        message = program.window("File Not Found", "moved")
        program.find("label", f"{FILE} is no longer where it was saved.", message)
        program.press("OK", message)
        program.gone("File Not Found")


def look_at_pages(program):
    program.choose("Print to:", "Screen preview", program.window("QFR Forms"))
    program.menu("Forms", "Form 2 Monitoring Compound Recovery")
    program.press("OK", program.window("Form 2 Advisory Recovery Ranges"))
    preview = program.window("Print Preview - Form 2")
    page = program.find("spin button", "Page:", preview).queryValue()
    assert page.currentValue == 2, "the form's first page is empty"
    program.choose("Zoom:", "150 %", preview)
    program.press_keys("Page_Down")
    assert page.currentValue == 2, "the page goes on"
    program.press_keys("Page_Up")
    program.press_keys("F9")
    program.find("list", "Thumbnails", preview)
    program.press_keys("Ctrl+f")
    program.find("text", "Find:", preview)
    program.type("vmc")
    program.find("label", "1 of 28", preview)
    program.press_keys("F3")
    program.find("label", "2 of 28", preview)
    program.window("Print Preview - Form 2", "found")
    program.press_keys("Escape")
    wait_for("the end of the search", lambda: not program.has("text", "Find:"))
    program.press_keys("Home")
    wait_for("the first page", lambda: page.currentValue == 1)
    program.press_keys("Escape")
    program.gone("Print Preview - Form 2")
    assert program.has("label", f"Form 4 VBLK01 saved as {FILE}"), "what was only looked at is not printed"


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        program.restore("example.qff")
        print_to_file(program, fresh.parent)
        look_at_pages(program)
        program.menu("Exit")
        program.press("No", program.window("Warning"))
        assert program.ended() == 0


if __name__ == "__main__":
    run_main(main)

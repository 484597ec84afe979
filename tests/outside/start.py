"""start.py PROGRAMS PICTURES: from the first start to the example's preview with two keys, and back to it later."""

from desktop import fresh_program, run_main, wait_for

RETURN = 0xFF0D  # its X symbol
DOWN = 0xFF54
PREVIEW = "Print Preview - Data Package ZA101"


def leave(program, saves):
    program.menu("Exit")
    if saves:
        program.press("No", program.window("Warning"))
    assert program.ended() == 0


def open_first(program, role, name):
    """Two keys from what has the focus to the preview."""
    program.focus(role, name)
    program.stroke(RETURN)
    program.focus("push button", "Preview All Forms")
    program.stroke(RETURN)
    program.press("Close", program.window(PREVIEW))
    program.gone(PREVIEW)


def look_around(program):
    program.find("table cell", "Ready")
    program.find("table cell", "2 warnings")
    program.window("QFR Forms", "batch")
    program.stroke(ord("\t"))


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        program.window("QFR Forms", "start")
        open_first(program, "push button", "Open Example")
        look_around(program)
        leave(program, saves=True)

        program = program.again()
        program.window("QFR Forms", "start again")
        open_first(program, "table cell", "example.qff")
        leave(program, saves=True)

        (fresh / "example").rename(fresh / "moved")
        program = program.again()
        program.find("table cell", "is missing")
        program.window("QFR Forms", "start without the example")
        program.stroke(RETURN)
        program.press("OK", program.window("File Not Found"))
        program.gone("File Not Found")
        leave(program, saves=False)


if __name__ == "__main__":
    run_main(main)

"""start.py PROGRAMS PICTURES: from the first start to the example's preview with two keys, and back to it later."""

from desktop import fresh_program, run_main, wait_for

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


def look_around(program):
    program.find("table cell", "Ready")
    program.find("table cell", "2 warnings")
    program.window("QFR Forms", "batch")
    program.press_keys("Tab")


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        program.window("QFR Forms", "start")
        open_first(program, "push button", "Open Example")
        look_around(program)
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

"""entries.py PROGRAMS PICTURES: what the entry dialogs say and take back, as a screen reader hears it."""

from desktop import fresh_program, run_main, wait_for


def walk_headers(program):
    program.menu("Forms", "Form 1 Volatile Organics Analysis")
    header = program.window("Form 1 Header")
    program.find("label", "1 of 10", header)
    for key, places in ("Page_Down", range(2, 11)), ("Page_Up", range(9, 2, -1)):
        for place in places:
            program.press_keys(f"Ctrl+{key}")
            program.find("label", f"{place} of 10", header)
    assert program.text("ZOV Sample Number", header) == "ZA101"
    program.press("Next Sample", header)
    program.find("label", "4 of 10", header)
    program.press("Previous Sample", header)
    program.find("label", "3 of 10", header)

    number = program.find("text", "ZOV Sample Number", header)
    for button, shown, place in ("Undo", "ZA101", 3), ("Go To It", "ZA103", 5):
        number.queryComponent().grabFocus()
        program.type("ZA103")
        program.find("label", "ZA101 renamed to ZA103, as another sample is called", header)
        program.window("Form 1 Header", f"Form 1 Header, {button}")
        program.press(button, header)
        wait_for("the end of the renaming", lambda: not program.has("push button", "Undo"))
        program.find("label", f"{place} of 10", header)
        assert program.text("ZOV Sample Number", header) == shown
    program.choose("ZOV Sample Number", "ZA101", header)
    program.find("label", "3 of 10", header)
    program.press("Exit", header)
    program.gone("Form 1 Header")


def delete_and_undo(program):
    program.menu("Forms", "Form 1 Tentative Identified Compounds")
    header = program.window("Form 1 TIC Header")
    program.choose("ZOV Sample Number", "ZA102", header)
    program.press("Enter TICs", header)
    tics = program.window("Tentatively Identified Compound Input")
    program.press("Delete Row", tics)
    wait_for("the end of the row", lambda: not program.has("table cell", "1,2-dichlorotetrafluoroethane"))
    program.press("Undo", tics)
    program.find("table cell", "1,2-dichlorotetrafluoroethane", tics)
    program.window("Tentatively Identified Compound Input", "TICs, undone")
    program.press("Cancel", tics)
    program.gone("Tentatively Identified Compound Input")
    program.press("Exit", header)
    program.gone("Form 1 TIC Header")


def hear_verdicts(program):
    program.menu("Forms", "Form 5 Instrument Performance Check")
    tune = program.window("Instrument Performance Check")
    base_peak = program.find("table cell", "100.0", tune)
    assert base_peak.description == "In range: Base peak, 100% relative abundance", base_peak.description
    program.click(base_peak)
    for typed, verdict in (("99", "The base peak is 100% by definition. Form V prints any other value without a flag."), ("x", "Not a number")):
        program.type(typed)
        wait_for(verdict, lambda expected=verdict: base_peak.description == expected)
    program.window("Instrument Performance Check", "Instrument Performance Check, verdicts")
    program.press("Cancel", tune)
    program.gone("Instrument Performance Check")


def hear_sources(program):
    program.menu("Forms", "Form 8 Internal Standard Summary")
    summary = program.window("Internal Standard Summary Input")
    program.find("label", "from check report vstd050c.check", summary)
    program.find("label", "first from calibration report voa0516.cal", summary)
    program.press("Cancel", summary)
    program.gone("Internal Standard Summary Input")


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, _):
        program.restore("example.qff")
        walk_headers(program)
        delete_and_undo(program)
        hear_verdicts(program)
        hear_sources(program)
        program.menu("Forms", "Form 4 Method Blank Summary")
        program.press("Cancel", program.window("Method Blank Summary Comment"))


if __name__ == "__main__":
    run_main(main)

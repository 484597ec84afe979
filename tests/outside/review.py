"""review.py PROGRAMS PICTURES: ten mistakes in the example, each found, reached and mended from the review."""

from desktop import fresh_program, run_main, wait_for

# What is wrong in the batch file; what the review says of it; where Go To leads, what is typed there, and what
# closes that window. In the order of the review.
MISTAKES = [
    ("-01;Fairhaven Analytical", "-01;Lab", 'Lab Name is "Lab", as the dialog has it at first.',
     "Form 1 Header", "Fairhaven Analytical", "Exit"),
    ("-02;Fairhaven Analytical;TQW-05-0417", "-02;Fairhaven Analytical;TQW-05-0471",
     'Contract is "TQW-05-0471"; most samples have "TQW-05-0417".', "Form 1 Header", "TQW-05-0417", "Exit"),
    ("ZA104.D;LOW", "ZA104.D;LOUD", 'Level is "LOUD", none of TRACE, LOW and MED.', "Form 1 Header", "LOW", "Exit"),
    ("12:46;N/A;VOCOL;0.25;1;N/A;N/A;5.0;ug/L", "12:46;N/A;VOCOL;0.25;1;N/A;N/A;5.0;ug/kg",
     'Unit of Concentration is "ug/kg" for WATER.', "Form 1 Header", "ug/L", "Exit"),
    ("ZA106.D;LOW;05/13/2005 14:45", "ZA106.D;LOW;05/19/2005 14:45",
     "Received 05/19/2005 14:45 and analyzed 05/18/2005 13:18, before it was there.",
     "Form 1 Header", "051320051445", "Exit"),
    ("78-78-4;2-methylbutane;2.21", ";2-methylbutane;2.21",
     "Row 1 lacks a CAS number, name, retention time or concentration.",
     "Tentatively Identified Compound Input", "78-78-4", "OK"),
    ("period had ended.", "period had ended" + ", and so on" * 8,
     '"ZA103DL was analyzed after the 12-hour period had ended' + ", and so on" * 8 + '" runs off the page.',
     "Method Blank Summary Comment", "Short.", "OK"),
    ("46.9;100.0", "46.9;99.0", "m/e 95 is 99.0, and the base peak is 100.",
     "Instrument Performance Check", "100.0", "OK"),
    ("05/16/2005 09:41;05/16/2005 11:49;V", "05/16/2005 12:41;05/16/2005 11:49;V",
     "Form VI's entry has 05/16/2005 12:41 for the first standard, and the levels' raw data 05/16/2005 09:41.",
     "Initial Calibration Data", "051620050941", "OK"),
    ("vstd050cc;vstd050c.d;05/18/2005 08:46;05/16/2005;", "vstd050xx;vstd050c.d;05/18/2005 08:46;05/16/2005;",
     "Form VIII's entry has vstd050xx for the sample number of the standard, and Form VII's entry vstd050cc.",
     "Internal Standard Summary Input", "vstd050cc", "OK"),
]


def plant(batch):
    text = batch.read_text(encoding="utf-8")
    for right, wrong, *_ in MISTAKES:
        assert text.count(right) == 1, right
        text = text.replace(right, wrong)
    batch.write_text(text, encoding="utf-8")


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        plant(fresh / "example" / "example.qff")
        program.restore("example.qff")
        program.menu("Reports", "Review Batch...")
        review = program.window("Review Batch")
        program.choose("Severity:", "Errors", review)
        for _, _, sentence, title, text, button in MISTAKES:
            program.find("table cell", sentence)  # the first that is left, and so the chosen one
            program.press("Go To", program.window("Review Batch", "Review Batch, errors"))
            window = program.window(title)
            program.type(text)
            program.press(button, window)
            program.gone(title)
            program.window("Review Batch", "Review Batch, mended")
            wait_for(f"the end of {sentence}", lambda: not program.has("table cell", sentence))
        program.find("label", "0 errors, 14 warnings, 9 notes. Shown: 0.")
        program.choose("Severity:", "Errors and warnings", review)
        program.press("Close", review)
        program.gone("Review Batch")
        program.menu("Reports", "Print All Forms...")
        program.press("Cancel", program.window("Print All Forms"))


if __name__ == "__main__":
    run_main(main)

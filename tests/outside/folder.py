"""folder.py PROGRAMS PICTURES: a folder of reports becomes a batch, with the programs in PROGRAMS.

The batch must be the one that qfrbatch makes of the same files."""

import shutil
import subprocess

from desktop import fresh_program, run_main


def make_folder(fresh, folder):
    """The example's reports under names of another case, and what lies about in such a folder."""
    folder.mkdir()
    for file in (fresh / "example").iterdir():
        if file.suffix in (".PRN", ".CAL", ".CHECK", ".D"):
            shutil.copy(file, folder / (file.name.lower() if file.name.startswith("ZA") else file.name))
    shutil.copy(folder / "za101.prn", folder / "cut.prn")
    with (folder / "cut.prn").open("r+b") as cut:
        cut.truncate(300)
    (folder / "notes.txt").write_text("Date of the run: Friday\n", encoding="utf-8")


def choose(program, folder):
    program.menu("Data Files", "Load Folder...")
    dialog = program.window("Choose Folder")
    program.enter("Directory:", str(folder), dialog)
    program.press("Choose", dialog)
    program.gone("Choose Folder")


def load(program, folder, answer):
    choose(program, folder)
    told = program.window("Files to Look At")
    assert program.find("table cell", "cut.prn", told)
    program.press("OK", told)
    program.gone("Files to Look At")
    files = program.window("Load Files", f"proposal {answer}")
    assert program.text("Lab Blank:", files) == str(folder / "vblk01.prn").lower()
    assert program.text("Continuing Cal:", files) == str(folder / "vstd050c.check").lower()
    program.press(answer, files)
    program.gone("Load Files")


def main(programs, pictures):
    with fresh_program(programs, pictures) as (program, fresh):
        folder = fresh.parent / "Batch07"
        make_folder(fresh, folder)
        load(program, folder, "Cancel")
        assert not program.has("label", "Samples: 9")
        load(program, folder, "OK")
        program.find("label", "Samples: 9")
        program.menu("Data Files", "Save Batch")
        save = program.window("Save As")
        program.enter("File name:", str(fresh.parent / "made.qff"), save)
        program.press("Save", save)
        program.press("OK", program.window(" "))
        program.menu("Exit")
        program.press("No", program.window("Warning"))
        assert program.ended() == 0
        expected = fresh.parent / "expected.qff"
        subprocess.run([fresh / "qfrbatch", "load", "--blank", folder / "VBLK01.PRN",
                        "--cal", folder / "VOA0516.CAL", "--check", folder / "VSTD050C.CHECK",
                        "-o", expected, folder / "VHBLK01.PRN", *folder.glob("za*.prn")], check=True)
        made = (fresh.parent / "made.qff").read_text(encoding="utf-8")
        # Which files are the batch's; the rest is for entries.
        assert made.splitlines()[:13] == expected.read_text(encoding="utf-8").splitlines()[:13]


if __name__ == "__main__":
    run_main(main)

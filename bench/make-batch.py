#!/usr/bin/env python3
"""Makes a batch of any size out of the example's: its samples again and again, under other names.

    bench/make-batch.py FOLDER COUNT

writes FOLDER/batch.qff and the reports that it names: about 3.5 pages a sample.
"""
import pathlib
import shutil
import sys

EXAMPLE = pathlib.Path(__file__).resolve().parent.parent / "example"
FILES = ["za101", "za102", "za103", "za104", "za105", "za106", "za107"]


def records(lines, count):
    """Each record's lines by its report's name, and what follows them."""
    found = {}
    for _ in range(count):
        tics = int(lines[2])
        name = lines[0].split(";")[0].rsplit("\\", 1)[1].removesuffix(".prn")
        found[name], lines = lines[:3 + tics], lines[3 + tics:]
    return found, lines


def main():
    folder, count = pathlib.Path(sys.argv[1]), int(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for file in EXAMPLE.iterdir():
        shutil.copyfile(file, folder / file.name)
    lines = (EXAMPLE / "example.qff").read_text(encoding="ascii").splitlines()
    head, blank, reports = lines[:4], lines[4], int(lines[5])
    calibration = lines[6 + reports:8 + reports]
    samples, rest = records(lines[9 + reports:], int(lines[8 + reports]))

    # The laboratory blank has a record too.
    names, written = [], list(samples["vblk01"])
    for i in range(count):
        file, name = FILES[i % len(FILES)], f"s{i:06}"
        text = (EXAMPLE / f"{file.upper()}.PRN").read_text(encoding="ascii")
        (folder / f"{name}.prn").write_text(text.replace(file.upper(), name.upper()))
        names.append(f"c:\\batch\\{name}.prn")
        written += [line.replace(file, name).replace(file.upper(), name.upper())
                    for line in samples[file]]
    batch = head + [blank, str(count)] + names + calibration + [str(count + 1)] + written + rest
    (folder / "batch.qff").write_text("\n".join(batch) + "\n", encoding="ascii")


main()

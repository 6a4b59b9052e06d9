#!/usr/bin/env python3
"""rules.py PROGRAM: an index of the program breaks no rule of conformance.py, and each rule finds the
file that was made to break it."""
import copy
import json
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.append(str(Path(__file__).parents[2] / "examples"))

import conformance  # noqa: E402
from broken import BROKEN, BYTES  # noqa: E402
from pdffile import Pdf  # noqa: E402
from recipes.tables import Field, write_table  # noqa: E402

POINTED = "\u05D1\u05B0\u05BC\u05D0\u05B5\u05E8"  # Hebrew with points.


def write(folder, pdf):
    (folder / "edited.json").write_text(json.dumps(pdf.json))
    done = subprocess.run(["qpdf", "--json-input", "--stream-data=preserve", "--newline-before-endstream",
                           "edited.json", "edited.pdf"], cwd=folder, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT)
    assert done.returncode in (0, 3), done.stdout
    return folder / "edited.pdf"


def main(program):
    faults = []
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        good = make(program, folder)
        faults += ["the index: %s: %s" % one for one in conformance.check(good)]
        pdf = Pdf(good)
        told = [one.get("/ActualText") for _, one, parent in conformance.elements(pdf)
                if parent == "/LBody"]
        if told.count("u:" + POINTED) != 1:
            faults.append("a name in pieces is not told once: %s" % told)
        faults += ["rewritten: %s: %s" % one for one in conformance.check(write(folder, pdf))]
        for rule, too, edit in BROKEN:
            broken = copy.deepcopy(pdf)
            edit(broken)
            faults += judge(rule, too, conformance.check(write(folder, broken)))
        for rule, old, new in BYTES:
            changed = folder / "changed.pdf"
            changed.write_bytes(good.read_bytes().replace(old, new))
            faults += judge(rule, ("6.2.3",), conformance.check(changed))
    print("\n".join(faults) or "%d broken files found" % (len(BROKEN) + len(BYTES)))
    return 1 if faults else 0


def judge(rule, too, found):
    names = {name for name, _ in found}
    if rule not in names or names - {rule, *too}:
        yield "made to break %s, found %s" % (rule, sorted(found)[:5])


def make(program, folder):
    """An index with letters, a character of private use, one that no font has, one that shows
    nothing, and letters of several glyphs in a line to the left."""
    rows = [("Abbey", 1, 1, 1), ("Absent\u0378", 2, 1, 1), ("Broad\uE001way", 1, 2, 2),
            ("Co\uFEFFrk", 1, 2, 2), (POINTED, 2, 2, 2)]
    fields = [Field("LISTING", "C")] + [Field(one, "N", 3) for one in ("PAGE", "ROW", "COLUMN")]
    write_table(folder / "names.dbf", fields, rows, "utf-8")
    subprocess.run([program, "make", "names.dbf", "-o", "names.pdf", "--locale", "en-US"],
                   cwd=folder, check=True, stderr=subprocess.PIPE)
    return folder / "names.pdf"


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

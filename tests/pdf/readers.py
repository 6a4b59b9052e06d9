#!/usr/bin/env python3
"""readers.py PROGRAM TABLE LOCALE [CLASSPATH]: what readers of others say to the index of a table. With
the class path of PDFBox, its preflight too."""
import json
import os
import re
import subprocess
import sys
import tempfile

import conformance
from pdffile import Pdf

# What PDF/A-1, the only part that preflight knows, asks and PDF/A-2 does not: a set of glyphs for
# each subset, and colour profiles of an older version.
ONLY_IN_PART_1 = ("CIDSet entry is missing", "Invalid version of the ICCProfile")

# The first of the scripts to the left, which pdfinfo tells as they look.
LEFTWARD = "\u0590"


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    return done.returncode, done.stdout, done.stderr


def plain(text):
    return " ".join(text.replace("$$DOTS", "").replace("\u2060", "").replace("\u200c", "").split())


def heard_listings():
    """Name and references of each listing, as the structure tells them."""
    kind, listings = "", []
    for line in run("pdfinfo", "-struct-text", "index.pdf")[1].splitlines():
        text = re.fullmatch(r'\s*"(.*)"', line)
        if not text and line.strip() and line.split()[0] != "Span":
            kind = line.split()[0]
        if text and kind in ("LBody", "Reference"):
            listings[-1][kind == "Reference"] += text[1]
        if kind == "LI" and not text:
            listings.append(["", ""])
    return [[plain(one) for one in listing] for listing in listings]


def shown(program):
    return json.loads(run(program, "show", "index.json", "--json")[1])


def stored_listings(index):
    return [[plain(one["cells"][column]) for column in ("Listing", "Page")]
            for one in index["listings"]]


def reading_order(expected):
    heard = heard_listings()
    for number, (one, other) in enumerate(zip(expected, heard)):
        if one != other and (max(one[0]) < LEFTWARD or sorted(one[0]) != sorted(other[0])):
            yield "listing %d is %s, heard is %s" % (number, one, other)
            break
    if len(heard) != len(expected) or not expected:
        yield "%d listings, heard are %d" % (len(expected), len(heard))
    yield from ("heard: " + line for line in heard if ".." in str(line))


def syntax():
    status, told, errors = run("qpdf", "--check", "index.pdf")
    if status != 0 or "No syntax or stream encoding errors" not in told:
        yield told + errors


def other_readers(expected):
    text = run("pdftotext", "index.pdf", "-")[1]
    status, drawn, errors = run("mutool", "draw", "-q", "-F", "txt", "-o", "-", "index.pdf")
    errors = errors.replace("warning: ICC support is not available\n", "")
    if status != 0 or errors:
        yield "mutool: " + errors
    for name in (one for one, _ in expected if max(one) < LEFTWARD):
        for word in re.findall(r"\w+", name):
            if word not in drawn or word not in text:
                yield "not found: " + name
                return


def artifacts():
    """Running heads and page numbers are told as header and footer on every page."""
    pdf = Pdf("index.pdf")
    for page in pdf.pages():
        for kind in (b"Header", b"Footer"):
            if b"/Artifact<</Type/Pagination/Subtype/%s>>BDC" % kind not in pdf.contents(page):
                yield "%s has no %s" % (page, kind)


def preflight(classpath):
    run("qpdf", "--object-streams=disable", "--force-version=1.4", "--stream-data=preserve",
        "--newline-before-endstream", "index.pdf", "part1.pdf")
    with open("part1.pdf", "r+b") as file:
        data = file.read().replace(b"<pdfaid:part>2<", b"<pdfaid:part>1<")
        file.seek(0)
        file.write(data)
    told = run("java", "-cp", classpath, "org.apache.pdfbox.preflight.Validator_A1b", "part1.pdf")[1]
    if not told.startswith("The file part1.pdf is "):
        yield "preflight: " + told
    for line in told.splitlines()[1:]:
        if line.strip() and not any(one in line for one in ONLY_IN_PART_1):
            yield "preflight: " + line


def main(program, table, locale, classpath=""):
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        return check(program, table, locale, classpath)


def check(program, table, locale, classpath):
    status, _, errors = run(program, "make", table, "-o", "index.pdf", "--document", "index.json",
                            "--locale", locale)
    if status:
        sys.exit(errors)
    faults = ["%s: %s" % one for one in conformance.check("index.pdf")]
    expected = stored_listings(shown(program))
    faults += [*syntax(), *reading_order(expected), *other_readers(expected), *artifacts()]
    faults += preflight(classpath) if classpath else []
    run(program, "make", table, "-o", "linked.pdf", "--locale", locale, "--maps", "index.pdf")
    faults += ["linked: %s: %s" % one for one in conformance.check("linked.pdf")]
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

#!/usr/bin/env python3
"""appended.py PROGRAM PROFILE: what a file claims, and how its structure goes on, when indexes of different
kinds stand behind atlases of different kinds. The profile is one of inks."""
import copy
import subprocess
import sys
import tempfile
import zlib
from pathlib import Path

sys.dont_write_bytecode = True
import conformance  # noqa: E402
from broken import drop, first, packet, stream  # noqa: E402
from metadata_rules import NAMESPACE, metadata  # noqa: E402
from pdffile import Pdf  # noqa: E402
from rules import make, write  # noqa: E402

PLAIN = (b"<pdfaid:part>2</pdfaid:part><pdfaid:conformance>A</pdfaid:conformance>"
         b"<pdfuaid:part>1</pdfuaid:part>")


def part_three(pdf):
    """Only text that is Unicode: neither tags nor access."""
    packet(PLAIN, b"<pdfaid:part>3</pdfaid:part><pdfaid:conformance>U</pdfaid:conformance>")(pdf)
    for key in ("/StructTreeRoot", "/MarkInfo"):
        pdf.root.pop(key)


def packed(pdf):
    """The claims as attributes of a filtered packet in UTF-16."""
    attributes = b" pdfaid:part='2'\n pdfaid:conformance='A' pdfuaid:part='1'"
    packet(PLAIN, b"")(pdf)
    packet(b"rdf:about=\"\" xmlns:dc", b"rdf:about=\"\"" + attributes + b" xmlns:dc")(pdf)
    stream(pdf, pdf.root["/Metadata"], lambda data: zlib.compress(data.decode().encode("utf-16-be")))
    pdf.get(pdf.root["/Metadata"])["/Filter"] = "/FlateDecode"


def inks(pdf):
    profile = first(pdf, "/S", "/GTS_PDFA1")["/DestOutputProfile"]
    stream(pdf, profile, lambda _: Path(sys.argv[2]).read_bytes())
    pdf.get(profile)["/N"] = 4


def two_documents(pdf):
    root = pdf.get(pdf.root["/StructTreeRoot"])
    pdf.objects["obj:999999 0 R"] = {"value": {"/S": "/Document", "/P": pdf.root["/StructTreeRoot"]}}
    root["/K"] = [root["/K"], "999999 0 R"]


def print_version(pdf):
    packet(PLAIN, b"<x:GTS_PDFXVersion xmlns:x='http://ns.adobe.com/pdfx/1.3/'>PDF/X-3"
                  b"</x:GTS_PDFXVersion>")(pdf)
    pdf.get(pdf.trailer["/Info"]).update({"/GTS_PDFXVersion": "u:PDF/X-3", "/Trapped": "/False"})


# Options of the program.
INDEXES = {"tags": ("--locale", "en-US"), "no language": ("--locale", "C"), "no tags": ("--no-tags",)}

# How the atlas is made, an edit, and what is claimed behind which index stands; the rest claim nothing.
ATLASES = (
    ("tags", None, {"tags": "A-2A UA-1", "no language": "A-2B"}),
    ("no language", None, {"tags": "A-2B", "no language": "A-2B"}),
    ("no tags", None, {}),
    ("press", None, {}),
    ("tags", part_three, {"tags": "A-3U", "no language": "A-3B"}),
    ("tags", packed, {"tags": "A-2A UA-1", "no language": "A-2B"}),
    ("tags", packet(b"<pdfaid:part>2", b"<pdfaid:part>1"), {"tags": "UA-1"}),
    ("tags", packet(b">2<", b">4<"), {"tags": "UA-1"}),
    ("tags", inks, {"tags": "UA-1"}),
    ("tags", drop(lambda pdf: pdf.root, "/OutputIntents"), {"tags": "UA-1"}),
    ("tags", lambda pdf: first(pdf, "/S", "/H1").update({"/S": "/H"}),
     {"tags": "A-2A", "no language": "A-2B"}),
    ("tags", two_documents, {"tags": "A-2A UA-1", "no language": "A-2B"}),
    ("tags", print_version, {}))


def claims(pdf):
    told = {}
    for one in metadata(pdf).iter():
        told.update({one.tag: one.text, **one.attrib})
    archive, access = ("{%s}" % NAMESPACE[one] for one in ("pdfaid", "pdfuaid"))
    texts = ["A-" + told.pop(archive + "part") + told.pop(archive + "conformance", "")] if (
        archive + "part") in told else []
    texts += ["UA-" + told.pop(access + "part")] if access + "part" in told else []
    return " ".join(texts + [one for one in [*told, *(pdf.get(pdf.trailer["/Info"]))]
                             if archive in one or "GTS_" in one])


def kids(element):
    held = element.get("/K", [])
    return held if isinstance(held, list) else [held]


def structure(pdf):
    """The types of the root's kids and those of the first one; the element that a wrong parent has."""
    root = pdf.root.get("/StructTreeRoot")
    open_elements = [root] if root else []
    for one in open_elements:  # It grows.
        for kid in kids(pdf.get(one)):
            inner = pdf.get(kid)
            if isinstance(inner, dict) and "/S" in inner:
                open_elements.append(kid)
                if inner["/P"] != one:
                    return "%s has another parent" % kid
    types = [pdf.get(one)["/S"] for one in kids(pdf.get(root) or {})]
    return types, sum(pdf.get(one).get("/S") == "/Part" for one in kids(pdf.get(
        kids(pdf.get(root))[0]))) if types else 0


def expected_structure(atlas, index):
    had, has = structure(atlas), structure(index)
    if not had[0] or not has[0]:
        return had if had[0] else has
    return (had[0], 1) if len(had[0]) == 1 else (had[0] + ["/Document"], 0)


def marked(pdf):
    return pdf.root.get("/MarkInfo", {}).get("/Marked", False)


def readers(path, folder):
    checked = subprocess.run(["qpdf", "--check", path], cwd=folder, stdout=subprocess.PIPE, text=True)
    told = subprocess.run(["pdfinfo", "-struct-text", path], cwd=folder, stdout=subprocess.DEVNULL,
                          stderr=subprocess.PIPE, text=True).stderr
    return (checked.stdout if checked.returncode else "") + told


def faults(book, atlas, index, expected):
    """What is asked, found and expected."""
    either = marked(atlas) or marked(index)
    suspects = marked(atlas) != marked(index)
    yield "claims", claims(book), expected
    yield "marks", book.root.get("/MarkInfo", {}), {
        **({"/Marked": True} if either else {}), **({"/Suspects": True} if suspects else {})}
    yield "structure", structure(book), expected_structure(atlas, index)
    for key in ("/Lang", "/ViewerPreferences"):
        yield key, book.root.get(key), atlas.root.get(key)


class Maker:
    def __init__(self, program, profile, folder):
        self.program, self.folder = program, folder
        self.options = {**INDEXES, "press": ("--press", profile)}
        make(program, folder)  # The table.
        self.alone = {kind: self.index(kind) for kind in self.options}

    def index(self, kind, *options):
        subprocess.run([self.program, "make", "names.dbf", "-o", "index.pdf", *self.options[kind], *options],
                       cwd=self.folder, check=True, stderr=subprocess.PIPE)
        return Pdf(self.folder / "index.pdf")

    def atlas(self, kind, edit):
        pdf = copy.deepcopy(self.alone[kind])
        (edit or (lambda _: None))(pdf)
        return Pdf(write(self.folder, pdf).rename(self.folder / "atlas.pdf"))

    def check(self, kind, edit, expected):
        atlas = self.atlas(kind, edit)
        for other in INDEXES:
            book, index = self.index(other, "--append-to", "atlas.pdf"), self.alone[other]
            name = "%s, %s, behind %s: " % (kind, getattr(edit, "__name__", ""), other)
            yield from (name + "%s: %s, expected %s" % one for one in faults(
                book, atlas, index, expected.get(other, "")) if one[1] != one[2])
            if edit is None and expected.get(other) == "A-2A UA-1":
                yield from (name + "%s: %s" % one for one in conformance.check(self.folder / "index.pdf"))
            if edit is not two_documents:
                yield from (name + line for line in readers("index.pdf", self.folder).splitlines())


def main(program, profile):
    with tempfile.TemporaryDirectory() as folder:
        maker = Maker(program, profile, Path(folder))
        found = [one for case in ATLASES for one in maker.check(*case)]
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

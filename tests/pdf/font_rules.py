"""Rules of fonts."""
import re
import struct

import pages
from rulebook import rule


@rule("31")
def fonts(pdf):
    for name, value in pdf.values():
        if value.get("/Type") == "/Font":
            yield from font(pdf, name, value)


def font(pdf, name, value):
    if value["/Subtype"] not in ("/Type0", "/Type3", "/CIDFontType0", "/CIDFontType2"):
        yield "6.2.11.2", name
        return
    if "/ToUnicode" not in value and value["/Subtype"] in ("/Type0", "/Type3"):
        yield "31-027", name
    elif "/ToUnicode" in value:
        for text in pages.code_map(pdf.data(value["/ToUnicode"]))[1].values():
            if not text or "\0" in text:
                yield "31-028", name
            if "\uFEFF" in text or "\uFFFE" in text:
                yield "31-029", name
    if value["/Subtype"] == "/Type3" and "/FontDescriptor" not in value:
        yield "ISO 32000-1, table 112", name
    if value["/Subtype"] != "/Type0":
        return
    inner, codes = pdf.get(value["/DescendantFonts"][0]), pdf.get(value["/Encoding"])
    if not isinstance(codes, dict):
        yield from () if codes in ("/Identity-H", "/Identity-V") else [("31-006", name)]
        return
    ours, theirs = inner["/CIDSystemInfo"], codes["/CIDSystemInfo"]
    for number, key in (("31-001", "/Registry"), ("31-002", "/Ordering")):
        if ours[key] != theirs[key]:
            yield number, name
    if ours["/Supplement"] < theirs["/Supplement"]:
        yield "31-003", name
    told_mode = re.search(rb"/WMode\s+(\d)", pdf.data(value["/Encoding"]))
    if codes.get("/WMode", 0) != int(told_mode[1] if told_mode else 0):
        yield "31-007", name
    if b"usecmap" in pdf.data(value["/Encoding"]) or "/UseCMap" in codes:
        yield "31-008", name
    descriptor = pdf.get(inner["/FontDescriptor"])
    if not {"/FontFile2", "/FontFile3"} & set(descriptor):
        yield "31-009", name
    elif inner["/Subtype"] == "/CIDFontType2":
        if "/CIDToGIDMap" not in inner:
            yield "31-005", name
        else:
            yield from widths(pdf, name, inner, descriptor)


def widths(pdf, name, inner, descriptor):
    """Compares widths with those of the TrueType program."""
    program = pdf.data(descriptor["/FontFile2"])
    tables = {program[at:at + 4]: struct.unpack(">II", program[at + 8:at + 16])
              for at in range(12, 12 + 16 * struct.unpack(">H", program[4:6])[0], 16)}
    short = lambda table, at: struct.unpack_from(">H", program, tables[table][0] + at)[0]
    size, many, glyphs = short(b"head", 18), short(b"hhea", 34), short(b"maxp", 4)
    places = pdf.data(inner["/CIDToGIDMap"])
    listed = iter(inner["/W"])
    for first in listed:
        for cid, width in enumerate(next(listed), first):
            glyph = struct.unpack_from(">H", places, 2 * cid)[0]
            if glyph >= glyphs:
                yield "31-011", "%s CID %d" % (name, cid)
            elif abs(short(b"hmtx", 4 * min(glyph, many - 1)) * 1000 / size - width) > 1:
                yield "31-016", "%s CID %d" % (name, cid)

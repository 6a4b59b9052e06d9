#!/usr/bin/env python3
"""conformance.py FILE...: the rules of PDF/A-2 (by clause) and PDF/UA-1 (by the failure conditions of
the Matterhorn protocol) that a machine can check, as far as the files of this writer can break them."""
import re
import struct
import sys
import xml.etree.ElementTree as xml

import pages
from pdffile import Pdf, text_of

RULES = []
NAMESPACE = {"dc": "http://purl.org/dc/elements/1.1/", "xmp": "http://ns.adobe.com/xap/1.0/",
             "pdfaid": "http://www.aiim.org/pdfa/ns/id/", "pdfuaid": "http://www.aiim.org/pdfua/ns/id/",
             "rdf": "http://www.w3.org/1999/02/22-rdf-syntax-ns#",
             "x": "adobe:ns:meta/", "xml": "http://www.w3.org/XML/1998/namespace",
             "pdfaExtension": "http://www.aiim.org/pdfa/ns/extension/",
             "pdfaSchema": "http://www.aiim.org/pdfa/ns/schema#",
             "pdfaProperty": "http://www.aiim.org/pdfa/ns/property#"}
STANDARD = set("""Document Part Art Sect Div BlockQuote Caption TOC TOCI Index NonStruct Private P H H1
    H2 H3 H4 H5 H6 L LI Lbl LBody Table TR TH TD THead TBody TFoot Span Quote Note Reference BibEntry
    Code Link Annot Ruby RB RT RP Warichu WT WP Figure Formula Form""".split())


def rule(*names):
    """A rule yields what breaks it; with several names each as (name, what)."""
    def add(check):
        RULES.append((names, check))
        return check
    return add


def check(path):
    """All violations as (rule, what)."""
    pdf = Pdf(path)
    found = []
    for names, one in RULES:
        found += [w if isinstance(w, tuple) else (names[0], w) for w in one(pdf)]
    return found


def dates(pdf_date):
    return re.sub(r"\D", "", pdf_date)


def metadata(pdf):
    data = pdf.data(pdf.root.get("/Metadata"))
    return xml.fromstring(data.decode()) if data else None


def told(root, name):
    """The text of a property, of its first alternative where it has several."""
    prefix, word = name.split(":")
    found = root.find(".//{%s}%s" % (NAMESPACE[prefix], word)) if root is not None else None
    return "" if found is None else "".join(found.itertext())


def elements(pdf, name="", parent=None):
    """Elements of the structure in reading order, as (object, dictionary, type of the parent)."""
    if not name:
        kids = pdf.get(pdf.root.get("/StructTreeRoot")) or {}
    else:
        kids = pdf.get(name)
        yield name, kids, parent
    if "/K" not in kids:
        return
    inner = kids["/K"] if isinstance(kids["/K"], list) else [kids["/K"]]
    for kid in inner:
        if isinstance(kid, str) and "/S" in (pdf.get(kid) or {}):
            yield from elements(pdf, kid, kids.get("/S"))


@rule("6.1.2")
def header(pdf):
    if not re.match(rb"%PDF-1\.[0-7]\r?\n%[\x80-\xff]{4}", pdf.bytes):
        yield "header"


@rule("6.1.3", "26-001")
def trailer(pdf):
    if "/ID" not in pdf.trailer:
        yield "6.1.3", "no identifier"
    if b"/Encrypt" in pdf.bytes:
        yield "6.1.3", "encryption"
    if not re.search(rb"%%EOF\r?\n?\Z", pdf.bytes):
        yield "6.1.3", "data behind the end"


@rule("6.1.7.1", "6.1.7.2")
def streams(pdf):
    if re.search(rb"/(LZWDecode|Crypt)\b", pdf.bytes):
        yield "6.1.7.2", "filter"
    for name, held in pdf.objects.items():
        if {"/F", "/FFilter", "/FDecodeParms"} & set(held.get("stream", {}).get("dict", {})):
            yield "6.1.7.1", name


@rule("6.1.13")
def limits(pdf):
    def values(value):
        for one in value.values() if isinstance(value, dict) else value:
            if isinstance(one, (dict, list)):
                yield from values(one)
            else:
                yield one
    if len(pdf.objects) > 8388608:
        yield "objects"
    for name, value in pdf.values():
        for one in list(value) + list(values(value)):
            if isinstance(one, str) and one[:1] == "/" and len(one.encode()) > 128:
                yield name + " name"
            if isinstance(one, str) and one[:2] in ("u:", "b:") and (
                    len(one) / 2 if one[0] == "b" else 2 * len(one) if not one.isascii()
                    else len(one) - 2) > 32767:
                yield name + " string"
            if isinstance(one, int) and abs(one) > 2**31:
                yield name + " integer"
        box = value.get("/MediaBox")
        if box and not all(3 <= side <= 14400 for side in (box[2] - box[0], box[3] - box[1])):
            yield name + " page size"


@rule("6.2.3")
def intent(pdf):
    for one in map(pdf.get, pdf.root.get("/OutputIntents", [])):
        profile = pdf.data(one.get("/DestOutputProfile")) or b""
        if one.get("/S") == "/GTS_PDFA1" and profile[36:40] == b"acsp" and profile[8] <= 4 and (
                profile[16:20], pdf.get(one["/DestOutputProfile"])["/N"]) in (
                    (b"RGB ", 3), (b"CMYK", 4), (b"GRAY", 1)):
            return
    yield "no output intent with a profile"


@rule("6.2.8", "6.2.9", "30-001")
def external(pdf):
    for name, value in pdf.values():
        if value.get("/Subtype") == "/Image" and (
                value.get("/Interpolate") or {"/Alternates", "/OPI"} & set(value)):
            yield "6.2.8", name
        if value.get("/Subtype") == "/PS" or value.get("/Subtype2") == "/PS":
            yield "6.2.9", name
        if value.get("/Subtype") == "/Form" and "/Ref" in value:
            yield "30-001", name


@rule("6.3.2", "6.5.1", "6.8", "6.9", "6.10", "6.11", "25-001")
def never(pdf):
    for name, value in pdf.values():
        if value.get("/Subtype") in ("/Link", "/Widget", "/Text") and "/Rect" in value and (
                value["/Subtype"] != "/Popup" and value.get("/F", 0) & 0b100111 != 4):
            yield "6.3.2", name
        if value.get("/S") in ("/JavaScript", "/Launch", "/Sound", "/Movie", "/ResetForm",
                               "/ImportData", "/Hide", "/SetOCGState", "/Rendition", "/Trans",
                               "/GoTo3DView") or "/AA" in value:
            yield "6.5.1", name
        if value.get("/Type") == "/Page" and "/PresSteps" in value:
            yield "6.10", name
        if "/XFA" in value:
            yield "25-001", name
    for clause, words in (("6.8", "EmbeddedFiles"), ("6.9", "OCProperties"),
                          ("6.10", "AlternatePresentations"), ("6.11", "Requirements")):
        if "/" + words in {**pdf.root, **(pdf.get(pdf.root.get("/Names")) or {})}:
            yield clause, words


@rule("6.6.2.1", "06-001")
def packet(pdf):
    stream = pdf.get(pdf.root.get("/Metadata"))
    if not stream or stream.get("/Type") != "/Metadata":
        yield "06-001", "no metadata"
    elif "/Filter" in stream:
        yield "6.6.2.1", "compressed"


@rule("6.6.2.3")
def schemas(pdf):
    root = metadata(pdf)
    if root is None:
        return
    described = {one.text for one in root.iter("{%s}namespaceURI" % NAMESPACE["pdfaSchema"])}
    known = {url for prefix, url in NAMESPACE.items() if prefix != "pdfuaid"}
    for one in root.iter():
        space = one.tag[1:].partition("}")[0]
        if space not in known and space not in described:
            yield space


@rule("6.6.3")
def info(pdf):
    root, dictionary = metadata(pdf), pdf.get(pdf.trailer.get("/Info")) or {}
    for key, name, form in (("/Title", "dc:title", str), ("/Creator", "xmp:CreatorTool", str),
                            ("/CreationDate", "xmp:CreateDate", dates)):
        if form(text_of(dictionary.get(key, "u:"))) != form(told(root, name)):
            yield key


@rule("6.6.4", "06-002", "06-003")
def claims(pdf):
    root = metadata(pdf)
    if told(root, "pdfaid:part") != "2" or told(root, "pdfaid:conformance") != "A":
        yield "6.6.4", "claim"
    if told(root, "pdfuaid:part") != "1":
        yield "06-002", "claim"
    if not told(root, "dc:title").strip():
        yield "06-003", "title"


@rule("6.7.2.2", "01-007", "07-001", "07-002")
def catalog(pdf):
    marks, shown = pdf.root.get("/MarkInfo", {}), pdf.root.get("/ViewerPreferences", {})
    if not marks.get("/Marked"):
        yield "6.7.2.2", "not marked"
    if marks.get("/Suspects"):
        yield "01-007", "suspects"
    if "/DisplayDocTitle" not in shown:
        yield "07-001", "title"
    elif not shown["/DisplayDocTitle"]:
        yield "07-002", "title"


@rule("6.7.4", "11-006")
def language(pdf):
    if "/Lang" not in pdf.root:
        yield "11-006", "none"
    for name, value in pdf.values():
        if "/Lang" in value and not re.fullmatch(r"u:[a-zA-Z]{1,8}(-[a-zA-Z0-9]{1,8})*", value["/Lang"]):
            yield "6.7.4", name + value["/Lang"]


@rule("02-001", "02-003", "02-004", "6.7.3.3", "09-005", "14-002", "14-003", "14-007")
def structure(pdf):
    tree = pdf.get(pdf.root.get("/StructTreeRoot"))
    if not tree:
        yield "6.7.3.3", "none"
        return
    roles = tree.get("/RoleMap", {})
    for one in roles:
        if one[1:] in STANDARD:
            yield "02-004", one
        chain = [one]
        while chain[-1] in roles and chain.count(chain[-1]) == 1:
            chain.append(roles[chain[-1]])
        if chain.count(chain[-1]) > 1:
            yield "02-003", one
    level, kinds = 0, set()
    for name, value, parent in elements(pdf):
        kind = value["/S"]
        while kind in roles and kind[1:] not in STANDARD and roles[kind] != kind:
            kind = roles[kind]
        if kind[1:] not in STANDARD:
            yield "02-001", name + kind
        if (kind == "/LI") != (parent == "/L") or kind in ("/LBody", "/Lbl") and parent != "/LI":
            yield "09-005", name
        if re.fullmatch("/H[1-6]?", kind):
            kinds.add(kind == "/H")
        if re.fullmatch("/H[1-6]", kind):
            if level == 0 and kind != "/H1":
                yield "14-002", name
            elif int(kind[2]) > level + 1:
                yield "14-003", name
            level = int(kind[2])
    if len(kinds) > 1:
        yield "14-007", "headings"


@rule("28-002", "28-008", "28-009", "28-011", "28-012")
def annotations(pdf):
    inside = {one["/Obj"]: element["/S"] for _, element in pdf.values() if "/S" in element
              for one in (element["/K"] if isinstance(element.get("/K"), list) else [element.get("/K")])
              if isinstance(one, dict) and "/Obj" in one}
    for page in pdf.pages():
        held = pdf.get(pdf.get(page).get("/Annots", []))
        if held and "/Tabs" not in pdf.get(page):
            yield "28-008", page
        elif held and pdf.get(page)["/Tabs"] != "/S":
            yield "28-009", page
        for one in held:
            link = pdf.get(one)["/Subtype"] == "/Link"
            if one not in inside:
                yield "28-002", str(one)
            elif link and inside[one] != "/Link":
                yield "28-011", one
            if link and "/Contents" not in pdf.get(one):
                yield "28-012", str(one)


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


rule("pages")(pages.check)

if __name__ == "__main__":
    broken = [(path, *one) for path in sys.argv[1:] for one in check(path)]
    for path, name, what in broken:
        print("%s: %s: %s" % (path, name, what))
    sys.exit(1 if broken else 0)

"""Rules of the file as such, and of what is never in it."""
import re

from rulebook import rule


@rule("6.1.2")
def header(pdf):
    if not re.match(rb"%PDF-1\.[0-7]\r?\n%[\x80-\xff]{4}", pdf.bytes):
        yield "header"


@rule("6.1.3")
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
    if re.search(rb"[^\r\n]endstream", pdf.bytes):
        yield "6.1.7.1", "no line end behind data"
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

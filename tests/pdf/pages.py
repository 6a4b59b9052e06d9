"""The rules of conformance.py on what pages show: operators, resources, marks and characters."""
import re

from pdffile import operators

KNOWN = set("""b B b* B* BDC BI BMC BT BX c cm CS cs d d0 d1 Do DP EI EMC ET EX f F f* G g gs h i ID j J
    K k l m M MP n q Q re RG rg ri s S SC sc SCN scn sh T* Tc Td TD Tf Tj TJ TL Tm Tr Ts Tw Tz v w W W* y
    ' \"""".split())
PAINTS = set("b B b* B* Do EI f F f* s S sh Tj TJ ' \"".split())


def code_map(data):
    """The bytes of codes, and what the codes stand for: texts, or numbers of glyphs."""
    text = data.decode("latin-1")
    lengths = {len(low) // 2: (int(low, 16), int(high, 16)) for low, high in re.findall(
        r"<(\w+)>\s*<(\w+)>", re.search(r"begincodespacerange(.*?)end", text, re.S)[1])}
    stands = {}
    for code, hexed, number in re.findall(r"(?m)^<(\w+)>\s*(?:<(\w*)>|(\d+))\s*$", text.split(
            "endcodespacerange", 1)[1]):
        stands[bytes.fromhex(code)] = int(number) if number else bytes.fromhex(hexed).decode("utf-16-be")
    return lengths, stands


class Font:
    def __init__(self, pdf, value):
        self.texts = code_map(pdf.data(value["/ToUnicode"]))[1] if "/ToUnicode" in value else {}
        self.glyphs, self.lengths, self.drawn = {}, {1: (0, 255)}, set()
        if value["/Subtype"] == "/Type3":
            place = 0
            for one in value["/Encoding"]["/Differences"]:
                place = one - 1 if isinstance(one, int) else place + 1
                if isinstance(one, str) and one in value["/CharProcs"] and one != "/.notdef":
                    self.drawn.add(bytes([place]))
        elif pdf.data(value["/Encoding"]):
            self.lengths, self.glyphs = code_map(pdf.data(value["/Encoding"]))
            inner = pdf.get(value["/DescendantFonts"][0])
            places = pdf.data(inner.get("/CIDToGIDMap"))
            for code, cid in self.glyphs.items():
                glyph = cid if places is None else int.from_bytes(places[2 * cid:2 * cid + 2], "big")
                if glyph != 0:
                    self.drawn.add(code)

    def codes(self, string):
        at = 0
        while at < len(string):
            for length, (low, high) in sorted(self.lengths.items()):
                if low <= int.from_bytes(string[at:at + length], "big") <= high:
                    break
            yield string[at:at + length]
            at += length


def private(text):
    return any("\uE000" <= one <= "\uF8FF" or one >= "\U000F0000" for one in text)


class Marks:
    """The marks that are open: kinds are content and artifact, or None for another."""

    def __init__(self):
        self.open = []

    def begin(self, name, properties):
        kind = "artifact" if name == "/Artifact" else "content" if "/MCID" in properties else None
        kinds = [one for one, _ in self.open]
        self.open.append((kind, "/ActualText" in properties))
        if kind == "artifact" and "content" in kinds:
            yield "01-003", name
        if kind == "content" and "artifact" in kinds:
            yield "01-004", name


def check(pdf):
    owners = {}
    for name, held in pdf.objects.items():
        value = held.get("value")
        if not isinstance(value, dict) or "/S" not in value or "/K" not in value:
            continue
        for kid in value["/K"] if isinstance(value["/K"], list) else [value["/K"]]:
            if isinstance(kid, int):
                owners[value["/Pg"], kid] = name[4:]
            elif isinstance(kid, dict) and "/MCID" in kid:
                owners[kid["/Pg"], kid["/MCID"]] = name[4:]
    parents = dict(entries(pdf, (pdf.get(pdf.root.get("/StructTreeRoot")) or {}).get("/ParentTree")))
    fonts = {}
    for number, page in enumerate(pdf.pages(), 1):
        yield from ((name, "page %d: %s" % (number, what))
                    for name, what in page_rules(pdf, page, owners, parents, fonts))


def entries(pdf, node):
    node = pdf.get(node) or {}
    for kid in node.get("/Kids", []):
        yield from entries(pdf, kid)
    yield from zip(node.get("/Nums", [])[::2], node.get("/Nums", [])[1::2])


def page_rules(pdf, page, owners, parents, fonts):
    value = pdf.get(page)
    if "/Resources" not in value:
        yield "6.2.2", "resources are inherited"
    named_fonts = pdf.get((pdf.get(value.get("/Resources")) or {}).get("/Font")) or {}
    own = pdf.get(parents.get(value.get("/StructParents"))) or []
    marks, depth, font = Marks(), 0, None
    for operator, operands in operators(pdf.contents(page)):
        if operator not in KNOWN:
            yield "6.2.2", operator
        depth += (operator == "q") - (operator == "Q")
        if depth > 28:
            yield "6.1.13", "q"
        if operator in ("k", "K"):
            yield "6.2.4.3", operator
        if operator in ("BMC", "BDC"):
            properties = operands[1] if len(operands) > 1 and isinstance(operands[1], dict) else {}
            yield from marks.begin(operands[0], properties)
            mark = int(properties.get("/MCID", -1))
            if mark >= 0 and not (mark < len(own) and own[mark] == owners.get((page, mark), 0)):
                yield "ISO 32000-1, 14.7.4.4", "mark %d" % mark
        if operator == "EMC":
            marks.open.pop()
        if operator in PAINTS and not {"artifact", "content"} & {kind for kind, _ in marks.open}:
            yield "01-005", operator
        if operator == "Tf":
            # Pages of two files may give the same name to different fonts.
            font = str(named_fonts.get(operands[0]))
            if operands[0] not in named_fonts:
                yield "6.2.2", operands[0]
            elif font not in fonts:
                fonts[font] = Font(pdf, pdf.get(named_fonts[operands[0]]))
        if operator in ("Tj", "TJ") and font in fonts:
            yield from text_rules(fonts[font], operands[0], any(told for _, told in marks.open))


def text_rules(font, operand, is_told):
    for string in operand if isinstance(operand, list) else [operand]:
        if not isinstance(string, bytes):
            continue
        if len(string) > 32767:
            yield "6.1.13", "string"
        for code in font.codes(string):
            text = font.texts.get(code, "")
            if not text:
                yield "10-001", code.hex()
            if code not in font.drawn:
                yield "31-030", code.hex()
            if private(text) and not is_told:
                yield "6.2.11.7.3", code.hex()

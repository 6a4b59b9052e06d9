"""Edits that break a good file, each one rule."""
import base64


def first(pdf, key, value):
    """The first dictionary with an entry."""
    return next(one for _, one in pdf.values() if one.get(key) == value)


def put(key, value):
    return lambda pdf: pdf.root.__setitem__(key, value)


def drop(of, key):
    return lambda pdf: of(pdf).pop(key)


def stream(pdf, reference, change):
    held = pdf.objects["obj:" + reference]["stream"]
    data = base64.b64decode(held["data"])
    assert change(data) != data, "nothing is changed"
    held["data"] = base64.b64encode(change(data)).decode()


def page(pdf):
    return pdf.get(next(pdf.pages()))


def content(old, new):
    return lambda pdf: stream(pdf, page(pdf)["/Contents"], lambda data: data.replace(old, new, 1))


def packet(old, new):
    return lambda pdf: stream(pdf, pdf.root["/Metadata"], lambda data: data.replace(old, new))


def font(pdf, kind="/Type0"):
    return first(pdf, "/Subtype", kind)


def unicode_of_letter(value):
    return lambda pdf: stream(pdf, font(pdf)["/ToUnicode"],
                              lambda data: data.replace(b"><0041>", b"><%s>" % value))


def tree(pdf):
    return pdf.get(pdf.root["/StructTreeRoot"])


def link(**entries):
    """Adds a link to the first page. Entries: Tabs of the page, and of the annotation."""
    def edit(pdf):
        if "Tabs" in entries:
            page(pdf)["/Tabs"] = entries["Tabs"]
        annotation = {"/Type": "/Annot", "/Subtype": "/Link", "/Rect": [0, 0, 9, 9], "/F": 4}
        annotation.update({"/" + key: value for key, value in entries.items() if key[0] in "FC"})
        pdf.objects["obj:999999 0 R"] = {"value": annotation}
        page(pdf)["/Annots"] = ["999999 0 R"]
        if "element" in entries:
            element = first(pdf, "/S", "/Reference")
            element["/S"] = entries["element"]
            element["/K"] += [{"/Type": "/OBJR", "/Obj": "999999 0 R"}]
    return edit


# Rule, what else the edit breaks, and the edit of a Pdf.
BROKEN = (
    ("6.1.7.1", (), lambda pdf: pdf.get(page(pdf)["/Contents"]).update({"/F": "u:other.bin"})),
    ("6.1.13", (), lambda pdf: page(pdf).update({"/MediaBox": [0, 0, 2, 2]})),
    ("6.1.13", (), put("/Name" + 124 * "e", 1)),
    ("6.1.13", (), put("/Text", "u:" + 32768 * "e")),
    ("6.1.13", (), content(b"BT", 29 * b"q " + 29 * b"Q " + b"BT")),
    ("6.2.2", (), content(b"BT", b"5 xy BT")),
    ("6.2.2", (), lambda pdf: pdf.get(pdf.root["/Pages"]).update(
        {"/Resources": page(pdf).pop("/Resources")})),
    ("6.2.2", (), content(b"/F0 8 Tf", b"/F77 8 Tf")),
    ("6.2.3", (), put("/OutputIntents", [])),
    ("6.2.4.3", (), content(b"0 g", b"0 0 0 1 k")),
    ("6.2.8", (), put("/X", {"/Subtype": "/Image", "/Interpolate": True})),
    ("6.2.9", (), put("/X", {"/Type": "/XObject", "/Subtype": "/PS"})),
    ("30-001", (), put("/X", {"/Type": "/XObject", "/Subtype": "/Form", "/Ref": {}})),
    ("6.2.11.2", ("10-001", "31-030"), lambda pdf: font(pdf).update({"/Subtype": "/MMType1"})),
    ("6.2.11.7.3", (), unicode_of_letter(b"E123")),
    ("6.3.2", (), link(Tabs="/S", element="/Link", Contents="u:x", F=2)),
    ("6.5.1", (), put("/OpenAction", {"/S": "/JavaScript", "/JS": "u:1"})),
    ("6.5.1", (), put("/AA", {})),
    ("6.6.2.3", (), packet(b">http://www.aiim.org/pdfua/ns/id/<", b">http://other/<")),
    ("6.6.3", (), packet(b">gazetteer<", b">somebody<")),
    ("6.6.4", (), packet(b">A<", b">U<")),
    ("6.7.2.2", (), put("/MarkInfo", {})),
    ("6.7.3.3", ("ISO 32000-1, 14.7.4.4",), drop(lambda pdf: pdf.root, "/StructTreeRoot")),
    ("6.7.4", (), put("/Lang", "u:en_US")),
    ("6.8", (), put("/Names", {"/EmbeddedFiles": {"/Names": []}})),
    ("6.9", (), put("/OCProperties", {})),
    ("6.10", (), lambda pdf: page(pdf).update({"/PresSteps": {}})),
    ("6.11", (), put("/Requirements", [])),
    ("ISO 32000-1, 14.7.4.4", (), content(b"MCID 1>>", b"MCID 9999>>")),
    ("ISO 32000-1, table 112", (), drop(lambda pdf: font(pdf, "/Type3"), "/FontDescriptor")),
    ("01-003", (), content(b"MCID 0>>BDC", b"MCID 0>>BDC /Artifact BMC EMC")),
    ("01-004", (), content(b"/Artifact BMC", b"/Artifact BMC /P<</MCID 0>>BDC EMC")),
    ("01-005", (), content(b"BT", b"BT (A)Tj")),
    ("01-007", (), put("/MarkInfo", {"/Marked": True, "/Suspects": True})),
    ("02-001", (), lambda pdf: first(pdf, "/S", "/Index").update({"/S": "/Register"})),
    ("02-003", (), lambda pdf: tree(pdf).update({"/RoleMap": {"/A": "/B", "/B": "/A"}})),
    ("02-004", (), lambda pdf: tree(pdf).update({"/RoleMap": {"/P": "/Span"}})),
    ("06-001", ("6.6.3", "6.6.4", "06-002", "06-003"), drop(lambda pdf: pdf.root, "/Metadata")),
    ("06-002", (), packet(b"<pdfuaid:part>1</pdfuaid:part>", b"")),
    ("06-003", ("6.6.3",), packet(b">names<", b"> <")),
    ("07-001", (), put("/ViewerPreferences", {})),
    ("07-002", (), put("/ViewerPreferences", {"/DisplayDocTitle": False})),
    ("09-005", (), lambda pdf: first(pdf, "/S", "/LI").update({"/S": "/P"})),
    ("10-001", ("31-028",), unicode_of_letter(b"")),
    ("11-006", (), drop(lambda pdf: pdf.root, "/Lang")),
    ("14-002", (), lambda pdf: first(pdf, "/S", "/H1").update({"/S": "/H2"})),
    ("14-003", (), lambda pdf: [one for _, one in pdf.values() if one.get("/S") == "/H1"][-1]
        .update({"/S": "/H3"})),
    ("14-007", (), lambda pdf: first(pdf, "/S", "/H1").update({"/S": "/H"})),
    ("25-001", (), put("/AcroForm", {"/XFA": "u:x"})),
    ("28-002", (), link(Tabs="/S", Contents="u:x")),
    ("28-008", (), link(element="/Link", Contents="u:x")),
    ("28-009", (), link(Tabs="/R", element="/Link", Contents="u:x")),
    ("28-011", (), link(Tabs="/S", element="/Reference", Contents="u:x")),
    ("28-012", (), link(Tabs="/S", element="/Link")),
    ("31-001", (), lambda pdf: font(pdf, "/CIDFontType2")["/CIDSystemInfo"].update(
        {"/Registry": "u:Other"})),
    ("31-002", (), lambda pdf: font(pdf, "/CIDFontType2")["/CIDSystemInfo"].update(
        {"/Ordering": "u:Other"})),
    ("31-003", (), lambda pdf: pdf.get(font(pdf)["/Encoding"])["/CIDSystemInfo"].update(
        {"/Supplement": 3})),
    ("31-005", (), drop(lambda pdf: font(pdf, "/CIDFontType2"), "/CIDToGIDMap")),
    ("31-006", ("31-030",), lambda pdf: font(pdf).update({"/Encoding": "/UniGB-UTF16-H"})),
    ("31-007", (), lambda pdf: pdf.get(font(pdf)["/Encoding"]).update({"/WMode": 1})),
    ("31-008", (), lambda pdf: pdf.get(font(pdf)["/Encoding"]).update({"/UseCMap": "/H"})),
    ("31-009", (), drop(
        lambda pdf: pdf.get(font(pdf, "/CIDFontType2")["/FontDescriptor"]), "/FontFile2")),
    ("31-011", (), lambda pdf: stream(pdf, font(pdf, "/CIDFontType2")["/CIDToGIDMap"],
                                      lambda data: b"\xff" + data[1:-2] + b"\xff\xff")),
    ("31-016", (), lambda pdf: font(pdf, "/CIDFontType2")["/W"][1].__setitem__(0, 2000)),
    ("31-027", ("10-001",), drop(font, "/ToUnicode")),
    ("31-028", (), unicode_of_letter(b"0000")),
    ("31-029", (), unicode_of_letter(b"FEFF")),
    ("31-030", ("31-016",), lambda pdf: stream(pdf, font(pdf, "/CIDFontType2")["/CIDToGIDMap"],
                                      lambda data: bytes(len(data)))))

# Edits of the file's bytes. qpdf would write metadata plainly.
BYTES = (("6.6.2.1", b"<?xpacket begin=", b"<?ypacket begin="),
         ("6.1.2", b"%PDF-1.7\n", b"%PDF-1.7\n1"), ("6.1.3", b"%%EOF", b"%%EOF\nmore"),
         ("6.1.7.1", b"\nendstream", b" endstream"), ("6.1.3", b"/ID[", b"/IX["), ("6.1.7.2", b"/N 3/Filter/FlateDecode", b"/N 3/Filter/LZWDecode  "))

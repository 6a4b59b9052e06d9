"""Rules of what a file tells of itself."""
import re
import xml.etree.ElementTree as xml

from pdffile import text_of
from rulebook import rule

NAMESPACE = {"dc": "http://purl.org/dc/elements/1.1/", "xmp": "http://ns.adobe.com/xap/1.0/",
             "pdfaid": "http://www.aiim.org/pdfa/ns/id/", "pdfuaid": "http://www.aiim.org/pdfua/ns/id/",
             "rdf": "http://www.w3.org/1999/02/22-rdf-syntax-ns#",
             "x": "adobe:ns:meta/", "xml": "http://www.w3.org/XML/1998/namespace",
             "pdfaExtension": "http://www.aiim.org/pdfa/ns/extension/",
             "pdfaSchema": "http://www.aiim.org/pdfa/ns/schema#",
             "pdfaProperty": "http://www.aiim.org/pdfa/ns/property#"}


def dates(pdf_date):
    return re.sub(r"\D", "", pdf_date)


def metadata(pdf):
    data = pdf.data(pdf.root.get("/Metadata"))
    return xml.fromstring(data.decode("utf-8" if data[0] else "utf-16-be")) if data else None


def told(root, name):
    """The text of a property, of its first alternative where it has several."""
    prefix, word = name.split(":")
    found = root.find(".//{%s}%s" % (NAMESPACE[prefix], word)) if root is not None else None
    return "" if found is None else "".join(found.itertext())


@rule("6.6.2.1", "06-001")
def packet(pdf):
    stream = pdf.get(pdf.root.get("/Metadata"))
    if not stream or stream.get("/Type") != "/Metadata":
        yield "06-001", "no metadata"
    elif b"<?xpacket begin=" not in pdf.bytes:
        yield "6.6.2.1", "no packet that is seen in the file"


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

#!/usr/bin/env python3
"""browser.py PROGRAM TABLE NODE PDFJS: where bookmarks and links of an index lead in pdf.js, the reader
in a browser, and what it hears of the structure. The table is in English, its listings have pages."""
import json
import os
import subprocess
import sys
import tempfile

from readers import plain, run, shown, stored_listings

# The maps: two pages before them, and numbers that do not rise with the pages.
LABELS = ["ii", "i"] + [str(number * 7 % 20 + 1) for number in range(20)]
FIRST_SHEET = 41


def atlas():
    """Objects of the maps, with a bookmark that leads to the first of them."""
    pages = ["%d 0 R" % (4 + place) for place in range(len(LABELS))]
    bookmark = "%d 0 R" % (4 + len(pages))
    yield "1 0 R", {"/Type": "/Catalog", "/Pages": "2 0 R", "/Outlines": "3 0 R", "/PageLabels": {
        "/Nums": [one for at, label in enumerate(LABELS) for one in (at, {"/P": "u:" + label})]}}
    yield "2 0 R", {"/Type": "/Pages", "/Kids": pages, "/Count": len(pages)}
    yield "3 0 R", {"/Type": "/Outlines", "/First": bookmark, "/Last": bookmark, "/Count": 1}
    for page in pages:
        yield page, {"/Type": "/Page", "/Parent": "2 0 R", "/MediaBox": [0, 0, 300, 400], "/Resources": {}}
    yield bookmark, {"/Title": "u:Maps", "/Parent": "3 0 R", "/Dest": [pages[LABELS.index("1")], "/Fit"]}


def write_atlas(path):
    values = {"obj:" + name: {"value": value} for name, value in atlas()}
    head = {"jsonversion": 2, "pdfversion": "1.7", "maxobjectid": len(values),
            "pushedinheritedpageresources": False, "calledgetallpages": False}
    values["trailer"] = {"value": {"/Root": "1 0 R", "/Size": len(values) + 1}}
    with open("atlas.json", "w") as file:
        json.dump({"qpdf": [head, values]}, file)
    subprocess.run(["qpdf", "--json-input", "atlas.json", path], check=True)


def letters(listings):
    """The heading over each listing: a letter where another begins, or nothing."""
    before = ""
    for name, _ in listings:
        yield name[0].upper() if name[0].isalpha() and name[0].upper() != before else ""
        before = name[0].upper()


def expected_bookmarks(index, first):
    headings = {one["row"]: letter for one, letter in zip(
        index["listings"], letters(stored_listings(index))) if letter}
    return [[page["name"].strip(), at, [[headings[row], at, []] for row in page["rows"] if row in headings]]
            for at, page in enumerate(index["pages"], first)]


def bookmarks(told):
    return [[one["title"], one["place"] and one["place"]["page"], bookmarks(one["below"])] for one in told]


def outline(told, expected, of_pages):
    faults = list(differences("bookmarks", expected, bookmarks(told["bookmarks"])))
    return faults or heights(told["pages"], of_pages)


def heights(pages, of_pages):
    """A page's bookmark leads to its top, a letter's to just above the letter."""
    for page in of_pages:
        told = pages[page["place"]["page"]]["structure"]
        if page["place"]["numbers"][1] < max(one["y"] for one in told if "y" in one):
            yield "not the top of the page: %s" % page
        for letter in page["below"]:
            places = [one["y"] for one in told if one["roles"][-1] == "H1" and one["text"] == letter["title"]]
            if not places or not 0 < letter["place"]["numbers"][1] - places[0] < 20:
                yield "not where it is printed, %s: %s" % (places, letter)


def expected_texts(listings):
    for (name, references), letter in zip(listings, letters(listings)):
        yield from [("H1", letter)] if letter else []
        yield from [("LBody", name), ("Reference", references)]


def heard_texts(pages):
    heard = []
    for one in (one for page in pages for one in page["structure"] if one.get("text")):
        kind = [role for role in one["roles"] if role in ("H1", "LBody", "Reference")][-1]
        if not heard or heard[-1][0] != kind:
            heard.append([kind, ""])
        heard[-1][1] += one["text"]
    return [(kind, plain(text)) for kind, text in heard]


def structured_links(pages):
    """Each link of the structure with its text."""
    text = ""
    for one in (one for page in pages for one in page["structure"] if one["roles"][-1] == "Link"):
        text += one.get("text", "")
        if "link" in one:
            yield one["link"], plain(text)
            text = ""


def differences(what, expected, told):
    expected, told = list(expected), list(told)
    if len(expected) != len(told):
        yield "%s: %d, not %d" % (what, len(told), len(expected))
    yield from ("%s: %s, not %s" % (what, other, one) for one, other in zip(expected, told) if one != other)


def links(told, listings, file):
    found = [(one["id"], plain(one["text"])) for page in told["pages"] for one in page["links"]]
    yield from differences("links", structured_links(told["pages"]), found)
    yield from differences("texts of links", (
        one for _, references in listings for one in references.split(", ")), (text for _, text in found))
    labels = dict(enumerate(LABELS))
    for one in (one for page in told["pages"] for one in page["links"]):
        place = one["place"] or {"page": None, "view": "nowhere"}
        leads = place.get("file"), place["view"], labels.get(place["page"])
        if leads != (file, "Fit", one["text"].split()[0]):
            yield "the link %s leads to %s" % (one["text"], leads)


def asker(program, table, node, pdfjs):
    """What makes an index and asks pdf.js about it."""
    script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "browser.js")

    def ask(name, *options):
        for command in ((program, "make", table, "-o", name, "--locale", "en-US", "--title", "Streets",
                         *options), (node, script, pdfjs, name)):
            status, told, errors = run(*command)
            if status:
                sys.exit("%s: %s" % (name, errors))
        return json.loads(told)
    return ask


def check(*arguments):
    os.mkdir("maps")
    write_atlas("maps/Köln 1.pdf")
    ask = asker(*arguments)
    alone = ask("index.pdf", "--document", "index.json")
    beside = ask("beside.pdf", "--maps", "maps/Köln 1.pdf")
    book = ask("book.pdf", "--append-to", "maps/Köln 1.pdf", "--first-page", str(FIRST_SHEET))
    index = shown(arguments[0])
    listings = stored_listings(index)
    sheets = len(index["pages"])

    own = expected_bookmarks(index, 0)
    below = [page for one in book["bookmarks"] for page in one["below"]]
    yield from outline(alone, own, alone["bookmarks"])
    yield from outline(beside, own, beside["bookmarks"])
    yield from outline(book, [["Maps", LABELS.index("1"), []], [
        "Streets", len(LABELS), expected_bookmarks(index, len(LABELS))]], below)
    yield from differences("labels", LABELS + [str(FIRST_SHEET + at) for at in range(sheets)], book["labels"])
    for told in (alone, beside, book):
        yield from differences("heard", expected_texts(listings), heard_texts(told["pages"]))
        yield from told["warnings"]
    yield from links(book, listings, None)
    yield from links(beside, listings, "/folder/maps/Köln 1.pdf")


def main(*arguments):
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        faults = list(check(*arguments))
    print("\n".join(faults[:20]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

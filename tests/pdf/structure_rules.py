"""Rules of the catalog, the structure and annotations."""
import re

from rulebook import rule

STANDARD = set("""Document Part Art Sect Div BlockQuote Caption TOC TOCI Index NonStruct Private P H H1
    H2 H3 H4 H5 H6 L LI Lbl LBody Table TR TH TD THead TBody TFoot Span Quote Note Reference BibEntry
    Code Link Annot Ruby RB RT RP Warichu WT WP Figure Formula Form""".split())


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

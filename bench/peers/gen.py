"""Seeded place listings for the comparisons.

usage: gen.py RECORDS FOLDER

Writes, the same bytes for the same number of records:
  listings-RECORDS.csv   Listing,Page,Row,Column in random order (UTF-8)
  listings-RECORDS.dbf   the same as a dBase III table (windows-1252)
  texts-RECORDS.tsv      the finished index: sort key, name, combined references, heading

A feature lies on 1.6 pages on average; about 12 % of the records repeat another one exactly.
"""

import csv
import os
import random
import re
import struct
import sys
import unicodedata

FIRST = """
Abbey Acorn Adams Albany Alder Alpine Amber Anchor Apple Arbor Arlington Ash Aspen Autumn Azalea
Badger Baker Bald Barton Bay Beacon Bear Beaver Beech Bell Bennett Berkshire Birch Black Blue
Bonnie Boulder Bradford Briar Bridge Bright Broad Brook Brown Buck Buffalo Burton Butler Cactus
Calhoun Cambridge Camelot Canal Candle Canyon Cardinal Carriage Castle Cedar Chapel Charles Cherry
Chestnut Church Clay Clear Clifton Clover Cobble Cold Colonial Copper Coral Cotton Country Court
Coyote Creek Crescent Crest Crown Cypress Dale Daisy Deep Deer Devon Dogwood Dover Eagle East Edge
Elk Elm Emerald Evans Ever Fair Falcon Farm Fern Field Fir Fisher Flat Forest Fort Foster Fountain
Fox Frank Garden Garnet George Glen Gold Grand Granite Grant Green Grove Gull Hamilton Hanover
Harbor Harvest Hawk Hazel Heather Heron Hickory Hidden High Hill Holly Honey Horse Hunter Indian
Iron Ivy Jack Jade James Jasper Jefferson Juniper Kent Kestrel King Kirk Knight Lake Lamp Larch
Lark Laurel Lavender Liberty Lilac Lime Lincoln Linden Lion Little Locust Lone Long Lost Lower
Lupine Madison Magnolia Maple Marble Maria Marsh Mason Meadow Mercer Mill Mission Misty Moon
Morgan Moss Mountain Mulberry Myrtle Newport North Oak Ocean Old Olive Orange Orchard Oriole Otter
Owl Oxford Palm Park Partridge Peach Pearl Pebble Penn Pheasant Pike Pine Pioneer Plum Pond Poplar
Prairie Primrose Prospect Quail Quarry Queen Rabbit Raven Red Regent Ridge River Robin Rock Rose
Royal Ruby Running Saddle Sage Saint Salem Sand Sapphire Scott Shadow Shady Sherman Silver Sky
Snow South Sparrow Spring Spruce Spur Star Stone Sugar Summer Summit Sun Sunset Swan Sycamore
Taylor Teal Thistle Thorn Tiger Timber Topaz Trail Tulip Turner Turtle Union Upper Valley Vernon
Victoria View Village Vine Violet Vista Walker Walnut Warren Washington Water West Wheat White
Wild Willow Wilson Wind Winter Wolf Wood Wren York Zinnia Café Peña Müller Société Façade Jägers
Nuñez
""".split()
SECOND = """
bank bend berry bluff borough bourne branch bridge brook burn bury by church cliff combe cove
creek crest croft dale dell den downs edge end falls farm field ford forest fork gate glade glen
green grove hall ham harbor haven head heights hill hollow hurst island knoll lake land landing
lawn lea ley lock manor marsh mead meadow mere mill moor mount mouth park pass path pine place
plain point pond pool port ranch ridge rise river rock run shade shire shore side spring stead
stone stream thorpe ton top town trail tree vale valley view ville vista walk water way well wick
wind wood worth yard
""".split()
TYPE = (
    ["St"] * 14 + ["Ave"] * 10 + ["Rd"] * 10 + ["Dr"] * 10 + ["Ln"] * 7 + ["Ct"] * 7
    + ["Blvd"] * 3 + ["Cir"] * 3 + ["Way"] * 4 + ["Pl"] * 3 + ["Ter"] * 2 + ["Trl"] * 2
    + ["Pkwy", "Hwy", "Loop", "Sq", "Aly", "Row", "Xing"]
)
PLACE = ["Park", "School", "Church", "Cemetery", "Library", "Hospital", "Mall", "Lake", "Creek",
         "Elementary School", "Fire Station", "Golf Course"]
DIRECTION = [""] * 70 + ["N ", "S ", "E ", "W "] * 6 + ["NE ", "SW "] * 3
NUMBERED = ["AVE ", "County Rd ", "State Hwy ", "Forest Rd ", "FM "]
GRID_ROWS = "ABCDEFGHIJ"
PAGES, GRID_COLUMNS, LONGEST_NAME = 400, 12, 30

# Name, type and width of each field.
FIELDS = [("LISTING", "C", 40), ("PAGE", "N", 4), ("ROW", "C", 2), ("COLUMN", "N", 2)]


def ordinal(number):
    teens = 10 <= number % 100 <= 20
    return f"{number}{'th' if teens else {1: 'st', 2: 'nd', 3: 'rd'}.get(number % 10, 'th')}"


def place_name(dice):
    kind = dice.random()
    if kind < 0.05:
        return dice.choice(NUMBERED) + str(dice.randint(1, 9999))
    if kind < 0.09:
        return dice.choice(DIRECTION) + ordinal(dice.randint(1, 400)) + " " + dice.choice(TYPE)
    if kind < 0.17:
        return dice.choice(FIRST) + dice.choice(SECOND) + " " + dice.choice(PLACE)
    base = dice.choice(FIRST) + dice.choice(SECOND)
    if kind < 0.35:
        base = dice.choice(FIRST) + " " + base
    return dice.choice(DIRECTION) + base + " " + dice.choice(TYPE)


def place_names(dice, count):
    names = {}
    while len(names) < count:
        name = place_name(dice)
        if len(name) <= LONGEST_NAME:
            names[name] = None
    return list(names)


def references(dice):
    """Page, row and column of each map page that a feature lies on: neighbours, as a rule."""
    chance = dice.random()
    count = 1 if chance < 0.60 else 2 if chance < 0.85 else 3 if chance < 0.95 else 4
    page = dice.randint(1, PAGES)
    column = dice.randint(1, GRID_COLUMNS)
    row = GRID_ROWS[dice.randint(0, len(GRID_ROWS) - 1)]
    for _ in range(count):
        yield page, row, column
        page += dice.choice((1, 1, 1, 2, 20))
        if page > PAGES:
            return
        column = dice.randint(1, GRID_COLUMNS)


def make_records(count):
    dice = random.Random(20240229 + count)
    names = place_names(dice, max(1, round(count * 0.88 / 1.6)))
    records = [(name, *place) for name in names for place in references(dice)][:count]
    distinct = list(records)
    while len(records) < count:
        records.append(dice.choice(distinct))
    order = list(range(count))
    dice.shuffle(order)
    return [records[i] for i in order]


def write_csv(path, records):
    with open(path, "w", encoding="utf-8", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["Listing", "Page", "Row", "Column"])
        writer.writerows(records)


def write_dbf(path, records):
    header_size = 32 + 32 * len(FIELDS) + 1
    record_size = 1 + sum(width for _, _, width in FIELDS)
    with open(path, "wb") as file:
        # Version 3, written on 29 February 2024.
        file.write(struct.pack("<BBBBIHH20x", 3, 124, 2, 29, len(records), header_size,
                               record_size))
        for name, kind, width in FIELDS:
            file.write(struct.pack("<11sc4xBB14x", name.encode(), kind.encode(), width, 0))
        file.write(b"\r")
        for name, page, row, column in records:
            file.write(b" " + name.encode("windows-1252").ljust(40) + b"%4d" % page
                       + row.encode().ljust(2) + b"%2d" % column)
        file.write(b"\x1a")


def sort_key(name):
    parts = unicodedata.normalize("NFD", name)
    letters = "".join(c for c in parts if not unicodedata.combining(c)).upper()
    return re.sub(r"\d+", lambda number: number.group().zfill(6), letters)


def write_texts(path, records):
    places = {}
    for name, *place in records:
        places.setdefault(name, set()).add(tuple(place))
    with open(path, "w", encoding="utf-8") as file:
        for key, name in sorted((sort_key(name), name) for name in places):
            text = "; ".join(f"{page}, {row}-{column}" for page, row, column in
                             sorted(places[name]))
            heading = "0-9" if key[0].isdigit() else key[0]
            file.write(f"{key}\t{name}\t{text}\t{heading}\n")


def main():
    count, folder = int(sys.argv[1]), sys.argv[2]
    os.makedirs(folder, exist_ok=True)
    records = make_records(count)
    write_csv(f"{folder}/listings-{count}.csv", records)
    write_dbf(f"{folder}/listings-{count}.dbf", records)
    write_texts(f"{folder}/texts-{count}.tsv", records)


main()

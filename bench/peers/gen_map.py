"""Seeded map for the comparisons of `locate`.

usage: gen_map.py LINES FOLDER

Writes map-LINES.gpkg, whose layers are the same for the same number of lines, in metres:
  sheets  20 x 20 with their pages, north is up
  cells   the 8 x 10 squares of each sheet with page, row and column
  lines   of 10 points each; three of them share a name on average

Needs ogr2ogr. Each layer has a spatial index.
"""

import csv
import math
import random
import subprocess
import sys
from pathlib import Path

LEFT, BOTTOM = 4_300_000, 3_000_000
SHEETS, ROWS, COLUMNS = 20, 8, 10
SQUARE = 500  # Metres.
WIDTH, HEIGHT = COLUMNS * SQUARE, ROWS * SQUARE


def box(left, bottom, right, top):
    return (f"POLYGON (({left} {bottom}, {left} {top}, {right} {top}, {right} {bottom}, "
            f"{left} {bottom}))")


def corner(number):
    """The upper left corner of a sheet; pages go from west to east, then south."""
    across, down = number % SHEETS, number // SHEETS
    return LEFT + across * WIDTH, BOTTOM + (SHEETS - down) * HEIGHT


def sheets():
    for number in range(SHEETS * SHEETS):
        left, top = corner(number)
        yield {"page": number + 1, "wkt": box(left, top - HEIGHT, left + WIDTH, top)}


def cells():
    for number in range(SHEETS * SHEETS):
        left, top = corner(number)
        for row in range(ROWS):
            for column in range(COLUMNS):
                x, y = left + column * SQUARE, top - row * SQUARE
                yield {"page": number + 1, "row": "ABCDEFGH"[row], "col": column + 1,
                       "wkt": box(x, y - SQUARE, x + SQUARE, y)}


def lines(count):
    draw = random.Random(20240229)
    for _ in range(count):
        x = LEFT + draw.uniform(0, SHEETS * WIDTH)
        y = BOTTOM + draw.uniform(0, SHEETS * HEIGHT)
        direction = draw.uniform(0, 2 * math.pi)
        points = []
        for _ in range(10):
            points.append(f"{x:.3f} {y:.3f}")
            direction += draw.gauss(0, 0.3)
            step = draw.uniform(20, 160)
            x += step * math.cos(direction)
            y += step * math.sin(direction)
        yield {"name": f"Street {draw.randrange(count // 3 + 1)}",
               "wkt": f"LINESTRING ({', '.join(points)})"}


def write(records, layer, kind, types, path):
    """Adds a layer to a GeoPackage; the types are those of the fields."""
    table = path.parent / f"{layer}.csv"
    first = next(records)
    with open(table, "w", newline="", encoding="utf-8") as output:
        writer = csv.DictWriter(output, first.keys())
        writer.writeheader()
        writer.writerow(first)
        writer.writerows(records)
    table.with_suffix(".csvt").write_text(",".join([*types, "String"]))
    subprocess.run(["ogr2ogr", "-f", "GPKG", *(["-update"] if path.exists() else []), path, table,
                    "-oo", "GEOM_POSSIBLE_NAMES=wkt", "-oo", "KEEP_GEOM_COLUMNS=NO", "-a_srs",
                    "EPSG:3035", "-nlt", kind, "-nln", layer], check=True)
    table.unlink()
    table.with_suffix(".csvt").unlink()


def main():
    count, folder = int(sys.argv[1]), Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    path = folder / f"map-{count}.gpkg"
    path.unlink(missing_ok=True)
    write(sheets(), "sheets", "POLYGON", ["Integer"], path)
    write(cells(), "cells", "POLYGON", ["Integer", "String", "Integer"], path)
    write(lines(count), "lines", "LINESTRING", ["String"], path)


main()

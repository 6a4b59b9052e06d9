"""Locating lines on map sheets, compared with the same join by SQL, and reading a GeoPackage."""

import os
import shutil
import sys

from bars import Bar, Row, compared, judged, missing, told
from bench import LARGE, LOCALE, PEERS, SMALL, tell
from process import Figure, alternate, output_of, peaks, run, times

TIME = Bar(3, 5, "times faster", more=True)
MEMORY = Bar(500, 350, "MB")
READING = Bar(1.5, 1, "s")
LIBRARY = "../lib/gazetteer/libgazetteer-gdal.so"

# The boxes of both spatial indexes are joined first: with those of the cells alone, or with
# ST_Intersects alone, the same statement takes many times as long.
JOIN = """SELECT DISTINCT lines.name, cells.page, cells.row, cells.col
    FROM rtree_lines_geom AS one JOIN rtree_cells_geom AS other
        ON other.minx <= one.maxx AND other.maxx >= one.minx
        AND other.miny <= one.maxy AND other.maxy >= one.miny
    JOIN lines ON lines.fid = one.id JOIN cells ON cells.fid = other.id
    WHERE ST_Intersects(lines.geom, cells.geom)"""


def rows(bench):
    if not (bench.has(LIBRARY) and shutil.which("ogr2ogr")):
        yield missing("`locate`", "not measured: needs the library for sources of a GIS and ogr2ogr")
        return
    tell("Measuring `locate`...")
    yield from join(bench, bench.sizes[0])
    size = bench.sizes[-1]
    costs = [locate(bench, size)]
    yield judged(f"peak memory of `locate`, {size:,} lines", peaks(costs), MEMORY,
                 judge=size == LARGE)
    yield Row(f"`locate`, {size:,} lines", told(times(costs, bench.clock), "s"))
    yield reading(bench, size)


def map_of(bench, lines):
    path = bench.data / f"map-{lines}.gpkg"
    if not path.exists():
        tell(f"Making a map of {lines:,} lines...")
        unfinished = bench.data / "unfinished"
        shutil.rmtree(unfinished, ignore_errors=True)
        output_of([sys.executable, PEERS / "gen_map.py", str(lines), unfinished])
        os.replace(unfinished / path.name, path)
        unfinished.rmdir()
    return path


def locate(bench, lines, *options):
    source = map_of(bench, lines)
    return bench.run("gazetteer", "locate", source / "lines", "--sheets", source / "sheets",
                     "--grid", "8x10", "--threads", "1", "-o", bench.data / "ours.csv", "--force",
                     *options)


def sql(bench, lines):
    theirs = bench.data / "theirs.csv"
    theirs.unlink(missing_ok=True)
    return run(["ogr2ogr", "-f", "CSV", theirs, map_of(bench, lines), "-sql", JOIN],
               bench.data / "log")


def join(bench, size):
    what = f"`locate`, {size:,} lines on 32,000 squares"
    works = [lambda: locate(bench, size, "--squares", "all")]
    if bench.peers:
        works.append(lambda: sql(bench, size))
    costs = alternate(bench.rounds, works)
    ours = times(costs[0], bench.clock)
    if not bench.peers:
        yield Row(what, told(ours, "s"), verdict="left out")
        return
    theirs = times(costs[1], bench.clock)
    yield compared(f"{what}, against ogr2ogr with SQL and spatial indexes", told(ours, "s"),
                   told(theirs, "s"), theirs.median / ours.median, TIME, judge=size == SMALL)
    yield Row(f"peak memory of these, {same(bench)}", told(peaks(costs[0]), "MB"),
              told(peaks(costs[1]), "MB"))


def same(bench):
    """Whether both have found the same squares."""
    found = []
    for name in ("ours.csv", "theirs.csv"):
        lines = (bench.data / name).read_text(encoding="utf-8").replace('"', "").splitlines()
        found.append(set(lines[1:]))
    if found[0] == found[1]:
        return f"the same {len(found[0]):,} squares"
    return f"**{len(found[0] ^ found[1]):,} squares are not the same**"


def reading(bench, size):
    dbase = bench.listings(size, "dbf")
    package = dbase.with_suffix(".gpkg")
    if not package.exists():
        bench.run("gazetteer", "import", dbase, "-o", package)

    def make(source):
        return bench.run("gazetteer", "make", source, "-o", bench.data / "ours.pdf", *LOCALE)

    ours, plain = alternate(bench.rounds, [lambda: make(package), lambda: make(dbase)])
    # Within a round, so that a temporary load affects both.
    more = Figure(tuple(one.cpu - other.cpu for one, other in zip(ours, plain)))
    row = judged(f"`make`, {size:,} rows: what a GeoPackage adds to dBase, processor time", more,
                 READING, judge=size == LARGE)
    return Row(row.what, row.ours, told(times(plain, "cpu"), "s"), "", row.must, row.aim, row.verdict)

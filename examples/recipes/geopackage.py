"""Writes GeoPackages with Python's own SQLite: the same bytes on every run."""

import os
import sqlite3
import struct
from dataclasses import dataclass

LAST_CHANGE = "2024-01-01T00:00:00.000Z"
APPLICATION_ID, VERSION = 0x47504B47, 10300
# Small pages, because the tables of a package are many and short.
PAGE_BYTES = 1024
# Where SQLite notes its own version, which must not show in the bytes, and what is noted instead.
SQLITE_VERSION_AT, SQLITE_VERSION = 96, 3040001
LITTLE_ENDIAN_NO_ENVELOPE = 1
CODES = {"POINT": 1, "LINESTRING": 2, "POLYGON": 3}

METADATA = """
CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY,
  organization TEXT NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL,
  description TEXT);
CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL,
  identifier TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME NOT NULL, min_x DOUBLE,
  min_y DOUBLE, max_x DOUBLE, max_y DOUBLE, srs_id INTEGER,
  CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,
  geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,
  CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name),
  CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),
  CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
INSERT INTO gpkg_spatial_ref_sys VALUES
  ('Undefined Cartesian', -1, 'NONE', -1, 'undefined', NULL),
  ('Undefined geographic', 0, 'NONE', 0, 'undefined', NULL);
"""


@dataclass(frozen=True)
class Layer:
    name: str
    kind: str  # "POINT", "LINESTRING", "POLYGON" or, for blobs of any kind, "GEOMETRY"
    fields: dict  # name: SQL type
    # (points, values...) per feature. The points of a polygon are its outline without the first
    # again. Instead of points a geometry blob is taken as it is.
    features: list
    bounds: tuple = ()  # needed where the geometries are blobs


def _geometry(kind, points, reference):
    pairs = [coordinate for point in points for coordinate in point]
    data = struct.pack("<2sBBiBI", b"GP", 0, LITTLE_ENDIAN_NO_ENVELOPE, reference, 1, CODES[kind])
    if kind == "POLYGON":
        pairs += points[0]
        data += struct.pack("<I", 1)
    if kind != "POINT":
        data += struct.pack("<I", len(pairs) // 2)
    return data + struct.pack(f"<{len(pairs)}d", *pairs)


def _bounds(layer):
    if layer.bounds:
        return layer.bounds
    xs, ys = zip(*(point for feature in layer.features for point in feature[0]), strict=True)
    return min(xs), min(ys), max(xs), max(ys)


def _add(database, layer, reference):
    columns = "".join(f', "{name}" {kind}' for name, kind in layer.fields.items())
    database.execute(f'CREATE TABLE "{layer.name}" (fid INTEGER PRIMARY KEY AUTOINCREMENT NOT '
                     f"NULL, geom {layer.kind}{columns})")
    database.execute("INSERT INTO gpkg_contents VALUES (?, 'features', ?, '', ?, ?, ?, ?, ?, ?)",
                     (layer.name, layer.name, LAST_CHANGE, *_bounds(layer), reference))
    database.execute("INSERT INTO gpkg_geometry_columns VALUES (?, 'geom', ?, ?, 0, 0)",
                     (layer.name, layer.kind, reference))
    marks = ", ".join("?" * (1 + len(layer.fields)))
    for geometry, *values in layer.features:
        if not isinstance(geometry, bytes):
            geometry = _geometry(layer.kind, geometry, reference)
        database.execute(f'INSERT INTO "{layer.name}" VALUES (NULL, {marks})', (geometry, *values))


def _hide_sqlite_version(path):
    with open(path, "r+b") as file:
        file.seek(SQLITE_VERSION_AT)
        file.write(struct.pack(">I", SQLITE_VERSION))


def write_geopackage(path, references, layers):
    """Writes layers to a new package. `references` holds, by its EPSG number, the name and the
    definition (WKT) of each reference system; `layers` holds (layer, EPSG number)."""
    if os.path.exists(path):
        os.remove(path)
    database = sqlite3.connect(path)
    database.execute(f"PRAGMA page_size = {PAGE_BYTES}")
    database.execute(f"PRAGMA application_id = {APPLICATION_ID}")
    database.execute(f"PRAGMA user_version = {VERSION}")
    database.executescript(METADATA)
    for number, (name, definition) in references.items():
        database.execute("INSERT INTO gpkg_spatial_ref_sys VALUES (?, ?, 'EPSG', ?, ?, NULL)",
                         (name, number, number, definition))
    for layer, reference in layers:
        _add(database, layer, reference)
    database.commit()
    database.execute("VACUUM")
    database.close()
    _hide_sqlite_version(path)

"""Takes from a GeoPackage of Europe the layers that the index of an atlas needs."""

import sqlite3

from .geopackage import Layer

# Layer: its fields. The sheets' own reference system is that of their grid.
LAYERS = {"places": {"name": "TEXT", "country": "TEXT", "population": "INTEGER"},
          "rivers": {"name": "TEXT"}, "lakes": {"name": "TEXT"}, "airports": {"name": "TEXT"},
          "sheets": {"page": "INTEGER", "title": "TEXT"}}
# Names that lost letters on their way into the source.
NAMES = {"Byk Menderes": "Büyük Menderes", "Gta lv": "Göta älv", "Klarlven": "Klarälven",
         "Motala strm": "Motala ström", "Mio": "Miño", "Rhne": "Rhône", "Zncara": "Záncara",
         "Embalse de Buenda": "Embalse de Buendía",
         "Embalse de Entrepeas": "Embalse de Entrepeñas",
         "Embalse de Garcia  de Sola": "Embalse de García de Sola", "Mritz": "Müritz",
         "Yeren": "Øyeren"}


def _layer(database, name, fields):
    kind, column, reference = database.execute(
        "SELECT geometry_type_name, column_name, srs_id FROM gpkg_geometry_columns "
        "WHERE table_name = ?", (name,)).fetchone()
    bounds = database.execute("SELECT min_x, min_y, max_x, max_y FROM gpkg_contents "
                              "WHERE table_name = ?", (name,)).fetchone()
    columns = ", ".join(f'"{field}"' for field in fields)
    rows = [(geometry, *(NAMES.get(value, value) for value in values)) for geometry, *values in
            database.execute(f'SELECT "{column}", {columns} FROM "{name}" ORDER BY rowid')]
    return Layer(name, kind, fields, rows, bounds), reference


def europe_layers(source):
    """(layer, EPSG number) of each layer taken."""
    database = sqlite3.connect(f"file:{source}?mode=ro&immutable=1", uri=True)
    layers = [_layer(database, name, fields) for name, fields in LAYERS.items()]
    database.close()
    return layers

#!/usr/bin/env python3
"""Makes the example maps anew, town.gpkg and, from a GeoPackage of Europe, europe.gpkg. Needs
nothing but Python 3.10 or later:

    python3 make_maps.py [EUROPE] [--output FOLDER]

The README tells what EUROPE holds. The same data gives the same bytes.
"""

import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from recipes.europe import europe_layers  # noqa: E402
from recipes.geopackage import write_geopackage  # noqa: E402
from recipes.references import REFERENCES, UTM33  # noqa: E402
from recipes.town import town_layers  # noqa: E402


def write_map(path, layers):
    used = {reference for _, reference in layers}
    write_geopackage(path, {number: REFERENCES[number] for number in sorted(used)}, layers)


def main():
    parser = argparse.ArgumentParser(description="Makes the example maps anew.")
    parser.add_argument("europe", nargs="?", type=Path, help="GeoPackage of Europe")
    parser.add_argument("--output", type=Path, default=Path(__file__).parent, help="folder")
    arguments = parser.parse_args()
    write_map(arguments.output / "town.gpkg", [(layer, UTM33) for layer in town_layers()])
    if arguments.europe:
        write_map(arguments.output / "europe.gpkg", europe_layers(arguments.europe))


if __name__ == "__main__":
    main()

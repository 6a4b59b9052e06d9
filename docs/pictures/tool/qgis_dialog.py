"""Run by QGIS with --code: takes a picture of the dialog of "Map book index", filled in for the map
TOWN of the environment, into its FOLDER."""

import os
from pathlib import Path

import processing
from qgis.PyQt.QtCore import QTimer
from qgis.utils import iface

FOLDER = Path(os.environ["FOLDER"])
TOWN = Path(os.environ["TOWN"])
SIZE = 1000, 800
# In ms: until QGIS has opened its window, and the dialog is laid out.
TO_OPEN, TO_LAY_OUT = 3000, 2500


def open_dialog():
    layers = {name: iface.addVectorLayer(f"{TOWN}|layername={name}", name, "ogr").id()
              for name in ("sheets", "water", "parks", "places", "streets")}
    dialog = processing.createAlgorithmDialog("gazetteer:index", {
        "LAYERS": [layers[name] for name in ("streets", "parks", "places")], "APART": '"district"',
        "SHEETS": layers["sheets"], "ROWS": 7, "COLUMNS": 5, "TITLE": "Straßenverzeichnis",
        "PAGE_SIZE": "a5", "LOCALE": "de", "FIRST_PAGE": 13})
    dialog.resize(*SIZE)
    dialog.show()
    QTimer.singleShot(TO_LAY_OUT, lambda: take(dialog))


def take(dialog):
    dialog.grab().save(str(FOLDER / "qgis-index.png"))
    # Without the question whether to save the project.
    os._exit(0)


QTimer.singleShot(TO_OPEN, open_dialog)

"""Tests the plugin inside QGIS: layers that exist there alone, an atlas, cancelling."""

import os
import stat
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

sys.path[:0] = ["/usr/share/qgis/python", "/usr/share/qgis/python/plugins", os.environ["PLUGINS"]]

from qgis.core import (QgsApplication, QgsFeature, QgsField, QgsGeometry,  # noqa: E402
                       QgsPrintLayout, QgsProcessingContext, QgsProcessingException,
                       QgsProcessingFeatureSourceDefinition, QgsProcessingFeedback, QgsProject,
                       QgsVectorLayer, QgsVectorLayerJoinInfo)

QGIS = QgsApplication([], False)
QGIS.initQgis()

import processing  # noqa: E402
from processing.core.Processing import Processing  # noqa: E402
from qgis.PyQt.QtCore import QVariant  # noqa: E402

import gazetteer  # noqa: E402

Processing.initialize()
PLUGIN = gazetteer.classFactory(None)
PLUGIN.initProcessing()

# Two sheets of 100 m side by side, the second one as a text; metres.
SHEETS = {"7": (0, 0), "8": (100, 0)}


def memory_layer(kind, name, fields, features, crs="EPSG:25833"):
    layer = QgsVectorLayer(f"{kind}?crs={crs}", name, "memory")
    layer.dataProvider().addAttributes([QgsField(field, QVariant.String) for field in fields])
    layer.updateFields()
    for wkt, *values in features:
        feature = QgsFeature(layer.fields())
        feature.setGeometry(QgsGeometry.fromWkt(wkt))
        feature.setAttributes(values)
        layer.dataProvider().addFeatures([feature])
    QgsProject.instance().addMapLayer(layer)
    return layer


def square(x, y, size):
    return f"POLYGON(({x} {y}, {x + size} {y}, {x + size} {y + size}, {x} {y + size}, {x} {y}))"


class Told(QgsProcessingFeedback):
    def __init__(self):
        super().__init__(False)
        self.warnings = []
        self.errors = []

    def reportError(self, error, fatalError=False):  # noqa: N802, N803
        self.errors.append(error)

    def pushWarning(self, warning):  # noqa: N802
        self.warnings.append(warning)


class InsideQgis(unittest.TestCase):
    def setUp(self):
        os.environ["GAZETTEER_PROGRAM"] = os.environ["PROGRAM"]
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.addCleanup(QgsProject.instance().clear)
        self.sheets = memory_layer("Polygon", "sheets", ["page"],
                                   [(square(*corner, 100), page) for page, corner in SHEETS.items()])
        self.streets = memory_layer("LineString", "streets", ["name", "town"], [
            ("LINESTRING(5 95, 195 95)", "Long Lane", "1"), ("LINESTRING(5 5, 45 5)", "Elm St", "2"),
            ("LINESTRING(150 5, 190 5)", "Elm St", "1"), ("LINESTRING(5 50, 20 50)", None, "1")])
        self.told = Told()

    def listings(self, **values):
        """Records of the listings, as texts."""
        values = {"LAYERS": [self.streets], "SHEETS": self.sheets,
                  "LISTINGS": str(self.folder / "listings.csv"), **values}
        made = processing.run("gazetteer:listings", values, feedback=self.told)
        return Path(made["LISTINGS"]).read_text(encoding="utf-8").splitlines()[1:]

    def test_memory_layers_with_and_without_a_grid(self):
        self.assertEqual(self.listings(),
                         ["Long Lane,7", "Long Lane,8", "Elm St,7", "Elm St,8"])
        self.assertEqual(self.told.warnings,
                         ['Layer "streets": 1 feature without a name left out (number 4).'])
        self.assertEqual(self.listings(ROWS=2, COLUMNS=2)[2:], ["Elm St,7,B,1", "Elm St,8,B,2"])

    def test_only_features_that_the_layer_shows(self):
        self.streets.setSubsetString("town = '1'")
        self.streets.selectByIds([1])
        self.sheets.selectByIds([2])
        self.assertEqual(self.listings(NAME="name || town"),
                         ["Long Lane1,7", "Long Lane1,8", "Elm St1,8"])
        self.assertEqual(self.listings(SELECTED=True), ["Long Lane,7", "Long Lane,8"])
        chosen = QgsProcessingFeatureSourceDefinition(self.sheets.id(), True)
        self.assertEqual(self.listings(SHEETS=chosen), ["Long Lane,8", "Elm St,8"])

    def test_joins_virtual_fields_and_other_names(self):
        towns = memory_layer("NoGeometry", "towns", ["number", "title"],
                             [("", "1", "Ústí"), ("", "2", "Łódź")])
        join = QgsVectorLayerJoinInfo()
        join.setJoinLayer(towns)
        join.setJoinFieldName("number")
        join.setTargetFieldName("town")
        join.setPrefix("of_")
        self.streets.addJoin(join)
        self.streets.addExpressionField("upper(name)", QgsField("loud", QVariant.String))
        # Of the same grid, in degrees.
        parks = memory_layer("Point", "parks", ["label"], [("POINT(10.51127 0.00045)", "Grove")],
                             "EPSG:4258")
        rows = self.listings(LAYERS=[self.streets, parks], NAME="loud", APART="attribute('of_title')",
                             NAMES=["parks", "label || ', ' || @layer_name"], LAYER_FIELD="Kind")
        self.assertEqual(rows, ["LONG LANE,7,Ústí,streets", "LONG LANE,8,Ústí,streets",
                                "ELM ST (Łódź),7,Łódź,streets", "ELM ST (Ústí),8,Ústí,streets",
                                '"Grove, parks",7,,parks'])

    def test_squares_of_ones_own(self):
        squares = memory_layer("Polygon", "squares", ["label"],
                               [(square(0, 0, 100), "K 4"), (square(100, 0, 100), "L 5")])
        rows = self.listings(OWN_SQUARES=squares, OWN_ROW="left(label, 1)",
                             OWN_COLUMN="right(label, 1) + 0.0")
        self.assertEqual(rows[:2], ["Long Lane,7,K,4", "Long Lane,8,L,5"])

    def test_the_atlas_of_a_layout(self):
        layout = QgsPrintLayout(QgsProject.instance())
        layout.initializeDefaults()
        layout.setName("Map book")
        QgsProject.instance().layoutManager().addLayout(layout)
        with self.assertRaises(QgsProcessingException):
            self.listings(SHEETS=None, LAYOUT="Map book")
        self.assertEqual(self.told.errors[0], 'The layout "Map book" has no atlas.')
        atlas = layout.atlas()
        atlas.setEnabled(True)
        atlas.setCoverageLayer(self.sheets)
        atlas.setPageNameExpression("'M' || page")
        self.assertEqual(self.listings(SHEETS=None, LAYOUT="Map book"),
                         ["Long Lane,M7", "Long Lane,M8", "Elm St,M7", "Elm St,M8"])
        # Its order, by which the last sheet is the first here, and its filter.
        atlas.setSortFeatures(True)
        atlas.setSortExpression("page")
        atlas.setSortAscending(False)
        self.assertEqual(self.listings(SHEETS=None, LAYOUT="Map book",
                                       PAGE="page || '=' || (@atlas_featurenumber + 20)"),
                         ["Long Lane,7=22", "Long Lane,8=21", "Elm St,7=22", "Elm St,8=21"])
        atlas.setFilterFeatures(True)
        atlas.setFilterExpression("page = '7'")
        self.assertEqual(self.listings(SHEETS=None, LAYOUT="Map book"),
                         ["Long Lane,M7", "Elm St,M7"])

    def test_cancelling_ends_the_program(self):
        started, program = self.folder / "started", self.folder / "slow"
        program.write_text(f"#!/bin/sh\necho $$ > {started}.new\nmv {started}.new {started}\n"
                           "exec sleep 300\n")
        program.chmod(program.stat().st_mode | stat.S_IXUSR)
        os.environ["GAZETTEER_PROGRAM"] = str(program)

        def cancel():
            while not started.exists():
                time.sleep(0.01)
            self.told.cancel()

        canceller = threading.Thread(target=cancel)
        canceller.start()
        begin = time.monotonic()
        algorithm = QGIS.processingRegistry().createAlgorithmById("gazetteer:listings")
        made, ok = algorithm.run({"LAYERS": [self.streets], "SHEETS": self.sheets,
                                  "LISTINGS": str(self.folder / "listings.csv")},
                                 QgsProcessingContext(), self.told)
        canceller.join()
        self.assertEqual((made, ok), ({}, True))
        self.assertLess(time.monotonic() - begin, 60)
        with self.assertRaises(ProcessLookupError):
            os.kill(int(started.read_text()), 0)


if __name__ == "__main__":
    result = unittest.main(exit=False).result
    sys.stdout.flush()
    # Without the end of QGIS, which crashes now and then when Python has gone before it.
    os._exit(0 if result.wasSuccessful() else 1)

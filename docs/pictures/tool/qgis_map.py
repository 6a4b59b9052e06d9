"""qgis_map.py PICTURE: draws the map of examples/town.gpkg with its sheets and their grids."""

import sys
from pathlib import Path

from qgis.core import (QgsApplication, QgsFeature, QgsFillSymbol, QgsGeometry, QgsLineSymbol,
                       QgsMapRendererParallelJob, QgsMapSettings, QgsMarkerSymbol,
                       QgsPalLayerSettings, QgsPointXY, QgsSingleSymbolRenderer,
                       QgsTextBufferSettings, QgsTextFormat, QgsVectorLayer,
                       QgsVectorLayerSimpleLabeling)
from qgis.PyQt.QtCore import QSize
from qgis.PyQt.QtGui import QColor, QFont

TOWN = Path(__file__).resolve().parents[3] / "examples" / "town.gpkg"
ROWS, COLUMNS = 7, 5
SIZE, DOTS_PER_INCH = QSize(1600, 1240), 100
BORDER = 90  # metres around the sheets


def layer(name, symbol):
    result = QgsVectorLayer(f"{TOWN}|layername={name}", name, "ogr")
    result.setRenderer(QgsSingleSymbolRenderer(symbol))
    return result


def label(on, field, size, colour, placement=None):
    settings, form, halo = QgsPalLayerSettings(), QgsTextFormat(), QgsTextBufferSettings()
    halo.setEnabled(True)
    halo.setSize(0.5)
    form.setFont(QFont("Liberation Sans"))
    form.setSize(size)
    form.setColor(QColor(colour))
    form.setBuffer(halo)
    settings.setFormat(form)
    settings.fieldName = field
    settings.mergeLines = True
    if placement is not None:
        settings.placement = placement
    on.setLabeling(QgsVectorLayerSimpleLabeling(settings))
    on.setLabelsEnabled(True)
    return on


def grid(sheets):
    """The lines between the squares of each sheet, whose outlines begin at the upper left."""
    lines = QgsVectorLayer("LineString?crs=EPSG:25833", "grid", "memory")
    features = []
    for sheet in sheets.getFeatures():
        left, right, low, lower_left = (
            QgsPointXY(point) for point in list(sheet.geometry().vertices())[:4])

        def between(one, other, share):
            return QgsPointXY(one.x() + (other.x() - one.x()) * share,
                              one.y() + (other.y() - one.y()) * share)

        ends = [(between(left, lower_left, i / ROWS), between(right, low, i / ROWS))
                for i in range(1, ROWS)]
        ends += [(between(left, right, i / COLUMNS), between(lower_left, low, i / COLUMNS))
                 for i in range(1, COLUMNS)]
        for pair in ends:
            feature = QgsFeature()
            feature.setGeometry(QgsGeometry.fromPolylineXY(list(pair)))
            features.append(feature)
    lines.dataProvider().addFeatures(features)
    lines.setRenderer(QgsSingleSymbolRenderer(
        QgsLineSymbol.createSimple({"color": "#d99", "width": "0.12"})))
    return lines


def layers():
    curved = QgsPalLayerSettings.Curved
    sheets = label(layer("sheets", QgsFillSymbol.createSimple(
        {"style": "no", "outline_color": "#b33", "outline_width": "0.5"})), "page", 17, "#b33")
    return [sheets,
            label(layer("places", QgsMarkerSymbol.createSimple({"color": "#222", "size": "1.2"})),
                  "name", 5.5, "#555"),
            label(layer("streets", QgsLineSymbol.createSimple({"color": "#fff", "width": "1"})),
                  "name", 5.5, "#222", curved),
            layer("streets", QgsLineSymbol.createSimple({"color": "#999", "width": "1.3"})),
            grid(sheets),
            label(layer("water", QgsFillSymbol.createSimple(
                {"color": "#a9cfe6", "outline_style": "no"})), "name", 7, "#247"),
            label(layer("parks", QgsFillSymbol.createSimple(
                {"color": "#cfe3bd", "outline_style": "no"})), "name", 5.5, "#373")]


def draw(picture):
    drawn = layers()
    settings = QgsMapSettings()
    settings.setLayers(drawn)
    settings.setOutputSize(SIZE)
    settings.setOutputDpi(DOTS_PER_INCH)
    settings.setBackgroundColor(QColor("#f7f3ea"))
    settings.setDestinationCrs(drawn[0].crs())
    extent = drawn[0].extent()
    extent.grow(BORDER)
    settings.setExtent(extent)
    job = QgsMapRendererParallelJob(settings)
    job.start()
    job.waitForFinished()
    job.renderedImage().save(picture)


application = QgsApplication([], False)
application.initQgis()
draw(sys.argv[1])
application.exitQgis()

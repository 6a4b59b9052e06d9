"""Layers as they are read while an algorithm runs, which may be on another thread than the window."""

from dataclasses import dataclass

from qgis.core import (QgsCoordinateReferenceSystem, QgsExpressionContext,
                       QgsExpressionContextUtils, QgsFeatureRequest, QgsFields, QgsProject,
                       QgsProviderRegistry, QgsVectorLayerFeatureSource)


@dataclass
class Source:
    title: str
    source: object  # has getFeatures
    fields: QgsFields
    geometry_type: int
    crs: QgsCoordinateReferenceSystem
    context: QgsExpressionContext
    request: QgsFeatureRequest
    count: int  # of features, for the progress

    def features(self):
        return self.source.getFeatures(self.request)


def title_of(layer):
    """The name of a layer. One that is no part of the project is called after its file by QGIS,
    and so are all layers of that file; it has its name in the file instead."""
    if QgsProject.instance().mapLayer(layer.id()):
        return layer.name()
    parts = QgsProviderRegistry.instance().decodeUri(layer.providerType(), layer.source())
    return parts.get("layerName") or layer.name()


def file_of(layer):
    """The file that a layer is read from; empty for one that is in none."""
    if not layer:
        return ""
    parts = QgsProviderRegistry.instance().decodeUri(layer.providerType(), layer.source())
    return parts.get("path") or ""


def _context(layer):
    context = QgsExpressionContext(QgsExpressionContextUtils.globalProjectLayerScopes(layer))
    context.lastScope().setVariable("layer_name", title_of(layer))
    return context


def source_of_layer(layer, selected_only=False):
    request = QgsFeatureRequest()
    if selected_only:
        request.setFilterFids(layer.selectedFeatureIds())
    return Source(title_of(layer), QgsVectorLayerFeatureSource(layer), layer.fields(),
                  layer.wkbType(), layer.crs(), _context(layer), request,
                  layer.selectedFeatureCount() if selected_only else layer.featureCount())


def source_of_parameter(source, layer):
    """From a source of Processing, which holds the choice of selected features. Of such a choice
    Processing does not tell the layer."""
    if layer:
        title, context = title_of(layer), _context(layer)
    else:
        title = source.sourceName()
        context = QgsExpressionContext(QgsExpressionContextUtils.globalProjectLayerScopes(None))
        context.appendScope(source.createExpressionContextScope())
    return Source(title, source, source.fields(), source.wkbType(), source.sourceCrs(), context,
                  QgsFeatureRequest(), source.featureCount())


def source_of_atlas(atlas):
    """The sheets of an atlas, chosen and ordered as it prints them."""
    result = source_of_layer(atlas.coverageLayer())
    result.request.setExpressionContext(result.context)
    if atlas.filterFeatures() and atlas.filterExpression():
        result.request.setFilterExpression(atlas.filterExpression())
    if atlas.sortFeatures() and atlas.sortExpression():
        result.request.addOrderBy(atlas.sortExpression(), atlas.sortAscending())
    return result

"""A temporary GeoPackage with what the program reads: geometries, and texts made by expressions."""

import os

from qgis.core import (QgsExpression, QgsExpressionContextScope, QgsFeature, QgsFeatureRequest,
                       QgsFeatureSink, QgsField, QgsFields, QgsProcessingException, QgsVectorFileWriter)
from qgis.PyQt.QtCore import QVariant

NUMBER = "fid"


def text_of(value):
    """A value as a label: numbers without a needless fraction, nothing for NULL."""
    if value is None or (isinstance(value, QVariant) and value.isNull()):
        return None
    if isinstance(value, float) and value.is_integer():
        return str(int(value))
    return str(value)


class _Expression:
    def __init__(self, source, text):
        self._title = source.title
        self._text = text
        self._expression = QgsExpression(text)
        if self._expression.hasParserError():
            self._fail(self._expression.parserErrorString())
        self._check_fields(source.fields)
        self._expression.prepare(source.context)

    def text(self, context):
        value = self._expression.evaluate(context)
        if self._expression.hasEvalError():
            self._fail(self._expression.evalErrorString())
        return text_of(value)

    def _check_fields(self, fields):
        """Unknown fields are no error to QGIS, but NULL."""
        for name in sorted(self._expression.referencedColumns()):
            if name != QgsFeatureRequest.ALL_ATTRIBUTES and fields.lookupField(name) < 0:
                raise QgsProcessingException(
                    f'Layer "{self._title}" has no field "{name}"; its fields are '
                    f'{", ".join(fields.names())}.')

    def _fail(self, reason):
        # The parser tells its reason in several lines.
        reason = " ".join(reason.split()).rstrip(".")
        raise QgsProcessingException(
            f'Layer "{self._title}": the expression {self._text} cannot be evaluated: {reason}.')


class TemporaryPackage:
    def __init__(self, folder, transform_context):
        self._path = os.path.join(folder, "layers.gpkg")
        self._transform_context = transform_context
        self._titles = {}

    def in_plain_words(self, text):
        """The text with names of layers in the place of paths of tables."""
        for path, title in self._titles.items():
            text = text.replace(path, title)
        return text

    def add(self, table, source, expressions, feedback):
        """Writes a table of the source with a field for each expression; features keep their
        numbers. Returns its path, or nothing if the user cancels."""
        path = f"{self._path}/{table}"
        self._titles[path] = f'Layer "{source.title}"'
        source.context.setFields(source.fields)
        prepared = [_Expression(source, text) for text in expressions.values()]
        fields = self._fields(expressions)
        writer = self._writer(table, source, fields)
        try:
            for number, feature in enumerate(source.features(), 1):
                if feedback.isCanceled():
                    return None
                self._set_scope(source.context, feature, number)
                row = QgsFeature(fields)
                row.setGeometry(feature.geometry())
                row.setAttributes([feature.id(), *(e.text(source.context) for e in prepared)])
                if not writer.addFeature(row, QgsFeatureSink.FastInsert):
                    raise QgsProcessingException(f"{path}: {writer.errorMessage()}")
                if source.count > 0:
                    feedback.setProgress(100 * number / source.count)
        finally:
            del writer  # Closes the file.
        return path

    @staticmethod
    def _set_scope(context, feature, number):
        context.setFeature(feature)
        # As in the expressions of an atlas.
        context.lastScope().addVariable(QgsExpressionContextScope.StaticVariable(
            "atlas_featurenumber", number, True))

    @staticmethod
    def _fields(expressions):
        fields = QgsFields()
        fields.append(QgsField(NUMBER, QVariant.LongLong))
        for name in expressions:
            fields.append(QgsField(name, QVariant.String))
        return fields

    def _writer(self, table, source, fields):
        options = QgsVectorFileWriter.SaveVectorOptions()
        options.driverName = "GPKG"
        options.layerName = table
        options.layerOptions = [f"FID={NUMBER}", "SPATIAL_INDEX=NO"]
        options.actionOnExistingFile = (QgsVectorFileWriter.CreateOrOverwriteLayer
                                        if os.path.exists(self._path)
                                        else QgsVectorFileWriter.CreateOrOverwriteFile)
        writer = QgsVectorFileWriter.create(self._path, fields, source.geometry_type, source.crs,
                                            self._transform_context, options)
        if writer.hasError() != QgsVectorFileWriter.NoError:
            raise QgsProcessingException(f"{self._path}: {writer.errorMessage()}")
        return writer

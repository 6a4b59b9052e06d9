"""What both algorithms do first: look up features on sheets, which makes the table of listings."""

import os
import tempfile

from qgis.core import (QgsProcessing, QgsProcessingAlgorithm, QgsProcessingException,
                       QgsProcessingParameterVectorDestination)

from . import parameters as p
from .package import TemporaryPackage
from .program import find_program, run_program
from .sources import file_of, source_of_atlas, source_of_layer, source_of_parameter

LISTINGS = "LISTINGS"
# Fields of the temporary tables, and of the listings where no better name is known.
NAME_FIELD, APART_FIELD, PAGE_FIELD = "name", "Apart", "page"
ROW_FIELD, COLUMN_FIELD = "row", "column"
# Of the temporary tables and of the listings.
TAKEN_FIELDS = {NAME_FIELD, "fid", "geom", "listing", "page", "row", "column", "part", "initial"}


class MapBookAlgorithm(QgsProcessingAlgorithm):
    def group(self):
        return "Map book"

    def groupId(self):  # noqa: N802
        return "mapbook"

    def createInstance(self):  # noqa: N802
        return type(self)()

    def icon(self):
        return self.provider().icon()

    def initAlgorithm(self, configuration=None):  # noqa: N802
        for parameter in [*p.feature_parameters(), *p.sheet_parameters(), *p.grid_parameters()]:
            self.addParameter(parameter)
        self.addParameter(QgsProcessingParameterVectorDestination(
            LISTINGS, "Listings", QgsProcessing.TypeVector))

    def checkParameterValues(self, values, context):  # noqa: N802
        if not values.get(p.SHEETS) and not values.get(p.LAYOUT):
            return False, "Sheets are needed: their layer, or a layout with an atlas."
        return super().checkParameterValues(values, context)

    def prepareAlgorithm(self, values, context, feedback):  # noqa: N802
        """Takes hold of layers and layouts, which only the main thread may touch."""
        find_program()
        selected_only = self.parameterAsBool(values, p.SELECTED, context)
        layers = self.parameterAsLayerList(values, p.LAYERS, context)
        self._features = [source_of_layer(layer, selected_only) for layer in layers]
        read = [*layers, *(self.parameterAsVectorLayer(values, name, context)
                           for name in (p.SHEETS, p.OWN_SQUARES))]
        self._files = {os.path.realpath(file) for file in map(file_of, read) if file}
        self._names = self._names_by_layer(values, context)
        self._sheets, self._page = self._sheets_and_page(values, context)
        self._squares = self._source(values, p.OWN_SQUARES, context)
        return True

    def _source(self, values, name, context):
        source = self.parameterAsSource(values, name, context)
        layer = self.parameterAsVectorLayer(values, name, context)
        return source_of_parameter(source, layer) if source else None

    def _expression(self, values, name, context):
        # parameterAsExpression takes the default in the place of a broken expression.
        return self.parameterAsString(values, name, context).strip()

    def _names_by_layer(self, values, context):
        cells = self.parameterAsMatrix(values, p.NAMES, context)
        named = dict(zip(cells[::2], cells[1::2]))
        titles = {source.title for source in self._features}
        for title in named:
            if title not in titles:
                raise QgsProcessingException(
                    f'There is no layer "{title}" among those to list, whose name is another '
                    "expression.")
        common = self._expression(values, p.NAME, context)
        return {title: named.get(title) or common for title in titles}

    def _sheets_and_page(self, values, context):
        page = self._expression(values, p.PAGE, context)
        sheets = self._source(values, p.SHEETS, context)
        layout = self.parameterAsLayout(values, p.LAYOUT, context)
        if not layout:
            return sheets, page or f'"{PAGE_FIELD}"'
        atlas = layout.atlas()
        if not atlas.enabled() or not atlas.coverageLayer():
            raise QgsProcessingException(f'The layout "{layout.name()}" has no atlas.')
        return sheets or source_of_atlas(atlas), page or atlas.pageNameExpression() or (
            f'"{PAGE_FIELD}"')

    def locate(self, values, context, feedback):
        """Writes the table of listings. Returns its path, or nothing if the user cancels."""
        output = self.parameterAsOutputLayer(values, LISTINGS, context)
        if os.path.realpath(output) in self._files:
            raise QgsProcessingException(
                f"The listings cannot be written to {output}: a layer is read from it.")
        with tempfile.TemporaryDirectory() as folder:
            package = TemporaryPackage(folder, context.transformContext())
            arguments = self._write_layers(package, values, context, feedback)
            if arguments is None:
                return None
            done = run_program(["locate", *arguments, *self._options(values, context), "--output",
                                output, "--force"], feedback, package.in_plain_words)
        return output if done else None

    def apart_field(self, values, context):
        """The field of the table that tells listings of one name apart, or nothing."""
        expression = self._expression(values, p.APART, context)
        field = expression.strip('"')
        if field.isidentifier() and field.lower() not in TAKEN_FIELDS:
            return field
        return APART_FIELD if expression else ""

    def _write_layers(self, package, values, context, feedback):
        """Arguments that name the layers, which are written to the package."""
        arguments = []
        apart = self._expression(values, p.APART, context)
        layer_field = self.parameterAsString(values, p.LAYER_FIELD, context)
        for number, source in enumerate(self._features, 1):
            expressions = {NAME_FIELD: self._names[source.title]}
            if apart:
                expressions[self.apart_field(values, context)] = apart
            arguments.append(package.add(f"features{number}", source, expressions, feedback))
            arguments += ["--name", NAME_FIELD]
            if layer_field:
                arguments += ["--set", f"{layer_field}={source.title}"]
        arguments += ["--sheets", package.add("sheets", self._sheets, {PAGE_FIELD: self._page},
                                              feedback)]
        if self._squares:
            arguments += ["--cells", package.add("squares", self._squares, {
                ROW_FIELD: self._expression(values, p.OWN_ROW, context),
                COLUMN_FIELD: self._expression(values, p.OWN_COLUMN, context)}, feedback)]
        return None if None in arguments else arguments

    def _options(self, values, context):
        options = ["--squares", p.WHICH_SQUARES[self.parameterAsEnum(values, p.SQUARES, context)]]
        rows, columns = values.get(p.ROWS), values.get(p.COLUMNS)
        if rows is not None or columns is not None:
            options += ["--grid", f"{self._number(values, p.ROWS, context)}x"
                                  f"{self._number(values, p.COLUMNS, context)}"]
        for name, option in ((p.ROW_LABELS, "--row-labels"), (p.COLUMN_LABELS, "--column-labels"),
                             (p.LEAVE_OUT, "--leave-out")):
            if text := self.parameterAsString(values, name, context):
                options += [option, text]
        bottom = self.parameterAsBool(values, p.FROM_BOTTOM, context)
        right = self.parameterAsBool(values, p.FROM_RIGHT, context)
        if bottom or right:
            options += ["--origin", ("bottom" if bottom else "top") + ("-right" if right else "-left")]
        if distance := self.parameterAsDouble(values, p.DISTANCE, context):
            options += ["--distance", repr(distance)]
        if apart := self.apart_field(values, context):
            options += ["--apart", apart]
        return options

    def _number(self, values, name, context):
        # The program refuses a grid of which only rows or columns are given.
        return 0 if values.get(name) is None else self.parameterAsInt(values, name, context)

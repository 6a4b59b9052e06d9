"""Parameters that both algorithms have: what is listed, the sheets, and the squares on them."""

from qgis.core import (QgsProcessing, QgsProcessingParameterBoolean, QgsProcessingParameterDefinition,
                       QgsProcessingParameterDistance, QgsProcessingParameterEnum,
                       QgsProcessingParameterExpression, QgsProcessingParameterFeatureSource,
                       QgsProcessingParameterLayout, QgsProcessingParameterMatrix,
                       QgsProcessingParameterMultipleLayers, QgsProcessingParameterNumber,
                       QgsProcessingParameterString)

LAYERS, SELECTED, NAME, NAMES, APART, LAYER_FIELD = (
    "LAYERS", "SELECTED", "NAME", "NAMES", "APART", "LAYER_FIELD")
SHEETS, LAYOUT, PAGE = "SHEETS", "LAYOUT", "PAGE"
ROWS, COLUMNS, ROW_LABELS, COLUMN_LABELS, LEAVE_OUT = (
    "ROWS", "COLUMNS", "ROW_LABELS", "COLUMN_LABELS", "LEAVE_OUT")
FROM_BOTTOM, FROM_RIGHT, SQUARES, DISTANCE = "FROM_BOTTOM", "FROM_RIGHT", "SQUARES", "DISTANCE"
OWN_SQUARES, OWN_ROW, OWN_COLUMN = "OWN_SQUARES", "OWN_ROW", "OWN_COLUMN"

# As the program calls them.
WHICH_SQUARES = ["longest", "all", "first"]
MOST_SQUARES = 1000


def advanced(parameter):
    parameter.setFlags(parameter.flags() | QgsProcessingParameterDefinition.FlagAdvanced)
    return parameter


def whole_number(name, text, least=1, most=MOST_SQUARES):
    return QgsProcessingParameterNumber(name, text, QgsProcessingParameterNumber.Integer, None, True,
                                        least, most)


def feature_parameters():
    return [
        QgsProcessingParameterMultipleLayers(LAYERS, "Layers to list",
                                             QgsProcessing.TypeVectorAnyGeometry),
        QgsProcessingParameterExpression(NAME, "Name", '"name"', LAYERS),
        QgsProcessingParameterExpression(
            APART, "What tells features of one name apart, such as the town", "", LAYERS, True),
        QgsProcessingParameterBoolean(SELECTED, "Selected features only", False),
        advanced(QgsProcessingParameterMatrix(
            NAMES, "Layers whose name is another expression", 0, False,
            ["Layer", "Expression of the name"], [], True)),
        advanced(QgsProcessingParameterString(
            LAYER_FIELD, "Field of the table that gets the layer's name", "", False, True))]


def sheet_parameters():
    return [
        QgsProcessingParameterFeatureSource(SHEETS, "Sheets: the coverage layer of the atlas",
                                            [QgsProcessing.TypeVectorPolygon], None, True),
        QgsProcessingParameterLayout(LAYOUT, "Or the layout with the atlas", None, True),
        QgsProcessingParameterExpression(
            PAGE, "Page (empty: the page name of the atlas, or the field page)", "", SHEETS, True)]


def grid_parameters():
    return [
        whole_number(ROWS, "Rows of the grid (empty: no grid)"),
        whole_number(COLUMNS, "Columns of the grid"),
        QgsProcessingParameterEnum(
            SQUARES, "Squares of a sheet to refer to",
            ["the one with the longest or largest part", "all", "the first"], False, 0),
        advanced(QgsProcessingParameterString(
            ROW_LABELS, "Labels of the rows, such as A..H or with commas", "", False, True)),
        advanced(QgsProcessingParameterString(COLUMN_LABELS, "Labels of the columns", "", False,
                                              True)),
        advanced(QgsProcessingParameterString(
            LEAVE_OUT, "Letters that labels leave out, such as IO", "", False, True)),
        advanced(QgsProcessingParameterBoolean(FROM_BOTTOM, "The first row is the lowest", False)),
        advanced(QgsProcessingParameterBoolean(FROM_RIGHT, "The first column is at the right",
                                               False)),
        advanced(QgsProcessingParameterDistance(
            DISTANCE, "Features of one name that lie farther apart are listed apart (0: however far)",
            0, SHEETS, True, 0)),
        advanced(QgsProcessingParameterFeatureSource(
            OWN_SQUARES, "A layer of squares instead of a grid",
            [QgsProcessing.TypeVectorPolygon], None, True)),
        advanced(QgsProcessingParameterExpression(OWN_ROW, "Row of a square", '"row"', OWN_SQUARES,
                                                  True)),
        advanced(QgsProcessingParameterExpression(OWN_COLUMN, "Column of a square", '"column"',
                                                  OWN_SQUARES, True))]

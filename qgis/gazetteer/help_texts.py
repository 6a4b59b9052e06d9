"""Help texts of the algorithms, shown beside their parameters."""

_FEATURES = """
<p><b>Layers to list</b>: streets, parks, places: points, lines and areas of any source, with the filters
and joins that they have in the project. <b>Name</b> is a field or an expression, the same for all layers;
it may use <i>@layer_name</i>, and <i>attribute('town')</i> for a field that not all of them have. Under the
advanced parameters a layer, by its name in the project, can have an expression of its own. Features without
a name are left out and counted.</p>
<p>Features of one name are one listing, unless another value <b>tells them apart</b>, such as the town, or
they lie farther from each other than a given distance.</p>
"""

_SHEETS = """
<p><b>Sheets</b>: areas, as the coverage layer of an atlas has them; or choose the layout, and the atlas
gives layer, filter, order and page name. <b>Page</b> is a field or an expression, such as
<i>@atlas_featurenumber + 4</i>. Sheets may overlap and be turned; a grid needs rectangles (the algorithm
"Bounding boxes" makes them of other areas).</p>
<p><b>Rows and columns</b> divide each sheet into squares, rows from A at the top, columns from 1 at the
left, unless the advanced parameters tell otherwise. A layer of squares of your own can be used instead.
Layers of other reference systems are transformed to that of the sheets.</p>
"""

_PROGRAM = """
<p>The work is done by the program <i>gazetteer</i>: that of the setting under Settings, Options,
Processing, Providers, Gazetteer, or of the environment variable GAZETTEER_PROGRAM, or on the PATH.</p>
"""


def _text(*parts):
    # QGIS would begin a paragraph at the end of each line.
    return " ".join("".join(parts).split())


LISTINGS_HELP = _text("""
<p>Looks up the features of layers on the sheets of an atlas, and makes a table with the fields Listing,
Page, Row and Column: a record for each sheet on which a name occurs, or for each square.</p>
""", _FEATURES, _SHEETS, _PROGRAM)

INDEX_HELP = _text("""
<p>Makes the index at the back of an atlas from the layers of its map, ready to print, and the table of
listings that it consists of.</p>
""", _FEATURES, _SHEETS, """
<p><b>Locale</b> is the language in whose order names are sorted. <b>Settings</b> change the look of the
index, such as <i>Listing.Title=Street</i> or <i>*.ColumnFontSymbol=DejaVu Serif,9</i>. The
<b>document</b>, if you keep one, opens in the window gazetteer-desk, where all of that can be
changed.</p>
""", _PROGRAM)

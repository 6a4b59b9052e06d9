from .help_texts import LISTINGS_HELP
from .map_book_algorithm import LISTINGS, MapBookAlgorithm


class ListingsAlgorithm(MapBookAlgorithm):
    def name(self):
        return "listings"

    def displayName(self):  # noqa: N802
        return "Map book listings"

    def shortDescription(self):  # noqa: N802
        return "A table of the names on the sheets of an atlas, with page and grid square."

    def shortHelpString(self):  # noqa: N802
        return LISTINGS_HELP

    def tags(self):
        return ["index", "atlas", "map book", "street", "grid", "gazetteer"]

    def processAlgorithm(self, values, context, feedback):  # noqa: N802
        table = self.locate(values, context, feedback)
        return {LISTINGS: table} if table else {}

from .help_texts import INDEX_HELP
from .index_parameters import DOCUMENT, PDF, index_options, index_parameters
from .map_book_algorithm import LISTINGS, MapBookAlgorithm
from .program import run_program


class IndexAlgorithm(MapBookAlgorithm):
    def name(self):
        return "index"

    def displayName(self):  # noqa: N802
        return "Map book index"

    def shortDescription(self):  # noqa: N802
        return "The index of an atlas, ready to print, and the table that it is made from."

    def shortHelpString(self):  # noqa: N802
        return INDEX_HELP

    def tags(self):
        return ["index", "atlas", "map book", "street", "grid", "gazetteer", "pdf", "print"]

    def initAlgorithm(self, configuration=None):  # noqa: N802
        super().initAlgorithm(configuration)
        for parameter in index_parameters():
            self.addParameter(parameter)

    def processAlgorithm(self, values, context, feedback):  # noqa: N802
        table = self.locate(values, context, feedback)
        if not table:
            return {}
        pdf = self.parameterAsFileOutput(values, PDF, context)
        document = self.parameterAsFileOutput(values, DOCUMENT, context)
        arguments = ["make", table, "--output", pdf]
        if document:
            arguments += ["--document", document]
        arguments += index_options(self, values, context)
        if not run_program(arguments, feedback):
            return {LISTINGS: table}
        return {LISTINGS: table, PDF: pdf, **({DOCUMENT: document} if document else {})}

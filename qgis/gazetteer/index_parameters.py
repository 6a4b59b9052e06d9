"""Parameters of the index, and the arguments of the program that follow from them."""

from qgis.core import (QgsApplication, QgsProcessingParameterEnum,
                       QgsProcessingParameterFileDestination, QgsProcessingParameterString)

from .parameters import advanced, whole_number

PDF, DOCUMENT = "PDF", "DOCUMENT"
PAGE_SIZE, OTHER_SIZE, LOCALE, TITLE = "PAGE_SIZE", "OTHER_SIZE", "LOCALE", "TITLE"
INDEX_COLUMNS, FIRST_PAGE, SETTINGS = "INDEX_COLUMNS", "FIRST_PAGE", "SETTINGS"

BY_LOCALE = "by the locale"
PAGE_SIZES = [BY_LOCALE, "a3", "a4", "a5", "b5", "letter", "legal", "tabloid"]
MOST_COLUMNS, MOST_PAGES = 16, 1_000_000_000


def index_parameters():
    return [
        QgsProcessingParameterString(TITLE, "Title", "", False, True),
        QgsProcessingParameterEnum(PAGE_SIZE, "Page size", PAGE_SIZES, False, BY_LOCALE, False, True),
        whole_number(INDEX_COLUMNS, "Columns on a page (empty: as many as fit)", 1, MOST_COLUMNS),
        whole_number(FIRST_PAGE, "Number of the first page of the index", 1, MOST_PAGES),
        QgsProcessingParameterString(LOCALE, "Locale of the order of names, such as de or cs",
                                     QgsApplication.locale(), False, True),
        advanced(QgsProcessingParameterString(OTHER_SIZE, "Another page size, such as 148x210mm", "",
                                              False, True)),
        advanced(QgsProcessingParameterString(SETTINGS, "Settings, a line KEY=VALUE for each", "",
                                              True, True)),
        QgsProcessingParameterFileDestination(PDF, "Index", "PDF files (*.pdf)"),
        QgsProcessingParameterFileDestination(DOCUMENT, "Document", "Gazetteer documents (*.json)",
                                              None, True, False)]


def index_options(algorithm, values, context):
    options = []
    size = (algorithm.parameterAsString(values, OTHER_SIZE, context)
            or algorithm.parameterAsEnumString(values, PAGE_SIZE, context))
    if size and size != BY_LOCALE:
        options += ["--page-size", size]
    for name, option in ((LOCALE, "--locale"), (TITLE, "--title")):
        if text := algorithm.parameterAsString(values, name, context):
            options += [option, text]
    for name, option in ((INDEX_COLUMNS, "--columns"), (FIRST_PAGE, "--first-page")):
        if values.get(name) is not None:
            options += [option, str(algorithm.parameterAsInt(values, name, context))]
    for line in algorithm.parameterAsString(values, SETTINGS, context).splitlines():
        if line.strip():
            options += ["--set", line.strip()]
    return options

import os

from processing.core.ProcessingConfig import ProcessingConfig, Setting
from qgis.core import QgsProcessingProvider
from qgis.PyQt.QtGui import QIcon

from .index_algorithm import IndexAlgorithm
from .listings_algorithm import ListingsAlgorithm
from .program import PROGRAM_SETTING

ICON = QIcon(os.path.join(os.path.dirname(__file__), "icon.svg"))


class GazetteerProvider(QgsProcessingProvider):
    def id(self):
        return "gazetteer"

    def name(self):
        return "Gazetteer"

    def longName(self):  # noqa: N802
        return "Gazetteer: index of a map book"

    def icon(self):
        return ICON

    def load(self):
        ProcessingConfig.settingIcons[self.name()] = ICON
        ProcessingConfig.addSetting(Setting(
            self.name(), PROGRAM_SETTING,
            "Program gazetteer (empty: GAZETTEER_PROGRAM of the environment, or that on the PATH)",
            "", valuetype=Setting.FILE))
        ProcessingConfig.readSettings()
        self.refreshAlgorithms()
        return True

    def unload(self):
        ProcessingConfig.removeSetting(PROGRAM_SETTING)

    def loadAlgorithms(self):  # noqa: N802
        self.addAlgorithm(ListingsAlgorithm())
        self.addAlgorithm(IndexAlgorithm())

    # The program writes tables as files of these kinds.
    def supportedOutputVectorLayerExtensions(self):  # noqa: N802
        return ["gpkg", "dbf", "csv"]

    def supportedOutputTableExtensions(self):  # noqa: N802
        return ["gpkg", "dbf", "csv"]

    def defaultVectorFileExtension(self, hasGeometry=True):  # noqa: N802, N803
        return "gpkg"

    def supportsNonFileBasedOutput(self):  # noqa: N802
        return False

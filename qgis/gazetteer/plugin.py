from qgis.core import QgsApplication

from .provider import GazetteerProvider


class GazetteerPlugin:
    """Adds the provider to the Processing toolbox, with a window or in qgis_process."""

    def __init__(self):
        self._provider = None

    def initProcessing(self):  # noqa: N802
        self._provider = GazetteerProvider()
        QgsApplication.processingRegistry().addProvider(self._provider)

    def initGui(self):  # noqa: N802
        self.initProcessing()

    def unload(self):
        if self._provider:
            QgsApplication.processingRegistry().removeProvider(self._provider)
            self._provider = None

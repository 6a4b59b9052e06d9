def classFactory(iface):  # noqa: N802, the name that QGIS looks for
    from .plugin import GazetteerPlugin

    return GazetteerPlugin()

# Debian packages by `cpack` in a build of the preset "package"; scripts/package does both.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME gazetteer)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Gazetteer developers <gazetteer@example.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL program dev)
if(TARGET gis_library)
  list(APPEND CPACK_COMPONENTS_ALL gdal)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Documents and manual pages at Debian's paths.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/debian/Stage.cmake)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME gazetteer)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
# `make` uses Liberation Sans. The window needs a Qt platform plugin.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "fonts-liberation, qt6-qpa-plugins")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
    "fonts-dejavu-core, fonts-noto-core, fonts-noto-cjk, gazetteer-gdal (= ${PROJECT_VERSION}-1)")
# `make` divides words of the languages whose patterns are installed.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "hyphen-hyphenation-patterns")
# The summary of all packages is the project's description.
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"The back of a map book holds an index of its places and streets, each with
page and grid square. gazetteer makes it, from a dBase table to pages ready
for the printer: sorted by the rules of the reader's language, references
combined, with dot leaders, letter headings, titles and running heads, as PDF,
SVG or PNG.
.
This package holds the command line, the window gazetteer-desk, the component
with the property page, and example tables.")

set(CPACK_DEBIAN_GDAL_PACKAGE_NAME gazetteer-gdal)
set(CPACK_DEBIAN_GDAL_PACKAGE_SECTION text)
set(CPACK_DEBIAN_GDAL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_GDAL_PACKAGE_DEPENDS "gazetteer (= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_GDAL_DESCRIPTION
"The library by which gazetteer reads tables of GeoPackage, CSV, GeoJSON,
FlatGeobuf, SQLite, Excel and OpenDocument files, PostGIS servers, and the
other sources that GDAL knows. Tables in dBase files and Shapefiles need no
such library.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME gazetteer-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "gazetteer (= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_DEV_DESCRIPTION
"Headers, static libraries and a CMake config package for programs that make
such an index themselves, as a host of the component or with its manager
linked.")

include(CPack)

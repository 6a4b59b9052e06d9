# libhyphen, which has no file for pkg-config: the target Hyphen::Hyphen.
find_path(HYPHEN_INCLUDE_DIR hyphen.h)
find_library(HYPHEN_LIBRARY hyphen)
mark_as_advanced(HYPHEN_INCLUDE_DIR HYPHEN_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Hyphen REQUIRED_VARS HYPHEN_LIBRARY HYPHEN_INCLUDE_DIR)
if(Hyphen_FOUND AND NOT TARGET Hyphen::Hyphen)
  add_library(Hyphen::Hyphen UNKNOWN IMPORTED)
  set_target_properties(Hyphen::Hyphen PROPERTIES
    IMPORTED_LOCATION ${HYPHEN_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${HYPHEN_INCLUDE_DIR})
endif()

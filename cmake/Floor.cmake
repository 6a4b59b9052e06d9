# gazetteer_floor(NAME SOURCES ... LINKS ...)
#
# A floor of the house as a static library. Its private include folder holds only the floors it
# links, laid out as links to the source folders, so that a header of a floor above or beside
# cannot be included by accident.
function(gazetteer_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;LINKS" ${ARGN})
  set(view ${CMAKE_BINARY_DIR}/view/${name})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${view}/${name} SYMBOLIC)
  if(FLOOR_SOURCES)
    add_library(${name} STATIC ${FLOOR_SOURCES})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${view}>)
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PUBLIC ${FLOOR_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE $<BUILD_INTERFACE:${view}>)
    target_compile_features(${name} INTERFACE cxx_std_20)
    target_link_libraries(${name} INTERFACE ${FLOOR_LINKS})
  endif()
endfunction()

# gazetteer_floor(NAME [QT] SOURCES ... [PUBLIC ...] [PRIVATE ...])
#
# Adds a floor, or a room of one, as a static library. It can include its own headers and those of the
# floors and rooms in its lists, no others. PUBLIC: used by its headers, and visible to its users;
# PRIVATE: used by its sources only. QT: uses Qt Widgets.
function(gazetteer_floor name)
  cmake_parse_arguments(FLOOR "QT" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  if(NOT FLOOR_SOURCES)
    add_library(${name} INTERFACE)
    gazetteer_view(${name} INTERFACE)
    target_compile_features(${name} INTERFACE cxx_std_20)
    target_link_libraries(${name} INTERFACE ${FLOOR_PUBLIC})
    return()
  endif()
  add_library(${name} STATIC ${FLOOR_SOURCES})
  gazetteer_view(${name} PUBLIC)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${FLOOR_PUBLIC} PRIVATE ${FLOOR_PRIVATE})
  if(FLOOR_QT)
    gazetteer_precompile(${name} ProductQt)
  else()
    gazetteer_precompile(${name} Product)
  endif()
endfunction()

# gazetteer_view(NAME SCOPE): gives a target an include folder that contains only a link to the current
# source folder, at the path by which its headers are included.
function(gazetteer_view name scope)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/src
             OUTPUT_VARIABLE path)
  set(view ${CMAKE_BINARY_DIR}/view/${name})
  cmake_path(GET path PARENT_PATH parent)
  file(MAKE_DIRECTORY ${view}/${parent})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${view}/${path} SYMBOLIC)
  target_include_directories(${name} ${scope} $<BUILD_INTERFACE:${view}>)
  set_property(GLOBAL APPEND PROPERTY GAZETTEER_ROOMS ${name})
  set_property(GLOBAL PROPERTY GAZETTEER_PATH_OF_${name} ${path})
endfunction()

# Installs programs in bin and the component library in lib/gazetteer, on every system: programs find
# it relative to themselves, so the tree can be moved, and it is loaded, not linked. The component
# "dev", for other hosts, has the floors as libraries, their headers and a CMake config package.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(GAZETTEER_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/gazetteer)
set(GAZETTEER_CONFIG ${CMAKE_INSTALL_LIBDIR}/cmake/CVNGazetteer)
set(GAZETTEER_FLOORS host support model listings layout manager)

install(TARGETS ${GAZETTEER_FLOORS} EXPORT CVNGazetteerTargets
        ARCHIVE COMPONENT dev
        INCLUDES DESTINATION ${GAZETTEER_HEADERS})
foreach(floor ${GAZETTEER_FLOORS})
  # Qualified, because the system's library folder is shared.
  set_target_properties(${floor} PROPERTIES OUTPUT_NAME gazetteer-${floor})
  install(DIRECTORY src/${floor} DESTINATION ${GAZETTEER_HEADERS} COMPONENT dev
          FILES_MATCHING PATTERN "*.h")
endforeach()
install(EXPORT CVNGazetteerTargets NAMESPACE CVNGazetteer:: DESTINATION ${GAZETTEER_CONFIG}
        COMPONENT dev)

configure_package_config_file(cmake/CVNGazetteerConfig.cmake.in
  ${CMAKE_BINARY_DIR}/CVNGazetteerConfig.cmake INSTALL_DESTINATION ${GAZETTEER_CONFIG}
  PATH_VARS GAZETTEER_COMPONENT_FOLDER
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/CVNGazetteerConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/CVNGazetteerConfig.cmake
              ${CMAKE_BINARY_DIR}/CVNGazetteerConfigVersion.cmake
        DESTINATION ${GAZETTEER_CONFIG} COMPONENT dev)

foreach(program gazetteer gazetteer-desk)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME COMPONENT program)
  endif()
endforeach()
if(TARGET component)
  install(TARGETS component LIBRARY DESTINATION ${GAZETTEER_COMPONENT_FOLDER} COMPONENT program)
endif()

# The library of GIS sources, which brings many others, is a component and a package of its own.
if(TARGET gis_library)
  install(TARGETS gis_library LIBRARY DESTINATION ${GAZETTEER_COMPONENT_FOLDER} COMPONENT gdal)
endif()

# Generates a program's manual page from its help and the text in packaging/man.
function(gazetteer_manual program)
  set(source ${CMAKE_SOURCE_DIR}/packaging/man)
  set(page ${CMAKE_BINARY_DIR}/man/${program}.1)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/man)
  # The tests check for leaks.
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
            ${source}/manual $<TARGET_FILE:${program}> ${source}/${program}.1.in > ${page}
    DEPENDS ${program} ${source}/manual ${source}/${program}.1.in)
  add_custom_target(${program}-manual ALL DEPENDS ${page})
  install(FILES ${page} TYPE MAN RENAME man1/${program}.1 COMPONENT program)
endfunction()

if(GAZETTEER_DESK)
  gazetteer_manual(gazetteer)
  install(FILES packaging/completion/gazetteer
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
  install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT program
          FILES_MATCHING REGEX "\\.(dbf|cpg|gpkg|json|md)$"
          PATTERN embed EXCLUDE PATTERN recipes EXCLUDE)
  # As in the repository, so that links lead on.
  install(FILES README.md CONTRIBUTING.md TYPE DOC COMPONENT program)
  install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT program
          FILES_MATCHING REGEX "\\.(md|svg|png)$" PATTERN tool EXCLUDE)
endif()
if(TARGET gazetteer-desk)
  gazetteer_manual(gazetteer-desk)
  install(FILES packaging/completion/gazetteer-desk
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
  install(FILES packaging/desktop/gazetteer-desk.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
  install(FILES packaging/desktop/gazetteer.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT program)
  install(FILES src/app/window/icons/gazetteer-desk.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT program)
endif()
install(DIRECTORY examples/embed DESTINATION ${CMAKE_INSTALL_DOCDIR}-dev/examples COMPONENT dev)

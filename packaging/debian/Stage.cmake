# Run by cpack between installing and packing: adds copyright and changelog to each package and
# compresses the files that Debian policy requires, without names and times, so that packages are
# reproducible.
foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} COMPONENT)
  set(package ${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(documents ${root}/share/doc/${package})
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${documents})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian COPYONLY)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md ${documents}/changelog COPYONLY)
  file(GLOB_RECURSE pages ${root}/share/man/*)
  execute_process(COMMAND gzip -9nf ${documents}/changelog.Debian ${documents}/changelog ${pages}
                  COMMAND_ERROR_IS_FATAL ANY)
endforeach()

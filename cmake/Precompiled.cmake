# Precompiled headers, one per kind of target for the whole tree:
#   gazetteer_precompile(TARGET KIND)    compiles the target with cmake/precompiled/KIND.h
#   gazetteer_precompiled(KIND LINKS)    precompiles that header, with the include paths of LINKS
option(GAZETTEER_PRECOMPILE "Parse the headers that most files include once for all" ON)
# Some libraries require it, and precompiled headers need the same options as their users.
add_compile_options(-pthread)

function(gazetteer_precompiled kind)
  if(NOT GAZETTEER_PRECOMPILE)
    return()
  endif()
  set(folder ${CMAKE_SOURCE_DIR}/cmake/precompiled)
  add_library(Precompiled${kind} OBJECT ${folder}/Nothing.cpp)
  target_link_libraries(Precompiled${kind} PRIVATE ${ARGN})
  target_precompile_headers(Precompiled${kind} PRIVATE ${folder}/${kind}.h)
endfunction()

function(gazetteer_precompile target kind)
  if(GAZETTEER_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM Precompiled${kind})
  endif()
endfunction()

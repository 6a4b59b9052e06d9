# Headers that most files include are parsed once for the whole tree, by kind of target:
#   gazetteer_precompile(TARGET KIND)    the target's files start from cmake/precompiled/KIND.h
#   gazetteer_precompiled(KIND LINKS)    parses that header, with the include paths of the links
option(GAZETTEER_PRECOMPILE "Parse the headers that most files include once for all" ON)
# Some libraries ask for it, and a file compiled with it takes over no header compiled without.
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

# Installs a build into a folder of its own, builds the example host against that folder alone, and
# runs it. BUILD, GENERATOR, EXAMPLE, and the FLAGS that the build was compiled with.
string(RANDOM LENGTH 8 name)
set(folder ${BUILD}/tests/install/${name})
file(MAKE_DIRECTORY ${folder})
set(failure "")

macro(step what)
  if(NOT failure)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE told ERROR_VARIABLE told)
    if(result)
      set(failure "${what}: ${result}\n${told}")
    endif()
  endif()
endmacro()

step("Installing" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder}/installed)
step("Configuring the example" ${CMAKE_COMMAND} -S ${EXAMPLE} -B ${folder}/example -G ${GENERATOR}
     -D CMAKE_PREFIX_PATH=${folder}/installed -D CMAKE_CXX_FLAGS=${FLAGS})
step("Building the example" ${CMAKE_COMMAND} --build ${folder}/example)
step("Running the example" ${folder}/example/print-index)
foreach(line "   Main St.......... 4 B-3, 5 B-1" "   Zoo Way.......... 5 D-4")
  string(FIND "${told}" "${line}" place)
  if(NOT failure AND place EQUAL -1)
    set(failure "The example does not print \"${line}\":\n${told}")
  endif()
endforeach()

file(REMOVE_RECURSE ${folder})
if(failure)
  message(FATAL_ERROR "${failure}")
endif()

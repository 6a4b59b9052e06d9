# Warnings are errors in the presets, but not for those who package the program with a compiler that
# warns of more. Headers of other projects are SYSTEM.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                    -Wold-style-cast -Woverloaded-virtual)
# GCC 12 sees faults in the standard library's strings where there are none: overlapping copies and
# accesses past the end in "text" + std::string and in comparisons with literals (GCC bug 105651), and
# uninitialised strings in tables of structs that hold some (105562).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict -Wno-maybe-uninitialized -Wno-stringop-overread
                      -Wno-stringop-overflow -Wno-array-bounds)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND GAZETTEER_SANITIZE)
  # GCC 14 sees uninitialised functions in std::regex if the sanitizers stand in between (105562, too).
  add_compile_options(-Wno-maybe-uninitialized)
endif()
if(GAZETTEER_SANITIZE)
  add_link_options(-fsanitize=address,undefined)
  # The tests start the programs more than a thousand times. Without relocations a sanitized program
  # starts in two thirds of the time.
  string(APPEND CMAKE_EXE_LINKER_FLAGS " -no-pie")
endif()

# Warnings are errors everywhere in this tree; headers of other projects are included as SYSTEM.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                    -Wold-style-cast -Woverloaded-virtual -Werror)
# GCC 12 sees overlapping copies in "text" + std::string where there are none (GCC bug 105651),
# uninitialised strings in tables of structs that hold some (105562), and accesses beyond short strings
# that are compared with literals.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict -Wno-maybe-uninitialized -Wno-stringop-overread
                      -Wno-stringop-overflow)
endif()
if(GAZETTEER_SANITIZE)
  add_link_options(-fsanitize=address,undefined)
endif()

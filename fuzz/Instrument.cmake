# Everything that the fuzz targets link is watched: by sanitizers for faults, and by libFuzzer for the
# edges that an input reaches. libFuzzer comes with clang alone.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "GAZETTEER_FUZZ needs clang: set CMAKE_CXX_COMPILER to clang++-16.")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)

# Instruments everything that the fuzz targets link: with sanitizers, and with libFuzzer's coverage.
# libFuzzer requires clang.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "GAZETTEER_FUZZ needs clang: set CMAKE_CXX_COMPILER to clang++-16 or later.")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)

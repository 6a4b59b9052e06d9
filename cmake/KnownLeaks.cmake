# Environment of a test that suppresses leaks in other libraries.
set(KNOWN_LEAKS
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0")

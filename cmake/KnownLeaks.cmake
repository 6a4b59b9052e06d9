# What a test's environment says to the leak sanitizer: the leaks of other libraries are theirs.
set(KNOWN_LEAKS
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0")

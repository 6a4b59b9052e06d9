# Environment of a test that suppresses leaks in other libraries.
set(KNOWN_LEAKS
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0")
# Environment of a test that starts the command line many times: looking for leaks takes a third of
# each run. Leaks.EachCommandFreesWhatItTakes looks for them, once for each kind of run.
set(WITHOUT_LEAKS "ASAN_OPTIONS=detect_leaks=0")

/// Whole stacks of allocations, so that a leak of cairo's own is told from one of ours in cairo.
extern "C" const char* __asan_default_options();

extern "C" const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}

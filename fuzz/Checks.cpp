#include "Checks.h"

#include <cstdio>
#include <cstdlib>
#include <simdjson.h>

namespace fuzz {

void Find(const std::string& what) {
    std::fprintf(stderr, "FOUND: %s\n", what.c_str());
    std::abort();
}

void RequireText(std::string_view text, const char* what) {
    if (!simdjson::validate_utf8(text.data(), text.size()))
        Find(std::string(what) + " is not UTF-8");
}

void RequireSentence(const host::Failure& failure) {
    RequireText(failure.description, "the description of a failure");
    Require(!failure.cause.empty(), "a failure has no text");
}

}  // namespace fuzz

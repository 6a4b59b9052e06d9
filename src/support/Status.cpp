#include "support/Status.h"

#include <array>
#include <charconv>

namespace gazetteer {

void Status::Show(const char* text, std::int64_t number) {
    std::array<char, 20> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text_.assign(text).append(digits.data(), end);
    bar_->SetText(0, text_);
}

}  // namespace gazetteer

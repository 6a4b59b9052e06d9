#include "support/Status.h"

#include <array>
#include <charconv>

namespace gazetteer {

void Status::Show(const char* text, std::int64_t number, std::int64_t step, std::int64_t steps) {
    std::array<char, 20> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text_.assign(text).append(digits.data(), end);
    if (counts_) counts_->SetStep(step, steps);
    bar_->SetText(0, text_);
}

std::int64_t CountRows(const host::IHostTable& table) {
    const auto* const counted = dynamic_cast<const host::IHostRowCount*>(&table);
    return counted ? counted->CountRows() : 0;
}

}  // namespace gazetteer

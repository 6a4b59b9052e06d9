#include "app_window/WindowStory.h"

namespace window_test {
namespace {

std::string TagOf(const host::Ref<host::IHostElement>& element) {
    const auto named = host::As<host::IHostElementName>(element);
    return named ? named->Name() : std::string();
}

// The first text in an element, depth first.
std::string FirstText(const host::Ref<host::IHostElement>& element) {
    if (const auto text = host::As<host::IHostTextElement>(element)) return text->Text();
    const auto group = host::As<host::IHostGroupElement>(element);
    for (std::int32_t i = 0; group && i < group->Count(); ++i) {
        const std::string text = FirstText(group->Item(i));
        if (!text.empty()) return text;
    }
    return {};
}

}  // namespace

std::vector<std::string> WindowStory::DrawnListings() const {
    std::vector<std::string> texts;
    const auto& element = Layout().Gazetteer();
    for (std::int32_t i = 0; element && i < element->Count(); ++i)
        if (TagOf(element->Item(i)) == "ROWGROUP")
            texts.push_back(FirstText(element->Item(i)).substr(0, 10));
    return texts;
}

}  // namespace window_test

#include "app/window/layers/LocateTexts.h"

#include <algorithm>
#include <filesystem>

namespace app {
namespace {

struct OptionAndControl {
    const char* option;
    const char* control;
};

constexpr OptionAndControl kControls[] = {
    {"--row-labels", "Labels of the grid rows"},
    {"--column-labels", "Labels of the grid columns"},
    {"--grid", "Grid rows and columns"},
    {"--name", "Name"},
    {"--set", "Constants"},
    {"--apart", "Tell apart by"},
    {"--book", "Write map book"},
};

void Replace(std::string& text, const std::string& part, const std::string& by) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
        text.replace(at, part.size(), by);
}

}  // namespace

std::string InWordsOfPage(std::string sentence) {
    for (const auto& [option, control] : kControls) Replace(sentence, option, control);
    return sentence;
}

std::string WithoutFolders(std::string text, const std::vector<std::string>& files) {
    for (const auto& path : files) {
        const std::filesystem::path file = path;
        const bool isAmbiguous = std::ranges::any_of(files, [&](const std::string& other) {
            return other != path && std::filesystem::path(other).filename() == file.filename();
        });
        if (!isAmbiguous && file.has_parent_path()) Replace(text, path, file.filename());
    }
    return text;
}

}  // namespace app

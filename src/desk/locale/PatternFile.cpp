#include "desk/locale/PatternFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace desk {
namespace {

constexpr std::string_view kNextLevel = "NEXTLEVEL";

bool IsCommand(std::string_view line) {
    static constexpr std::string_view kCommands[] = {
        "LEFTHYPHENMIN",          "RIGHTHYPHENMIN", "COMPOUNDLEFTHYPHENMIN",
        "COMPOUNDRIGHTHYPHENMIN", "NOHYPHEN",       kNextLevel};
    return std::any_of(std::begin(kCommands), std::end(kCommands),
                       [&](std::string_view command) { return line.starts_with(command); });
}

}  // namespace

PatternFile::PatternFile(const std::filesystem::path& path) : levels_(1) {
    std::ifstream file(path, std::ios::binary);
    text_.assign(std::istreambuf_iterator<char>(file), {});
    for (std::string_view rest = text_; !rest.empty();) {
        const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        if (end > 0) Read(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    for (PatternLevel& level : levels_) level.Sort();
}

void PatternFile::Read(std::string_view line) {
    if (encoding_.empty()) {
        encoding_ = line;
    } else if (!IsCommand(line)) {
        levels_.back().Add(line);
    } else {
        commands_.push_back(line);
        if (line.starts_with(kNextLevel)) levels_.emplace_back();
    }
}

std::string PatternFile::For(std::string_view word) const {
    std::vector<std::string_view> lines = commands_;
    for (const PatternLevel& level : levels_) level.Collect(word, lines);
    // In the file's order, because commands divide it into levels.
    const auto isBefore = [](std::string_view a, std::string_view b) {
        return a.data() < b.data();
    };
    const auto isSame = [](std::string_view a, std::string_view b) { return a.data() == b.data(); };
    std::sort(lines.begin(), lines.end(), isBefore);
    lines.erase(std::unique(lines.begin(), lines.end(), isSame), lines.end());

    std::string file = encoding_ + '\n';
    for (const std::string_view line : lines) file.append(line).append(1, '\n');
    return file;
}

}  // namespace desk

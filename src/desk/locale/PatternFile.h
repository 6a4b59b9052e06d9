#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "desk/locale/PatternLevel.h"

namespace desk {

/// A file of hyphenation patterns as libhyphen reads it: its encoding, then a pattern or a command
/// a line.
///
/// libhyphen takes three seconds to make its tables of the 78,000 German patterns. A word needs
/// some dozens, which are found here, so that only these are given to it.
class PatternFile {
public:
    /// A file that cannot be read is empty.
    explicit PatternFile(const std::filesystem::path& path);
    PatternFile(const PatternFile&) = delete;
    PatternFile& operator=(const PatternFile&) = delete;

    /// The name of the encoding; empty for an empty file.
    const std::string& Encoding() const { return encoding_; }

    /// The file with all commands, but with few patterns: it divides this word, given in small
    /// letters of the file's encoding, as the whole file does.
    std::string For(std::string_view word) const;

private:
    void Read(std::string_view line);

    std::string text_;
    std::string encoding_;
    std::vector<std::string_view> commands_;
    std::vector<PatternLevel> levels_;
};

}  // namespace desk

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/file/Output.h"

namespace pdf {

/// Something that no file may have that claims to keep to PDF/A-2, PDF/UA-1 or PDF/X-4, and where
/// it is.
struct Violation {
    enum class Rule {
        FontLicence,   ///< A font that may not be embedded, or not in parts.
        NoCharacter,   ///< A glyph that stands for no character.
        StringLength,  ///< A string longer than kLongestString.
        ObjectCount,   ///< More objects than kMostFileObjects.
        PageSize,      ///< A page side outside kShortestSide to kLongestSide.
    };
    Rule rule;
    std::string what;  ///< A clause, which names font, text or measure.
    int page;          ///< From 1; 0: the file as a whole.

    /// The clause with the page.
    std::string Text() const;
};

/// Limits of PDF/A-2, in bytes, objects, and points.
/// @{
inline constexpr std::size_t kLongestString = 32'767;
inline constexpr std::size_t kMostFileObjects = 8'388'607;
inline constexpr double kShortestSide = 3;
inline constexpr double kLongestSide = 14'400;
/// @}

/// What is found while a file is written.
class Violations {
public:
    /// Sets the page of what is found next; 0: none.
    void SetPage(int page) { page_ = page; }

    void Add(Violation::Rule rule, std::string what) {
        found_.push_back({rule, std::move(what), page_});
    }
    /// Adds a text that makes too long a string. The name says what it is: "the title".
    void CheckText(std::string_view name, std::string_view text);

    const std::vector<Violation>& Found() const { return found_; }

private:
    int page_ = 0;
    std::vector<Violation> found_;
};

/// A file that would not be what it claims to be.
class Violated : public Error {
public:
    /// At least one violation.
    explicit Violated(std::vector<Violation> found)
        : Error(found.front().Text()), violations(std::move(found)) {}

    std::vector<Violation> violations;
};

}  // namespace pdf

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Host.h"

/// The second set of settings: how a good index page departs from the plain rules of listings and
/// layout. It is stored beside the first set, and only where somebody wants it.
namespace gazetteer {

/// Values of HeadingGroups.
inline constexpr char kByFirstCharacter[] = "first character";
inline constexpr char kByAlphabet[] = "alphabet";
/// Values of ContinuedAt.
inline constexpr char kAtPage[] = "page";
inline constexpr char kAtColumnGroup[] = "column group";
/// Values of LeaderStyle.
inline constexpr char kPlainLeader[] = "plain";
inline constexpr char kAlignedLeader[] = "aligned";
inline constexpr char kNoLeader[] = "none";
/// Values of Direction.
inline constexpr char kLeftToRight[] = "left to right";
inline constexpr char kRightToLeft[] = "right to left";
inline constexpr char kByLocale[] = "auto";

/// Stands for the letter in the text of Continued.
inline constexpr char kContinuedLetter[] = "{letter}";

/// The settings, typed. The initial values are the plain rules. Lengths are inches.
struct Typesetting {
    /// What begins a heading: another first character, or another letter of the locale's index.
    std::string headingGroups = kByFirstCharacter;
    /// With letters of the index: the heading over texts that begin with a digit or a sign; empty:
    /// none.
    std::string digitsHeading;
    /// A heading is never left out and never the last row of its column group.
    bool keepHeadings = false;
    /// Text over a page or column group that begins inside a letter; empty: none.
    std::string continued;
    std::string continuedAt = kAtPage;
    /// The column groups of the last page end at about the same height.
    bool balanceLastPage = false;
    /// The squares of one page stand after one page number; pages that follow each other are a
    /// range.
    bool groupReferences = false;
    /// Indent of the second and later lines of a listing.
    double hangingIndent = 0;
    /// Lines end where Unicode allows it, and words are divided by patterns of the language.
    bool breakOpportunities = false;
    /// The cells behind a wrapped listing stand on its last line.
    bool referenceLine = false;
    std::string leaderStyle = kPlainLeader;
    std::string leaderDot = ".";
    /// Blanks between two dots.
    std::int32_t leaderBlanks = 0;
    /// A leader of fewer dots is left out.
    std::int32_t leaderLeast = 0;
    /// Heights of rows are whole lines.
    bool lineGrid = false;
    /// Headings take no part in the alternation of backgrounds.
    bool plainHeadings = false;
    std::string direction = kLeftToRight;
    std::int32_t version = 1;

    bool operator==(const Typesetting&) const = default;
};

/// What a new printed index begins with.
Typesetting PrintTypesetting();

/// The stored set of an element; nothing without one. A key that is missing keeps its initial
/// value.
std::optional<Typesetting> StoredTypesetting(const host::Ref<host::IHostElement>& element,
                                             host::IHostLocale& locale);

/// Stores the settings beside those of the gazetteer, in a new set that keeps what a later version
/// has added; nothing removes the set.
void StoreTypesetting(host::IHostPropertySetFactory& host,
                      const host::Ref<host::IHostElement>& element,
                      const std::optional<Typesetting>& typesetting);

}  // namespace gazetteer

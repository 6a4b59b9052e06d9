#include "typesetting/TypesettingTexts.h"

namespace gazetteer {
namespace {

using enum SettingGroup;

bool HasLetters(const Typesetting& typesetting) {
    return typesetting.headingGroups == kByAlphabet;
}
bool HasContinued(const Typesetting& typesetting) {
    return !typesetting.continued.empty();
}
bool HasAlignedDots(const Typesetting& typesetting) {
    return typesetting.leaderStyle == kAlignedLeader;
}

constexpr SettingText kTexts[] = {
    {.key = "HeadingGroups",
     .group = Headings,
     .label = "&Heading for each:",
     .toolTip = "Letters are those of the language: in German Ä stands under A, in Czech Ch is a "
                "letter of its own.",
     .subject = Subject::Headings,
     .words = {"first character", "letter of the alphabet"}},
    {.key = "DigitsHeading",
     .group = Headings,
     .label = "Over &digits and signs:",
     .toolTip = "The heading over listings that begin with a digit or a sign, for example 0–9.",
     .subject = Subject::Headings,
     .words = {"none"},
     .isUsed = HasLetters},
    {.key = "Continued",
     .group = Headings,
     .label = "Where a letter &goes on:",
     .toolTip = "Stands over a page that begins inside a letter, for example {letter} (continued): "
                "{letter} stands for the letter.",
     .subject = Subject::Headings,
     .words = {"none"}},
    {.key = "ContinuedAt",
     .group = Headings,
     .label = "R&epeat it on each:",
     .toolTip = "Whether that heading stands over each page only, or over each group of columns.",
     .subject = Subject::Headings,
     .words = {"page", "column group"},
     .isUsed = HasContinued},
    {.key = "KeepHeadings",
     .group = Headings,
     .label = "&Keep headings with their listings",
     .toolTip = "A heading at the foot of a column moves on with its first listing, and none is "
                "left out where there is no room.",
     .subject = Subject::Headings},
    {.key = "PlainHeadings",
     .group = Headings,
     .label = "Leave headings &unshaded",
     .toolTip = "Where every other line is shaded, headings do not count as lines.",
     .subject = Subject::Headings},
    {.key = "HangingIndent",
     .group = Lines,
     .label = "&Indent of further lines:",
     .toolTip = "How far the second and later lines of a listing are moved in, in inches.",
     .subject = Subject::WrappedListings},
    {.key = "BreakOpportunities",
     .group = Lines,
     .label = "&Break lines at hyphens and syllables",
     .toolTip = "A line ends after a hyphen, or by the rules of the language, before a word is "
                "torn at any letter.",
     .subject = Subject::WrappedListings},
    {.key = "ReferenceLine",
     .group = Lines,
     .label = "&References beside the last line",
     .toolTip = "The reference of a listing of several lines stands where its leader ends.",
     .subject = Subject::WrappedListings},
    {.key = "LineGrid",
     .group = Lines,
     .label = "A&lign lines across columns",
     .toolTip = "Headings and gaps are whole lines high, so that lines of neighbouring columns "
                "stand beside each other."},
    {.key = "LeaderStyle",
     .group = Leaders,
     .label = "&Style:",
     .toolTip = "Dots directly behind the text, dots that stand under each other, or none.",
     .subject = Subject::Leaders,
     .words = {"behind the text", "under each other", "no dots"}},
    {.key = "LeaderDot",
     .group = Leaders,
     .label = "D&ot:",
     .toolTip = "The character that is repeated.",
     .subject = Subject::Leaders,
     .words = {"none"},
     .isUsed = HasAlignedDots},
    {.key = "LeaderBlanks",
     .group = Leaders,
     .label = "Blanks bet&ween dots:",
     .toolTip = "How many blanks stand between two dots.",
     .subject = Subject::Leaders,
     .isUsed = HasAlignedDots},
    {.key = "LeaderLeast",
     .group = Leaders,
     .label = "&Fewest dots:",
     .toolTip = "A leader that has room for fewer dots is left out.",
     .subject = Subject::Leaders,
     .isUsed = HasAlignedDots},
    {.key = "Direction",
     .group = Page,
     .label = "Dire&ction:",
     .toolTip = "From right to left, the first column stands at the right. By the language: as the "
                "language of the document is written.",
     .words = {"left to right", "right to left", "by the language"}},
    {.key = "BalanceLastPage",
     .group = Page,
     .label = "E&ven columns on the last page",
     .toolTip = "The columns of the last page end at about the same height."},
    {.key = "GroupReferences",
     .group = Page,
     .label = "Gather s&quares of one page",
     .toolTip = "A page number stands once before its squares: 6 D-3, D-4."},
};

}  // namespace

std::span<const SettingText> SettingTexts() {
    return kTexts;
}

}  // namespace gazetteer

#include "app/document/SheetMeanings.h"

#include <algorithm>

#include "app/document/PageFurniture.h"
#include "layout/RowTree.h"
#include "model/ColumnProperties.h"
#include "support/Text.h"

namespace app {
namespace {

using pdf::Role;

/// The fields of an expression that say where a listing is found.
constexpr std::string_view kPlaceFields[] = {"$$PAGE_NUMBER", "$$ROW", "$$COLUMN",
                                             "[Page]",        "[Row]", "[Column]"};

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \r\n") == std::string_view::npos;
}

/// Returns whether the first field of an expression is one of a place.
bool BeginsWithPlace(std::string_view expression) {
    const auto first = std::min(expression.find("$$"), expression.find('['));
    if (first == std::string_view::npos) return false;
    expression.remove_prefix(first);
    return std::ranges::any_of(kPlaceFields, [&](std::string_view field) {
        return gazetteer::EqualsInAnyCase(expression.substr(0, field.size()), field);
    });
}

/// The longest run of dots in a text.
struct Dots {
    std::size_t first = 0, count = 0;
};
Dots LongestDots(std::string_view text) {
    Dots longest;
    for (std::size_t at = text.find('.'); at != std::string_view::npos; at = text.find('.', at)) {
        const std::size_t end = std::min(text.find_first_not_of('.', at), text.size());
        if (end - at > longest.count) longest = {at, end - at};
        at = end;
    }
    return longest;
}

}  // namespace

SheetMeanings::SheetMeanings(OpenDocument& open) : languages_(open.TheDesk().LanguageTag()) {
    const gazetteer::Settings& settings = open.Manager().BoundSettings();
    for (const std::string& name : gazetteer::NamesOf(*settings.columnDisplayOrder)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, name);
        const auto column = gazetteer::ReadColumnProperties(*set, open.Host().Locale());
        columns_.push_back(ReadColumn(column.expression));
    }
    leader_ = settings.typesetting.leaderDot + ' ';
    continued_ = settings.typesetting.continued;
}

SheetMeanings::Column SheetMeanings::ReadColumn(const std::string& expression) {
    const auto leader = expression.find(gazetteer::kDotsToken);
    const std::string_view whole = expression;
    const auto roleOf = [](std::string_view part) {
        return BeginsWithPlace(part) ? Role::Reference : Role::Name;
    };
    if (leader == std::string::npos) return {false, roleOf(whole), roleOf(whole)};
    const auto behind = leader + std::size(gazetteer::kDotsToken) - 1;
    return {true, roleOf(whole.substr(0, leader)), roleOf(whole.substr(behind))};
}

void SheetMeanings::Enter(const host::IHostGroupElement& group) {
    ++depth_;
    if (row_ != Row::None) {
        if (++rowDepth_ != 1) return;
        ++column_;
        isBehindLeader_ = false;
        return;
    }
    const auto* const named = asNamed_(&group);
    const std::string tag = named ? named->Name() : std::string();
    if (tag == gazetteer::kRowGroupTag) BeginRow(Row::Listing, group);
    if (tag == gazetteer::kBreakGroupTag) BeginRow(Row::Heading, group);
    if (tag == gazetteer::kTitleGroupTag) BeginRow(Row::Title, group);
}

void SheetMeanings::Leave() {
    --depth_;
    if (row_ == Row::None) return;
    if (rowDepth_ == 0)
        row_ = Row::None;
    else
        --rowDepth_;
}

/// A row without a name goes on with the listing before it.
void SheetMeanings::BeginRow(Row row, const host::IHostGroupElement& group) {
    row_ = row;
    rowDepth_ = 0;
    column_ = 0;
    if (row == Row::Listing && HasName(group)) ++item_;
}

bool SheetMeanings::HasName(const host::IHostGroupElement& row) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].before != Role::Name) continue;
        const auto cell = host::As<host::IHostGroupElement>(row.Item(static_cast<std::int32_t>(i)));
        for (std::int32_t j = 0; cell && j < cell->Count(); ++j) {
            const auto text = host::As<host::IHostTextElement>(cell->Item(j));
            if (text && !IsBlank(text->Text())) return true;
        }
    }
    return false;
}

std::span<const desk::TextPart> SheetMeanings::Read(const host::IHostTextElement& element,
                                                    std::string_view text) {
    parts_.clear();
    if (row_ == Row::None)
        AddSheetText(element);
    else if (row_ == Row::Title || IsBlank(text))
        Add(row_ == Row::Title ? Role::PageMatter : Role::Decoration, {}, text.size());
    else if (row_ == Row::Heading)
        AddHeading(text);
    else
        AddListingText(text);
    return parts_;
}

void SheetMeanings::AddSheetText(const host::IHostTextElement& element) {
    const auto* const named = asNamed_(&element);
    const std::string tag = named ? named->Name() : std::string();
    const std::string text = element.Text();
    ++item_;
    Role role = Role::Paragraph;
    if (tag == kHeadTag) role = Role::PageHead;
    if (tag == kNumberTag) role = Role::PageFoot;
    if (tag == gazetteer::kSampleLabelTag) role = Role::Decoration;
    Add(role, text, text.size());
}

/// A heading that goes on from the page or column group before is none of its own.
void SheetMeanings::AddHeading(std::string_view text) {
    const bool goesOn =
        !continued_.empty() && !heading_.empty() &&
        text == gazetteer::ReplaceAll(continued_, gazetteer::kContinuedLetter, heading_);
    if (!goesOn) {
        heading_ = text;
        ++item_;
    }
    Add(goesOn ? Role::PageMatter : Role::Heading, text, text.size());
}

void SheetMeanings::AddListingText(std::string_view text) {
    const Column& column = columns_[std::min(column_ - 1, columns_.size() - 1)];
    if (!column.hasLeader) return Add(column.before, text, text.size());
    if (text.find_first_not_of(leader_) == std::string_view::npos) {
        isBehindLeader_ = true;
        return Add(Role::Decoration, {}, text.size());
    }
    const Dots dots = LongestDots(text);
    if (dots.count < 2)
        return Add(isBehindLeader_ ? column.behind : column.before, text, text.size());
    if (dots.first > 0) Add(column.before, text.substr(0, dots.first), dots.first);
    const std::size_t end = dots.first + dots.count;
    Add(Role::Decoration, {}, end);
    if (end < text.size()) Add(column.behind, text.substr(end), text.size());
}

void SheetMeanings::Add(Role role, std::string_view text, std::size_t end) {
    parts_.push_back({{role, item_, languages_.Of(text)}, end});
}

}  // namespace app

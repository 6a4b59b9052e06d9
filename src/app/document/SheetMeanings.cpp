#include "app/document/SheetMeanings.h"

#include <algorithm>

#include "app/document/PageFurniture.h"
#include "layout/RowTree.h"
#include "model/ColumnProperties.h"
#include "support/Text.h"

namespace app {
namespace {

using pdf::Role;

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \r\n") == std::string_view::npos;
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

SheetMeanings::SheetMeanings(OpenDocument& open, MapPages* pages)
    : pages_(pages),
      headings_(open.Manager().BoundSettings().typesetting.continued),
      languages_(open.TheDesk().LanguageTag()) {
    const gazetteer::Settings& settings = open.Manager().BoundSettings();
    for (const std::string& name : gazetteer::NamesOf(*settings.columnDisplayOrder)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, name);
        const auto column = gazetteer::ReadColumnProperties(*set, open.Host().Locale());
        columns_.push_back(ReadColumn(open, column, pages_ != nullptr));
    }
    leader_ = settings.typesetting.leaderDot + ' ';
}

void SheetMeanings::Enter(const host::IHostGroupElement& group) {
    if (row_ != Row::None) {
        if (++rowDepth_ != 1) return;
        ++column_;
        if (row_ == Row::Listing) BeginCell(group);
        return;
    }
    const auto* const named = asNamed_(&group);
    const std::string tag = named ? named->Name() : std::string();
    if (tag == gazetteer::kRowGroupTag) BeginRow(Row::Listing, group);
    if (tag == gazetteer::kBreakGroupTag) BeginRow(Row::Heading, group);
    if (tag == gazetteer::kTitleGroupTag) BeginRow(Row::Title, group);
}

void SheetMeanings::Leave() {
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
    if (row == Row::Listing && HasName(group)) listing_ = ++items_;
    if (row == Row::Heading) BeginHeading(group);
}

/// A heading that goes on from the page or column group before is none of its own.
void SheetMeanings::BeginHeading(const host::IHostGroupElement& group) {
    const std::string heading = HeadingText(group);
    isToldAgain_ = heading.empty() || headings_.GoesOn(heading);
    if (!isToldAgain_) ++items_;
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
        Add(isToldAgain_ ? Role::PageMatter : Role::Heading, text, text.size());
    else
        AddListingText(columns_[std::min(column_ - 1, columns_.size() - 1)], text);
    return parts_;
}

void SheetMeanings::AddSheetText(const host::IHostTextElement& element) {
    const auto* const named = asNamed_(&element);
    const std::string tag = named ? named->Name() : std::string();
    const std::string text = element.Text();
    ++items_;
    Role role = Role::Paragraph;
    if (tag == kHeadTag) role = Role::PageHead;
    if (tag == kNumberTag) role = Role::PageFoot;
    if (tag == gazetteer::kSampleLabelTag) role = Role::Decoration;
    Add(role, text, text.size());
}

/// Finds the references of the cell, which may go on from one text to the next.
void SheetMeanings::BeginCell(const host::IHostGroupElement& cell) {
    isBehindLeader_ = false;
    references_.clear();
    const ColumnMeaning& column = columns_[std::min(column_ - 1, columns_.size() - 1)];
    if (!column.references || !column.squares) return;
    cellText_.clear();
    for (std::int32_t i = 0; i < cell.Count(); ++i) {
        const auto element = host::As<host::IHostTextElement>(cell.Item(i));
        const std::string text = element ? element->Text() : std::string();
        if (IsBlank(text)) continue;
        parts_.clear();
        AddListingText(column, text);
        std::size_t first = 0;
        for (const desk::TextPart& part : parts_) {
            if (part.meaning.role == Role::Reference)
                cellText_.append(text, first, part.end - first).append("\n");
            first = part.end;
        }
    }
    references_ = column.references->Find(cellText_);
    squares_ = &*column.squares;
    cellAt_ = 0;
    isBehindLeader_ = false;
}

void SheetMeanings::AddListingText(const ColumnMeaning& column, std::string_view text) {
    const auto add = [&](Role role, std::size_t first, std::size_t end) {
        if (role == Role::Reference && !references_.empty())
            AddReferences(text.substr(first, end - first), first);
        else
            Add(role, text.substr(first, end - first), end);
    };
    if (!column.hasLeader) return add(column.before, 0, text.size());
    if (text.find_first_not_of(leader_) == std::string_view::npos) {
        isBehindLeader_ = true;
        return Add(Role::Decoration, {}, text.size());
    }
    const Dots dots = LongestDots(text);
    if (dots.count < 2) return add(isBehindLeader_ ? column.behind : column.before, 0, text.size());
    if (dots.first > 0) add(column.before, 0, dots.first);
    const std::size_t end = dots.first + dots.count;
    Add(Role::Decoration, {}, end);
    if (end < text.size()) add(column.behind, end, text.size());
}

/// Adds the next text of the cell's references: a part for each reference, and for what is between
/// them. The text begins after the given number of bytes of its element.
void SheetMeanings::AddReferences(std::string_view text, std::size_t before) {
    const auto partUpTo = [&](std::size_t place, const pdf::Target* target) {
        const std::size_t end =
            std::clamp(place, cellAt_, cellAt_ + text.size()) - cellAt_ + before;
        if (end == (parts_.empty() ? 0 : parts_.back().end)) return;
        Add(Role::Reference, text, end);
        parts_.back().meaning.target = target;
    };
    for (const FoundReference& reference : references_) {
        if (reference.end <= cellAt_ || reference.first >= cellAt_ + text.size()) continue;
        partUpTo(reference.first, nullptr);
        partUpTo(reference.end, pages_->Find(reference.page, squares_->Find(reference.square)));
    }
    partUpTo(cellAt_ + text.size(), nullptr);
    cellAt_ += text.size() + 1;
}

void SheetMeanings::Add(Role role, std::string_view text, std::size_t end) {
    const std::uint64_t item = row_ == Row::Listing ? listing_ : items_;
    parts_.push_back({{role, item, languages_.Of(text), {}, nullptr}, end});
}

}  // namespace app

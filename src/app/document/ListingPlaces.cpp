#include "app/document/ListingPlaces.h"

#include <algorithm>

#include "app/document/Tokens.h"
#include "layout/RowTree.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

using host::IHostGroupElement;
using host::Ref;

std::vector<std::string> RowsOf(const OpenDocument& open, std::int32_t page) {
    const auto& groups = open.Manager().Working().pageGroups;
    return gazetteer::NamesOf(*gazetteer::SetUnder(*groups, std::to_string(page)));
}

// The first listing for which `fits` holds.
template <class Fits>
ListingPlace FirstPlace(const OpenDocument& open, const Fits& fits) {
    for (std::int32_t page = 1; page <= open.PageCount(); ++page)
        for (const auto& row : RowsOf(open, page))
            if (fits(row)) return {page, row};
    return {};
}

void AddCells(const Ref<host::IHostElement>& row, const std::vector<std::string>& columns,
              bool heading, std::vector<DrawnCell>& cells) {
    const auto group = host::As<IHostGroupElement>(row);
    for (std::int32_t i = 0; i < group->Count(); ++i) {
        const auto cell = host::As<IHostGroupElement>(group->Item(i));
        const auto background = cell ? cell->Item(0)->Geometry() : nullptr;
        if (background && static_cast<std::size_t>(i) < columns.size())
            cells.push_back(
                {{}, columns[static_cast<std::size_t>(i)], heading, background->Bounds()});
    }
}

}  // namespace

std::string ListingText(const OpenDocument& open, const std::string& rowKey) {
    const auto& manager = open.Manager();
    const auto columns = gazetteer::NamesOf(*manager.BoundSettings().columnDisplayOrder, 1);
    if (columns.empty()) return {};
    const auto cells = gazetteer::SetUnder(*manager.Working().listings, columns.front());
    return gazetteer::WithoutOuterBlanks(
        WithoutTokens(gazetteer::ToText(cells->Item(rowKey), open.DeskRef()->Locale())));
}

ListingPlace PlaceOf(const OpenDocument& open, const Finding& finding) try {
    const auto hasText = [&](const std::string& row) {
        return ListingText(open, row).starts_with(finding.listing);
    };
    ListingPlace place;
    if (!finding.row.empty())
        place = FirstPlace(open, [&](const std::string& row) { return row == finding.row; });
    // A record can be combined into another listing, or the table has changed since.
    const bool named = finding.record > 0 && !finding.listing.empty();
    if (named && (place.page == 0 || !hasText(place.rowKey))) place = FirstPlace(open, hasText);
    return place.page > 0 ? place : ListingPlace{finding.page};
} catch (const host::Failure&) {
    return {finding.page};  // A damaged document lacks a page or a text.
}

std::vector<DrawnCell> DrawnCells(const OpenDocument& open, std::int32_t page) try {
    if (page < 1 || page > open.PageCount()) return {};
    const auto columns = gazetteer::NamesOf(*open.Manager().BoundSettings().columnDisplayOrder);
    // Rows are drawn in the order of the page, each behind the heading that stands before it.
    const auto rows = RowsOf(open, page);
    std::vector<DrawnCell> cells;
    std::size_t named = 0;
    auto row = rows.begin();
    for (const auto& member : gazetteer::MembersTagged(
             *open.Gazetteer(), {gazetteer::kBreakGroupTag, gazetteer::kRowGroupTag})) {
        const bool heading = gazetteer::TagOf(member) == gazetteer::kBreakGroupTag;
        AddCells(member, columns, heading, cells);
        if (heading) continue;
        if (row == rows.end()) break;
        for (; named < cells.size(); ++named) cells[named].rowKey = *row;
        ++row;
    }
    cells.resize(named);
    return cells;
} catch (const host::Failure&) {
    return {};
}

}  // namespace app

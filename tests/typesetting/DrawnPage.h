#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/TestDesk.h"

namespace typesetting {

inline std::unique_ptr<support::TestDesk> DeskOf(const std::string& locale) {
    desk::DeskOptions options;
    options.locale = locale;
    return std::make_unique<support::TestDesk>(options);
}

/// A text as it stands on a page. Inches; the edge is the side at which it hangs.
struct DrawnText {
    std::string text;
    double edge = 0;
    double middle = 0;
    std::int32_t placement = 0;  ///< 0 left, 1 centre, 2 right.
};

struct DrawnRow {
    enum class Kind { Title, Heading, Listing };
    Kind kind;
    double left, top, foot;
    double firstLeft;  ///< Left edge of the first cell.
    std::vector<std::vector<DrawnText>> cells;
    bool isShaded = false;  ///< The first cell has another background than white.

    /// The first text of the first cell: name or letter.
    const std::string& First() const { return cells.front().front().text; }
};

/// The rows of a drawn page by column group, groups and rows in reading order.
class DrawnPage {
public:
    DrawnPage(support::TestHost& tests, const host::IHostGroupElement& element, bool mirrored) {
        std::map<long, std::vector<DrawnRow>> groups;
        for (const auto& [tag, kind] : {std::pair{"TITLEGROUP", DrawnRow::Kind::Title},
                                        {"BREAKGROUP", DrawnRow::Kind::Heading},
                                        {"ROWGROUP", DrawnRow::Kind::Listing}})
            for (const auto& row : support::TestHost::Members(element, tag)) {
                const auto drawn = Read(tests, *row, kind);
                groups[std::lround((mirrored ? -drawn.left : drawn.left) * 1000)].push_back(drawn);
            }
        for (auto& [left, rows] : groups) {
            std::ranges::sort(rows, std::greater(), &DrawnRow::top);
            columnGroups.push_back(std::move(rows));
        }
    }

    std::vector<std::vector<DrawnRow>> columnGroups;

private:
    static DrawnRow Read(support::TestHost& tests, host::IHostElement& row, DrawnRow::Kind kind) {
        DrawnRow drawn{kind, 0, 0, 0, 0, {}, false};
        const auto& group = dynamic_cast<host::IHostGroupElement&>(row);
        bool first = true;
        for (std::int32_t i = 0; i < group.Count(); ++i) {
            const auto cell = host::As<host::IHostGroupElement>(group.Item(i));
            const auto box = tests.Bounds(*cell->Item(0));
            drawn.left = first ? box->XMin() : std::min(drawn.left, box->XMin());
            drawn.top = box->YMax();
            drawn.foot = box->YMin();
            if (first) {
                drawn.firstLeft = box->XMin();
                const auto fill = host::As<host::IHostFilledElement>(cell->Item(0))->Symbol();
                drawn.isShaded = fill->Color()->RGB() != 0xFFFFFF;
            }
            first = false;
            auto& texts = drawn.cells.emplace_back();
            for (std::int32_t j = 1; j < cell->Count(); ++j) {
                const auto text = host::As<host::IHostTextElement>(cell->Item(j));
                const auto point = host::As<host::IHostPoint>(text->Geometry());
                texts.push_back(
                    {text->Text(), point->X(), point->Y(), text->Symbol()->HorizontalPlacement()});
            }
        }
        return drawn;
    }
};

inline bool IsLeader(const std::string& text) {
    return text.size() > 1 && text.find_first_not_of('.') == std::string::npos;
}

}  // namespace typesetting

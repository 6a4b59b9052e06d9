#include "layout/SetRows.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "layout/CellStyle.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr std::size_t kKinds = 3;
// A line may be higher than the grid by this part of it, as one with letters of another font is.
constexpr double kTolerance = 0.3;
constexpr double kRounding = 1e-6;  // Lines; what sums of heights may be off.
constexpr char kBlank[] = " ";

Anchor AnchorOf(const std::string& alignment) {
    if (alignment == "Center") return Anchor::Middle;
    return alignment == "Right" ? Anchor::End : Anchor::Start;
}

SettingRules RulesOf(const ColumnProperties& column, RowKind kind, const Typesetting& typesetting) {
    const double width = InnerWidth(column);
    // A line keeps half the width.
    const bool indents = kind == RowKind::Listing && typesetting.hangingIndent > 0;
    const double indent = indents ? std::min(typesetting.hangingIndent, width / 2) : 0;
    return {width, AnchorOf(AlignmentName(column, kind)), indent};
}

bool SetsLines(const LayoutPass& pass) {
    const Typesetting& typesetting = pass.GetSettings().typesetting;
    return typesetting.hangingIndent > 0 || typesetting.breakOpportunities ||
           typesetting.referenceLine || typesetting.leaderStyle != kPlainLeader ||
           typesetting.lineGrid || pass.RunsRightToLeft();
}

}  // namespace

SetRows::SetRows(LayoutPass& pass)
    : PassRows(pass), pass_(pass), typesetting_(pass.GetSettings().typesetting) {
    cells_.resize(pass.Columns().size());
    if (typesetting_.lineGrid) FindGridLine();
}

BuiltRow SetRows::Title(const host::IHostPoint& position) {
    return Build(RowKind::Title, position, false, TitleText);
}

BuiltRow SetRows::Heading(const std::string& rowKey, HeadingKind kind,
                          const host::IHostPoint& position, bool alternate) {
    return Build(RowKind::Break, position, alternate, [&](LayoutColumn& column) {
        return column.properties.breakHeading ? HeadingText(pass_, column, rowKey, kind) : kBlank;
    });
}

BuiltRow SetRows::Listing(const std::string& rowKey, const host::IHostPoint& position,
                          bool alternate) {
    return Build(RowKind::Listing, position, alternate,
                 [&](LayoutColumn& column) { return column.Cell(rowKey, pass_.Host().Locale()); });
}

double SetRows::WidthOf(const std::string&, const BuiltRow&) {
    double width = 0;
    for (const LayoutColumn& column : pass_.Columns()) width += column.properties.columnWidth;
    return width;
}

template <class TextOf>
BuiltRow SetRows::Build(RowKind kind, const host::IHostPoint& position, bool alternate,
                        const TextOf& textOf) try {
    double height = SetCells(kind, textOf);
    if (gridLine_ > 0) {
        const double whole = std::ceil(height / gridLine_ - kRounding) * gridLine_;
        // The rest goes above a title or heading.
        if (kind != RowKind::Listing)
            for (Cell& cell : cells_)
                for (double& top : cell.tops) top += std::max(0.0, whole - height);
        height = whole;
    }
    if (pass_.Rows().IsMeasuring()) return {nullptr, height};
    return {MakeElements(kind, position, alternate, height), height};
} catch (...) {
    PassOn("MakeRowElement", kManagerLabel);
}

// Returns the height of the tallest cell. Behind a leader that ends on the last of several lines
// cells stand on that line.
double SetRows::SetCells(RowKind kind, const auto& textOf) {
    auto& columns = pass_.Columns();
    pass_.BrokenColumns().clear();
    double drop = 0;
    double height = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        LayoutColumn& column = columns[i];
        Cell& cell = cells_[i];
        const std::string& text = textOf(column);
        try {
            Style& style = StyleOf(i, kind);
            cell.text = style.setter.Set(text, style.rules, !pass_.Rows().IsMeasuring());
        } catch (host::Failure& failure) {
            failure.AddFact("column", column.name);
            failure.AddFact("text", text);
            throw;
        }
        if (cell.text.toreWord) pass_.BrokenColumns().push_back(column.name);
        const double last = PlaceLines(column.properties, kind, drop, cell);
        if (typesetting_.referenceLine && kind == RowKind::Listing && cell.text.endsInLeader)
            drop = last;
        height = std::max(height, cell.height);
    }
    return height;
}

// Returns how far below the first line of the row the last one of the cell stands.
double SetRows::PlaceLines(const ColumnProperties& column, RowKind kind, double drop,
                           Cell& cell) const {
    const bool onGrid = gridLine_ > 0 && kind == RowKind::Listing;
    const double margins = column.marginTop + column.marginBottom;
    const bool isHeading = kind == RowKind::Break && column.breakHeading &&
                           cell.text.lines.front().pieces.front().text != kBlank;
    const double above = column.marginTop + (isHeading ? column.breakSpacing : 0);
    double below = drop;
    double last = drop;
    cell.tops.clear();
    for (const SetLine& line : cell.text.lines) {
        cell.tops.push_back(above + below);
        last = below;
        below +=
            onGrid ? gridLine_ *
                         std::max(1.0, std::ceil((line.height + margins) / gridLine_ - kTolerance))
                   : line.height;
    }
    cell.height = onGrid ? below : above + below + column.marginBottom;
    return last;
}

host::Ref<host::IHostElement> SetRows::MakeElements(RowKind kind, const host::IHostPoint& position,
                                                    bool alternate, double height) {
    auto& columns = pass_.Columns();
    const RowElements& row = pass_.Rows().Take(pass_.Host(), kind, columns.size());
    double x = position.X();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const ColumnProperties& column = columns[i].properties;
        FillBackground(row.cells[i], column, kind, alternate, x, position.Y(), height);
        FillCell(row.cells[i], cells_[i], i, kind, x, position.Y());
        x += column.columnWidth;
    }
    return row.group;
}

void SetRows::FillBackground(const CellElements& elements, const ColumnProperties& column,
                             RowKind kind, bool alternate, double x, double top, double height) {
    elements.background->SetSymbol(FillOf(pass_, column, alternate, kind));
    const double left = pass_.IsMirrored() ? pass_.Mirrored(x + column.columnWidth) : x;
    elements.box->SetCoords(left, top - height, left + column.columnWidth, top);
    elements.background->SetGeometry(elements.box);
}

void SetRows::FillCell(const CellElements& elements, const Cell& cell, std::size_t column,
                       RowKind kind, double x, double top) {
    Style& style = StyleOf(column, kind);
    const ColumnProperties& properties = pass_.Columns()[column].properties;
    bool first = true;
    for (std::size_t i = 0; i < cell.text.lines.size(); ++i) {
        const SetLine& line = cell.text.lines[i];
        const double down = cell.tops[i] + line.height / 2;
        for (const LinePiece& piece : line.pieces) {
            auto text = first ? elements.text : pass_.Rows().AddText(pass_.Host(), elements);
            const auto point = first ? elements.anchor : pass_.Host().NewPoint();
            first = false;
            text->SetSymbol(Placed(style, piece.anchor));
            text->SetText(piece.text);
            text->SetScaleWithPage(false);
            const double place = x + properties.marginLeft + piece.place;
            point->SetX(pass_.IsMirrored() ? pass_.Mirrored(place) : place);
            point->SetY(top - down);
            text->SetGeometry(point);
        }
    }
}

SetRows::Style& SetRows::StyleOf(std::size_t column, RowKind kind) {
    const std::size_t key = column * kKinds + static_cast<std::size_t>(kind);
    if (const auto known = styles_.find(key); known != styles_.end()) return known->second;
    const ColumnProperties& properties = pass_.Columns()[column].properties;
    const auto& symbol = TextSymbolOf(properties, kind);
    Style& style = styles_.try_emplace(key, pass_, symbol, RulesOf(properties, kind, typesetting_))
                       .first->second;
    style.isJustified = AlignmentName(properties, kind) == "Justify";
    return style;
}

// In mirrored columns the start is at the right. Texts of a justified column stand at their start,
// and hosts may stretch them.
const host::Ref<host::IHostTextSymbol>& SetRows::Placed(Style& style, Anchor anchor) const {
    constexpr std::int32_t kMiddle = 1;
    constexpr std::int32_t kRight = 2;
    constexpr std::int32_t kJustified = 3;
    const auto side = static_cast<std::int32_t>(anchor);
    std::int32_t horizontal = pass_.IsMirrored() ? kRight - side : side;
    if (style.isJustified && anchor == Anchor::Start && !pass_.IsMirrored())
        horizontal = kJustified;
    auto& symbol = style.placed[static_cast<std::size_t>(horizontal)];
    if (!symbol) {
        symbol = host::As<host::IHostTextSymbol>(style.symbol->Copy());
        symbol->SetHorizontalPlacement(horizontal);
        symbol->SetVerticalPlacement(kMiddle);
    }
    return symbol;
}

// Of a plain letter and of the first listing's first word, which may be in another script.
void SetRows::FindGridLine() {
    auto& columns = pass_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const ColumnProperties& column = columns[i].properties;
        const auto rows = NamesOf(*columns[i].listings, 1);
        std::string letters = "x";
        if (!rows.empty()) {
            const auto& text = columns[i].Cell(rows.front(), pass_.Host().Locale());
            letters += text.substr(0, text.find_first_of(" \r\n"));
        }
        const double line = StyleOf(i, RowKind::Listing).setter.Measure().Size(letters).height;
        gridLine_ = std::max(gridLine_, line + column.marginTop + column.marginBottom);
    }
}

std::unique_ptr<FlowRows> MakeFlowRows(LayoutPass& pass) {
    if (SetsLines(pass)) return std::make_unique<SetRows>(pass);
    return std::make_unique<PassRows>(pass);
}

}  // namespace gazetteer

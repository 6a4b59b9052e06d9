#include "layout/RowElements.h"

#include <algorithm>

#include "layout/CellStyle.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::IHostElement;
using host::IHostPoint;
using host::Ref;

constexpr char kBlank[] = " ";
constexpr std::int32_t kMiddle = 1;  // Vertical placement: the text's middle stands at the point.

// How an alignment places a text in a cell. Justified text is anchored as left text is.
struct Alignment {
    std::int32_t placement;  // Negative: left as the symbol has it.
    double anchor;           // From the left edge of the cell, inches.
};

Alignment AlignmentOf(const ColumnProperties& column, const std::string& name, double textWidth) {
    if (name == "Left") return {0, column.marginLeft};
    if (name == "Center") return {1, column.marginLeft + textWidth / 2};
    if (name == "Right") return {2, column.columnWidth - column.marginRight};
    if (name == "Justify") return {3, column.marginLeft};
    return {-1, column.marginLeft};
}

void FillText(LayoutPass& pass, host::IHostTextElement& element, std::string& text,
              const ColumnProperties& column, RowKind kind, double textWidth,
              const Alignment& alignment) {
    const auto& symbol = TextSymbolOf(column, kind);
    symbol->SetVerticalPlacement(kMiddle);
    if (alignment.placement >= 0) symbol->SetHorizontalPlacement(alignment.placement);
    element.SetSymbol(symbol);
    std::string blank = kBlank;
    const bool hidden = kind == RowKind::Break && !column.breakHeading;
    element.SetText(pass.Text().SplitText(hidden ? blank : text, textWidth, symbol));
    element.SetScaleWithPage(false);
}

void FillBackground(const CellElements& cell, const Ref<host::IHostFillSymbol>& fill,
                    const IHostPoint& position, double width, double height) {
    cell.background->SetSymbol(fill);
    cell.box->SetCoords(0, 0, width, height);
    cell.box->Shift(position.X(), position.Y() - height);
    cell.background->SetGeometry(cell.box);
}

// The top edge stays where it is.
void SetBackgroundHeight(host::IHostFilledElement& background, const Ref<host::IHostEnvelope>& box,
                         double height) {
    const double oldHeight = box->Height();
    box->SetHeight(height);
    box->Shift(0, oldHeight - height);
    background.SetGeometry(box);
}

}  // namespace

void MakeRowElement(LayoutPass& pass, const CellElements& cell, std::string& text,
                    const ColumnProperties& column, bool alternate, const IHostPoint& position,
                    RowKind kind) try {
    text = ReplaceAll(std::move(text), kLastCombineToken, "");
    const double textWidth = InnerWidth(column);
    const Alignment alignment = AlignmentOf(column, AlignmentName(column, kind), textWidth);
    FillText(pass, *cell.text, text, column, kind, textWidth, alignment);

    const double textHeight = pass.Text().GetTextSize(*cell.text).height;
    const bool isHeading = kind == RowKind::Break && column.breakHeading;
    double cellHeight = textHeight + column.marginTop + column.marginBottom;
    if (isHeading && text != kBlank) cellHeight += column.breakSpacing;
    FillBackground(cell, FillOf(pass, column, alternate, kind), position, column.columnWidth,
                   cellHeight);

    cell.anchor->SetX(position.X() + alignment.anchor);
    cell.anchor->SetY(position.Y() - column.marginTop - textHeight / 2 -
                      (isHeading ? column.breakSpacing : 0));
    cell.text->SetGeometry(cell.anchor);
} catch (...) {
    PassOn("MakeRowElement", kManagerLabel);
}

Ref<IHostElement> MakeGroup(LayoutPass& pass, const IHostPoint& position, bool alternate,
                            RowKind kind, const std::function<std::string(LayoutColumn&)>& textOf) {
    auto& columns = pass.Columns();
    const RowElements& row = pass.Rows().Take(pass.Host(), kind, columns.size());
    IHostPoint& pen = pass.Pen();
    pen.SetX(position.X());
    pen.SetY(position.Y());
    double maxHeight = 0;
    pass.BrokenColumns().clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        LayoutColumn& column = columns[i];
        const CellElements& cell = row.cells[i];
        std::string text = textOf(column);
        try {
            MakeRowElement(pass, cell, text, column.properties, alternate, pen, kind);
            if (pass.Text().BrokeWord()) pass.BrokenColumns().push_back(column.name);
            const auto& bounds = pass.GetElementBounds(*cell.cell);
            pen.SetX(pen.X() + bounds.Width());
            maxHeight = std::max(maxHeight, bounds.Height());
        } catch (host::Failure& failure) {
            failure.AddFact("column", column.name);
            failure.AddFact("text", textOf(column));
            throw;
        }
    }
    for (const CellElements& cell : row.cells)
        SetBackgroundHeight(*cell.background, cell.box, maxHeight);
    return row.group;
}

Ref<IHostElement> MakeRowGroup(LayoutPass& pass, const std::string& rowKey,
                               const IHostPoint& position, bool alternate) try {
    return MakeGroup(pass, position, alternate, RowKind::Listing, [&](LayoutColumn& column) {
        return column.Cell(rowKey, pass.Host().Locale());
    });
} catch (...) {
    PassOn("MakeRowGroup", kManagerLabel);
}

void MakeBackgroundsSameHeight(double height, const Ref<host::IHostGroupElement>& group) try {
    for (std::int32_t i = 0; i < group->Count(); ++i) {
        const auto cell = host::As<host::IHostGroupElement>(group->Item(i));
        if (!cell) continue;
        for (std::int32_t j = 0; j < cell->Count(); ++j) {
            const auto member = cell->Item(j);
            if (TagOf(member) != kColumnBackgroundTag) continue;
            if (const auto background = host::As<host::IHostFilledElement>(member))
                SetBackgroundHeight(*background, background->Geometry()->Bounds(), height);
        }
    }
} catch (...) {
    PassOn("MakeBackgroundsSameHeight", kManagerLabel);
}

}  // namespace gazetteer

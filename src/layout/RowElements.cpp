#include "layout/RowElements.h"

#include <algorithm>

#include "layout/ElementSizes.h"
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

const Ref<host::IHostTextSymbol>& TextSymbolOf(const ColumnProperties& column, RowKind kind) {
    if (kind == RowKind::Title) return column.titleFontSymbol;
    if (kind == RowKind::Break) return column.breakFontSymbol;
    return column.columnFontSymbol;
}

Ref<host::IHostFillSymbol> FillOf(const LayoutContext& context, const ColumnProperties& column,
                                  bool alternate, RowKind kind) {
    if (kind == RowKind::Title) return column.titleBackgroundSymbol;
    if (!column.colorBackground) return context.TransparentFill();
    if (!alternate || !column.alternateBackground) return column.backgroundSymbol;
    return column.alternateBackgroundSymbol;
}

Ref<host::IHostTextElement> MakeText(LayoutContext& context, std::string& text,
                                     const ColumnProperties& column, RowKind kind, double textWidth,
                                     const Alignment& alignment) {
    const auto& symbol = TextSymbolOf(column, kind);
    symbol->SetVerticalPlacement(kMiddle);
    if (alignment.placement >= 0) symbol->SetHorizontalPlacement(alignment.placement);
    auto element = context.Host().NewTextElement();
    element->SetSymbol(symbol);
    std::string blank = kBlank;
    const bool hidden = kind == RowKind::Break && !column.breakHeading;
    element->SetText(context.Text().SplitText(hidden ? blank : text, textWidth, symbol));
    element->SetScaleWithPage(false);
    return element;
}

Ref<host::IHostFilledElement> MakeBackground(LayoutContext& context,
                                             const Ref<host::IHostFillSymbol>& fill,
                                             const IHostPoint& position, double width,
                                             double height) {
    auto background = context.Host().NewRectangleElement();
    background->SetSymbol(fill);
    auto cell = context.Host().NewEnvelope();
    cell->SetCoords(0, 0, width, height);
    cell->Shift(position.X(), position.Y() - height);
    background->SetGeometry(cell);
    return background;
}

}  // namespace

std::string TagOf(const Ref<IHostElement>& element) {
    const auto named = host::As<host::IHostElementName>(element);
    return named ? named->Name() : std::string();
}

Ref<IHostElement> MakeRowElement(LayoutContext& context, std::string& text,
                                 const ColumnProperties& column, bool alternate,
                                 const IHostPoint& position, RowKind kind) try {
    text = ReplaceAll(std::move(text), kLastCombineToken, "");
    const double textWidth = column.columnWidth - column.marginLeft - column.marginRight;
    const Alignment alignment = AlignmentOf(
        column, kind == RowKind::Title ? column.titleAlignment : column.alignment, textWidth);
    const auto element = MakeText(context, text, column, kind, textWidth, alignment);

    double width = 0;
    double textHeight = 0;
    context.Text().GetTextSize(*element, width, textHeight);
    const bool isHeading = kind == RowKind::Break && column.breakHeading;
    double cellHeight = textHeight + column.marginTop + column.marginBottom;
    if (isHeading && text != kBlank) cellHeight += column.breakSpacing;
    const auto background = MakeBackground(context, FillOf(context, column, alternate, kind),
                                           position, column.columnWidth, cellHeight);

    auto anchor = context.Host().NewPoint();
    anchor->SetX(position.X() + alignment.anchor);
    anchor->SetY(position.Y() - column.marginTop - textHeight / 2 -
                 (isHeading ? column.breakSpacing : 0));
    element->SetGeometry(anchor);

    SetTag(background, kColumnBackgroundTag);
    SetTag(element, kColumnTextTag);
    auto cell = context.Host().NewGroupElement();
    cell->Add(background);
    cell->Add(element);
    SetTag(cell, kColumnElementTag);
    return cell;
} catch (...) {
    PassOn("MakeRowElement", kManagerLabel);
}

Ref<IHostElement> MakeGroup(LayoutContext& context, const IHostPoint& position, bool alternate,
                            RowKind kind, const char* tag,
                            const std::function<std::string(const LayoutColumn&)>& textOf) {
    auto group = context.Host().NewGroupElement();
    const auto pen = host::As<IHostPoint>(position.Copy());
    double maxHeight = 0;
    for (const LayoutColumn& column : context.Columns()) {
        std::string text = textOf(column);
        try {
            const auto cell =
                MakeRowElement(context, text, column.properties, alternate, *pen, kind);
            pen->SetX(pen->X() + GetElementWidth(context.Host(), *cell, context.Display()));
            maxHeight =
                std::max(maxHeight, GetElementHeight(context.Host(), *cell, context.Display()));
            group->Add(cell);
        } catch (host::Failure& failure) {
            failure.AddFact("column", column.name);
            failure.AddFact("text", textOf(column));
            throw;
        }
    }
    MakeBackgroundsSameHeight(maxHeight, group);
    SetTag(group, tag);
    return group;
}

Ref<IHostElement> MakeRowGroup(LayoutContext& context, const std::string& rowKey,
                               const IHostPoint& position, bool alternate) try {
    return MakeGroup(
        context, position, alternate, RowKind::Listing, kRowGroupTag,
        [&](const LayoutColumn& column) { return column.Cell(rowKey, context.Host().Locale()); });
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
            const auto bounds = member->Geometry()->Bounds();
            const double oldHeight = bounds->Height();
            bounds->SetHeight(height);
            bounds->Shift(0, oldHeight - height);
            member->SetGeometry(bounds);
        }
    }
} catch (...) {
    PassOn("MakeBackgroundsSameHeight", kManagerLabel);
}

}  // namespace gazetteer

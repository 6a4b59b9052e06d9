#include "layout/CellStyle.h"

namespace gazetteer {

const host::Ref<host::IHostTextSymbol>& TextSymbolOf(const ColumnProperties& column, RowKind kind) {
    if (kind == RowKind::Title) return column.titleFontSymbol;
    if (kind == RowKind::Break) return column.breakFontSymbol;
    return column.columnFontSymbol;
}

const host::Ref<host::IHostFillSymbol>& FillOf(const LayoutPass& pass,
                                               const ColumnProperties& column, bool alternate,
                                               RowKind kind) {
    if (kind == RowKind::Title) return column.titleBackgroundSymbol;
    if (!column.colorBackground) return pass.TransparentFill();
    if (!alternate || !column.alternateBackground) return column.backgroundSymbol;
    return column.alternateBackgroundSymbol;
}

const std::string& AlignmentName(const ColumnProperties& column, RowKind kind) {
    return kind == RowKind::Title ? column.titleAlignment : column.alignment;
}

double InnerWidth(const ColumnProperties& column) {
    return column.columnWidth - column.marginLeft - column.marginRight;
}

}  // namespace gazetteer

#pragma once

#include <cstdint>
#include <string>

#include "layout/LayoutPass.h"
#include "layout/RowTree.h"

/// What a column's properties say of its cells, by kind of row.
namespace gazetteer {

const host::Ref<host::IHostTextSymbol>& TextSymbolOf(const ColumnProperties& column, RowKind kind);

const host::Ref<host::IHostFillSymbol>& FillOf(const LayoutPass& pass,
                                               const ColumnProperties& column, bool alternate,
                                               RowKind kind);

/// The name of an alignment, "Left" and so on.
const std::string& AlignmentName(const ColumnProperties& column, RowKind kind);

/// Width in inches between the margins.
double InnerWidth(const ColumnProperties& column);

}  // namespace gazetteer

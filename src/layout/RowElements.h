#pragma once

#include <functional>
#include <string>

#include "host/Host.h"
#include "layout/LayoutPass.h"

/// Fills the rows of a gazetteer: texts, fills and places of their cells.
namespace gazetteer {

/// Inner procedure: fills the cell of one column. The position is its top left corner and is not
/// changed; its height follows the text. The text is fitted in place.
void MakeRowElement(LayoutPass& pass, const CellElements& cell, std::string& text,
                    const ColumnProperties& column, bool alternate,
                    const host::IHostPoint& position, RowKind kind);

/// A whole row: one cell per column with the text that textOf gives, each starting where the bounds
/// of the cell before it end, all backgrounds as high as the tallest cell. The position is the top
/// left corner of the row.
host::Ref<host::IHostElement> MakeGroup(LayoutPass& pass, const host::IHostPoint& position,
                                        bool alternate, RowKind kind,
                                        const std::function<std::string(LayoutColumn&)>& textOf);

/// Inner procedure: the row of one listing.
host::Ref<host::IHostElement> MakeRowGroup(LayoutPass& pass, const std::string& rowKey,
                                           const host::IHostPoint& position, bool alternate);

/// Inner procedure: gives all backgrounds of a row this height, in inches. Their top edges and the
/// texts stay in place.
void MakeBackgroundsSameHeight(double height, const host::Ref<host::IHostGroupElement>& group);

}  // namespace gazetteer

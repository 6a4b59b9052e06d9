#pragma once

#include <functional>
#include <string>

#include "host/Host.h"
#include "layout/LayoutContext.h"

/// The element tree of a printed row. A row is a group with one cell per column, in display order;
/// a cell is a group of a background and, on top of it, a text.
namespace gazetteer {

/// Tags of the generated elements.
inline constexpr char kTitleGroupTag[] = "TITLEGROUP";
inline constexpr char kBreakGroupTag[] = "BREAKGROUP";
inline constexpr char kRowGroupTag[] = "ROWGROUP";
inline constexpr char kSampleLabelTag[] = "SAMPLELABEL";
inline constexpr char kColumnElementTag[] = "COLUMNELEMENT";
inline constexpr char kColumnBackgroundTag[] = "COLUMNBACKGROUND";
inline constexpr char kColumnTextTag[] = "COLUMNTEXT";

/// Gives an element its tag.
template <class Element>
void SetTag(const host::Ref<Element>& element, const char* tag) {
    host::As<host::IHostElementName>(element)->SetName(tag);
}

/// The tag of an element; empty for one that cannot have any.
std::string TagOf(const host::Ref<host::IHostElement>& element);

enum class RowKind { Listing, Title, Break };

/// Inner procedure: the cell of one column. It hangs from the position, its top left corner, which
/// is not changed; its height follows the text. The text is fitted in place.
host::Ref<host::IHostElement> MakeRowElement(LayoutContext& context, std::string& text,
                                             const ColumnProperties& column, bool alternate,
                                             const host::IHostPoint& position, RowKind kind);

/// A whole row: one cell per column with the text that textOf gives, each starting where the bounds
/// of the cell before it end, all backgrounds as high as the tallest cell. The position is the top
/// left corner of the row.
host::Ref<host::IHostElement> MakeGroup(
    LayoutContext& context, const host::IHostPoint& position, bool alternate, RowKind kind,
    const char* tag, const std::function<std::string(const LayoutColumn&)>& textOf);

/// Inner procedure: the row of one listing.
host::Ref<host::IHostElement> MakeRowGroup(LayoutContext& context, const std::string& rowKey,
                                           const host::IHostPoint& position, bool alternate);

/// Inner procedure: gives all backgrounds of a row this height, in inches. Their top edges and the
/// texts stay in place.
void MakeBackgroundsSameHeight(double height, const host::Ref<host::IHostGroupElement>& group);

}  // namespace gazetteer

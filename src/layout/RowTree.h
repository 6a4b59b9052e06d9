#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/Host.h"
#include "host/KnownCast.h"

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

/// The elements of one cell, and the geometries that they are placed by.
struct CellElements {
    host::Ref<host::IHostGroupElement> cell;
    host::Ref<host::IHostFilledElement> background;
    host::Ref<host::IHostEnvelope> box;
    host::Ref<host::IHostTextElement> text;
    host::Ref<host::IHostPoint> anchor;
};

struct RowElements {
    host::Ref<host::IHostGroupElement> group;
    std::vector<CellElements> cells;
};

/// Where a pass of layout gets its rows from. Drawing keeps each row that it places, and needs a
/// new one every time. Numbering only asks for sizes, and fills one row of each kind again and
/// again: the same elements filled by the same code have the same sizes, and making them anew is
/// two thirds of the work.
class RowSource {
public:
    enum class Use { Keep, Measure };

    explicit RowSource(Use use) : use_(use) {}

    /// A row to fill. Under Measure, the one of this kind that was given before.
    const RowElements& Take(host::IHost& host, RowKind kind, std::size_t columns);

private:
    /// A row of as many cells, tagged, without texts and places.
    RowElements NewRow(host::IHost& host, RowKind kind, std::size_t columns);
    CellElements NewCell(host::IHost& host);

    Use use_;
    std::array<RowElements, 3> rows_;  ///< By kind.
    host::KnownCast<host::IHostElementName> nameOfGroup_, nameOfBackground_, nameOfText_;
};

}  // namespace gazetteer

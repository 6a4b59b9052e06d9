#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
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

/// Makes the rows of a pass of layout. Drawing keeps each row that it places and needs a new one
/// every time. Numbering only measures, so it refills one row of each kind; making new elements
/// would be two thirds of its work.
class RowSource {
public:
    enum class Use { Keep, Measure };

    explicit RowSource(Use use) : use_(use) {}

    /// A row to fill. With Use::Measure, the same one for every call of the kind.
    const RowElements& Take(host::IHost& host, RowKind kind, std::size_t columns);
    /// Adds another text on top of a cell.
    host::Ref<host::IHostTextElement> AddText(host::IHost& host, const CellElements& cell);
    bool IsMeasuring() const { return use_ == Use::Measure; }

private:
    /// A row of as many cells, tagged, without texts and places.
    RowElements NewRow(host::IHost& host, RowKind kind, std::size_t columns);
    CellElements NewCell(host::IHost& host);

    Use use_;
    std::array<RowElements, 3> rows_;  ///< By kind.
    host::KnownCast<host::IHostElementName> nameOfGroup_, nameOfBackground_, nameOfText_;
};

/// Members of a gazetteer element with one of the tags, in member order. Drawing tags the members
/// that it adds; all others belong to the user and stay untouched.
std::vector<host::Ref<host::IHostElement>> MembersTagged(
    const host::IHostGroupElement& group, std::initializer_list<std::string_view> tags);

void RemoveMembers(host::IHostGroupElement& group,
                   const std::vector<host::Ref<host::IHostElement>>& members);

}  // namespace gazetteer

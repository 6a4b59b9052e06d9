#pragma once

#include <cstdint>
#include <vector>

#include "desk/text/Handles.h"

namespace desk {

/// The lookups of an OpenType GSUB or GPOS table, as far as telling their kinds needs. Names and
/// offsets are those of the OpenType font format, chapter "Common Table Formats". Whatever lies
/// outside of the table reads as 0.
class LayoutTable {
public:
    /// Kinds of lookup that matter here; the numbers are those of the font format.
    static constexpr unsigned kSubstituteInContext = 5;
    static constexpr unsigned kSubstituteInChain = 6;
    static constexpr unsigned kPositionSingle = 1;
    static constexpr unsigned kPositionPair = 2;
    static constexpr unsigned kPositionMarkFirst = 4;
    static constexpr unsigned kPositionMarkLast = 6;
    static constexpr unsigned kPositionInContext = 7;
    static constexpr unsigned kPositionInChain = 8;
    static constexpr unsigned kByClasses = 2;  ///< A format of rules in context.

    struct Subtable {
        unsigned kind = 0;
        unsigned format = 0;
        std::size_t offset = 0;
    };

    LayoutTable(hb_face_t* face, hb_tag_t tag);

    std::vector<Subtable> Subtables(unsigned lookup) const;

    /// Whether the lookup passes over base glyphs or ligatures on its way to the next glyph.
    bool SkipsBases(unsigned lookup) const;

    /// Whether a subtable for pairs moves the second glyph as well.
    bool MovesSecond(const Subtable& pair) const { return At(pair.offset + 6) != 0; }

private:
    unsigned At(std::size_t offset) const;
    std::size_t LookupOffset(unsigned lookup) const;

    BlobHandle blob_;
    const unsigned char* data_ = nullptr;
    std::size_t size_ = 0;
    unsigned extension_ = 0;  ///< The kind that only points to a subtable elsewhere.
};

}  // namespace desk

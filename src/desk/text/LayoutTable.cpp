#include "desk/text/LayoutTable.h"

#include <hb-ot.h>

namespace desk {

LayoutTable::LayoutTable(hb_face_t* face, hb_tag_t tag)
    : blob_(hb_face_reference_table(face, tag)), extension_(tag == HB_OT_TAG_GSUB ? 7 : 9) {
    unsigned length = 0;
    const char* const data = hb_blob_get_data(blob_.get(), &length);
    data_ = reinterpret_cast<const unsigned char*>(data);
    size_ = length;
}

unsigned LayoutTable::At(std::size_t offset) const {
    if (offset + 2 > size_) return 0;
    return static_cast<unsigned>(data_[offset] << 8 | data_[offset + 1]);
}

std::size_t LayoutTable::LookupOffset(unsigned lookup) const {
    const std::size_t list = At(8);
    return list + At(list + 2 + std::size_t{2} * lookup);
}

std::vector<LayoutTable::Subtable> LayoutTable::Subtables(unsigned lookup) const {
    const std::size_t start = LookupOffset(lookup);
    std::vector<Subtable> subtables(At(start + 4));
    for (std::size_t i = 0; i < subtables.size(); ++i) {
        Subtable& subtable = subtables[i];
        subtable.kind = At(start);
        subtable.offset = start + At(start + 6 + 2 * i);
        if (subtable.kind == extension_) {
            const std::size_t pointer = subtable.offset;
            subtable.kind = At(pointer + 2);
            subtable.offset = pointer + (std::size_t{At(pointer + 4)} << 16) + At(pointer + 6);
        }
        subtable.format = At(subtable.offset);
    }
    return subtables;
}

bool LayoutTable::SkipsBases(unsigned lookup) const {
    constexpr unsigned kIgnoreBaseGlyphs = 0x2;
    constexpr unsigned kIgnoreLigatures = 0x4;
    return (At(LookupOffset(lookup) + 2) & (kIgnoreBaseGlyphs | kIgnoreLigatures)) != 0;
}

}  // namespace desk

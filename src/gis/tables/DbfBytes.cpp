#include "gis/tables/DbfBytes.h"

#include <algorithm>

namespace gis {
namespace {

// Offsets of dBase's header and of its entry for a field, which is as long as the header.
constexpr std::size_t kHeaderLengthAt = 8;
constexpr std::size_t kRecordLengthAt = 10;
constexpr std::size_t kEntry = 32;
constexpr std::size_t kTypeAt = 11;
constexpr std::size_t kFieldLengthAt = 16;

std::size_t TwoBytes(std::span<const unsigned char> table, std::size_t at) {
    return table[at] + 256U * table[at + 1];
}

void MendField(std::span<unsigned char> table, std::size_t offset, std::size_t length,
               bool isLogical) {
    const std::size_t step = TwoBytes(table, kRecordLengthAt);
    for (std::size_t at = TwoBytes(table, kHeaderLengthAt) + offset; at + length <= table.size();
         at += step) {
        const auto value = table.subspan(at, length);
        if (std::ranges::all_of(value, [](unsigned char letter) { return letter == '*'; }))
            std::ranges::fill(value, ' ');
        else if (isLogical)
            value[0] = value[0] == '1' ? 'T' : 'F';
    }
}

}  // namespace

void MendDbf(std::span<unsigned char> table, const std::vector<SourceField>& fields) {
    std::size_t offset = 1;  // The first byte is the deletion flag.
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto entry = table.subspan((i + 1) * kEntry, kEntry);
        const bool isLogical = fields[i].kind == FieldKind::Logical;
        const std::size_t length = entry[kFieldLengthAt];
        if (isLogical || fields[i].kind == FieldKind::Number)
            MendField(table, offset, length, isLogical);
        if (isLogical) entry[kTypeAt] = 'L';
        offset += length;
    }
}

}  // namespace gis

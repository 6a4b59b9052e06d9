#include "desk/tables/DbfHeader.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

#include "desk/tables/RecordFile.h"
#include "host/Failure.h"

namespace desk {
namespace {

constexpr std::int64_t kPrologueLength = 32;
constexpr std::int64_t kLevel7PrologueLength = 68;
/// A header's length has 16 bits.
constexpr std::int64_t kLongestHeader = 0xFFFF;
constexpr char kListEnd = '\x0D';
constexpr char kNullableFlag = 0x02;

/// Where the parts of a field's entry stand.
struct EntryForm {
    std::size_t length, nameLength, type, width, decimals, flags;
};
constexpr EntryForm kPlainEntry = {32, 11, 11, 16, 17, 18};
constexpr EntryForm kLevel7Entry = {48, 32, 32, 33, 34, 47};

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "ReadDbfHeader", text);
}

std::int64_t Number(std::string_view bytes, std::size_t offset, std::size_t count) {
    std::int64_t value = 0;
    for (std::size_t i = count; i-- > 0;)
        value = value * 256 + static_cast<unsigned char>(bytes[offset + i]);
    return value;
}

DbfKind KindOf(char type, std::int32_t length, const DbfHeader& header) {
    switch (type) {
        case 'C':
            return DbfKind::Text;
        case 'V':
            return header.IsFoxPro() ? DbfKind::VarText : DbfKind::Text;
        case 'N':
        case 'F':
            return DbfKind::Number;
        case 'D':
            return length == 8 ? DbfKind::Date : DbfKind::Unknown;
        case 'L':
            return DbfKind::Logical;
        case 'I':
        case '+':
            if (length != 4) return DbfKind::Number;
            return header.IsLevel7() ? DbfKind::Integer7 : DbfKind::Integer;
        case 'Y':
            return length == 8 ? DbfKind::Currency : DbfKind::Unknown;
        case 'T':
            return length == 8 ? DbfKind::Timestamp : DbfKind::Unknown;
        case 'O':
            if (length != 8) return DbfKind::Unknown;
            return header.IsLevel7() ? DbfKind::Double7 : DbfKind::DoubleBig;
        case 'B':
            return length == 8 && header.IsFoxPro() ? DbfKind::Double : DbfKind::Memo;
        case 'M':
        case 'G':
        case 'P':
        case 'W':
            return DbfKind::Memo;
        case '0':
            return DbfKind::System;
        default:
            return DbfKind::Unknown;
    }
}

std::string RawName(std::string_view bytes) {
    // Names in two-byte characters hold zeros that do not end them.
    const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    if (!wide) bytes = bytes.substr(0, bytes.find('\0'));
    while (!bytes.empty() && bytes.back() == ' ') bytes.remove_suffix(1);
    return std::string(bytes);
}

/// A field's entry starts with a name and has a letter for its type.
bool LooksLikeField(std::string_view entry, const EntryForm& form) {
    const auto type = static_cast<unsigned char>(entry[form.type]);
    const auto first = static_cast<unsigned char>(entry[0]);
    return (std::isupper(type) != 0 || std::isdigit(type) != 0 || type == '@' || type == '+') &&
           (first == 0 || first >= ' ');
}

/// Bits of the null flags count in field order; a varying length takes the lower of its two.
void NumberNullBits(std::vector<DbfField>& fields, const std::vector<bool>& nullable) {
    std::int32_t bit = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].type == 'V' || fields[i].type == 'Q') fields[i].lengthBit = bit++;
        if (nullable[i]) fields[i].nullBit = bit++;
    }
}

void PlaceFields(DbfFieldList& list) {
    list.recordLength = 1;
    for (DbfField& field : list.fields) {
        field.offset = static_cast<std::int32_t>(list.recordLength);
        list.recordLength += field.length;
    }
}

/// Some programs write the high byte of a text's length where decimals stand, others leave just
/// anything there. The record's length tells.
void ResolveLongTexts(DbfFieldList& list, std::int64_t recordLength) {
    if (list.recordLength == recordLength) return;
    DbfFieldList longer = list;
    for (DbfField& field : longer.fields) {
        if (field.kind != DbfKind::Text) continue;
        field.length += field.decimals * 256;
        field.decimals = 0;
    }
    PlaceFields(longer);
    if (longer.recordLength == recordLength) list = longer;
}

DbfFieldList ReadFields(std::string_view bytes, const DbfHeader& header) {
    const EntryForm& form = header.IsLevel7() ? kLevel7Entry : kPlainEntry;
    DbfFieldList list;
    std::vector<bool> nullable;
    auto at = static_cast<std::size_t>(header.IsLevel7() ? kLevel7PrologueLength : kPrologueLength);
    while (at + form.length <= bytes.size() && bytes[at] != kListEnd) {
        const std::string_view entry = bytes.substr(at, form.length);
        if (!LooksLikeField(entry, form)) break;
        DbfField field;
        field.name = RawName(entry.substr(0, form.nameLength));
        field.type = entry[form.type];
        field.length = static_cast<unsigned char>(entry[form.width]);
        field.decimals = static_cast<unsigned char>(entry[form.decimals]);
        field.kind = KindOf(field.type, field.length, header);
        nullable.push_back(header.IsFoxPro() && (entry[form.flags] & kNullableFlag) != 0);
        list.fields.push_back(field);
        at += form.length;
    }
    list.terminated = at < bytes.size() && bytes[at] == kListEnd;
    list.end = static_cast<std::int64_t>(at + (list.terminated ? 1 : 0));
    if (header.IsFoxPro()) NumberNullBits(list.fields, nullable);
    PlaceFields(list);
    ResolveLongTexts(list, header.recordLength);
    return list;
}

}  // namespace

bool DbfHeader::IsPlausible() const {
    static constexpr std::uint8_t kVersions[] = {0x03, 0x04, 0x05, 0x30, 0x31, 0x32,
                                                 0x43, 0x63, 0x7B, 0x83, 0x87, 0x8B,
                                                 0x8C, 0x8E, 0xCB, 0xE5, 0xF5, 0xFB};
    return std::find(std::begin(kVersions), std::end(kVersions), version) != std::end(kVersions) &&
           month <= 12 && day <= 31;
}

DbfHeader ReadDbfHeader(const RecordFile& file) {
    if (file.Size() == 0) Fail(file.Path() + " is empty.");
    const std::string bytes = file.ReadUpTo(0, kLongestHeader);
    if (file.Size() <= kPrologueLength)
        Fail(file.Path() + " is not a dBase table: it is too short for a header.");

    DbfHeader header;
    header.version = static_cast<std::uint8_t>(bytes[0]);
    header.month = static_cast<std::uint8_t>(bytes[2]);
    header.day = static_cast<std::uint8_t>(bytes[3]);
    header.recordCount = Number(bytes, 4, 4);
    header.headerLength = Number(bytes, 8, 2);
    header.recordLength = Number(bytes, 10, 2);
    header.languageDriver = static_cast<std::uint8_t>(bytes[29]);
    if (header.IsLevel7() && bytes.size() >= static_cast<std::size_t>(kLevel7PrologueLength))
        header.driverName = RawName(std::string_view(bytes).substr(32, 32));

    // A list need not be closed where the header's length closes it. Only where the fields up to
    // there do not make up a record does the list's own end count.
    const auto stated = std::string_view(bytes).substr(
        0, static_cast<std::size_t>(std::max(header.headerLength, kPrologueLength)));
    header.list = ReadFields(stated, header);
    if (header.list.recordLength != header.recordLength) {
        const DbfFieldList closed = ReadFields(bytes, header);
        if (closed.terminated &&
            (closed.recordLength == header.recordLength || header.list.fields.empty()))
            header.list = closed;
    }
    if (header.list.fields.empty() && !header.list.terminated)
        Fail(file.Path() + " is not a dBase table: its header has no list of fields.");
    return header;
}

}  // namespace desk

#include "desk/tables/DbfSchema.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <regex>
#include <string_view>

#include "desk/tables/DbfReader.h"
#include "desk/tables/TextDecoder.h"
#include "host/Failure.h"

namespace desk {
namespace {

bool IsOneOf(std::string_view types, char type) {
    return types.find(type) != std::string_view::npos;
}

/// Types added by FoxPro and level 7: binary numbers and times, texts of varying length, and null
/// flags. A "B" of another length is a dBase picture.
bool IsForeign(const DbfField& field) {
    return IsOneOf("IOTVY+0", field.type) || (field.type == 'B' && field.length == 8);
}

FieldKind KindOf(const DbfField& field) {
    if (field.type == 'C') return FieldKind::Text;
    if (IsOneOf("NF", field.type)) return FieldKind::Number;
    if (field.type == 'D' && field.length == 8) return FieldKind::Date;
    if (field.type == 'L') return FieldKind::Logical;
    return IsOneOf("BGMPW", field.type) ? FieldKind::Memo : FieldKind::Unknown;
}

/// Returns the fields with undecoded names.
std::vector<DbfField> ReadFields(DBFHandle library, bool hasLongTexts) {
    std::vector<DbfField> fields;
    std::int32_t offset = 1;
    for (int i = 0; i < DBFGetFieldCount(library); ++i) {
        const char* const entry = library->pszHeader + std::ptrdiff_t{XBASE_FLDHDR_SZ} * i;
        DbfField field;
        DBFGetFieldInfo(library, i, nullptr, &field.length, &field.decimals);
        // The library ends names at zeros, which two-byte encodings contain.
        field.name.assign(entry, XBASE_FLDNAME_LEN_READ);
        field.type = DBFGetNativeFieldType(library, i);
        if (hasLongTexts && field.type == 'C')
            field.length += 256 * static_cast<unsigned char>(entry[17]);
        field.kind = KindOf(field);
        field.offset = offset;
        offset += field.length;
        fields.push_back(field);
    }
    return fields;
}

/// The encoding of Western programs since the end of DOS.
constexpr const char* kDefaultEncoding = "windows-1252";
constexpr const char* kUtf8 = "UTF-8";

struct Page {
    const char* encoding;
    std::string_view drivers;  ///< Language driver numbers of dBase, FoxPro and related programs.
};

/// 0x68 and 0x69 (Kamenicky, Mazovia) are missing, because ICU has no data for them.
constexpr Page kPages[] = {{"IBM437", "\x01\x09\x0B\x0D\x0F\x11\x15\x18\x19\x1B"},
                           {"IBM737", "\x6A\x86"},
                           {"IBM850", "\x02\x0A\x0E\x10\x12\x14\x16\x1A\x1D\x25\x37"},
                           {"IBM852", "\x1F\x22\x23\x40\x64\x87"},
                           {"IBM857", "\x6B\x88"},
                           {"IBM860", "\x24"},
                           {"IBM861", "\x67"},
                           {"IBM863", "\x1C\x6C"},
                           {"IBM865", "\x08\x17\x66"},
                           {"IBM866", "\x26\x65"},
                           {"windows-874", "\x50\x7C"},
                           {"windows-932", "\x13\x7B"},
                           {"windows-936", "\x4D\x7A"},
                           {"windows-949", "\x4E\x79"},
                           {"windows-950", "\x4F\x78"},
                           {"windows-1250", "\xC8"},
                           {"windows-1251", "\xC9"},
                           {"windows-1252", "\x03\x57\x58\x59"},
                           {"windows-1253", "\xCB"},
                           {"windows-1254", "\xCA"},
                           {"windows-1255", "\x7D"},
                           {"windows-1256", "\x7E"},
                           {"windows-1257", "\xCC"},
                           {"windows-1258", ""},
                           {"macintosh", "\x04"},
                           {"x-mac-cyrillic", "\x96"},
                           {"x-mac-centraleurroman", "\x97"},
                           {"x-mac-greek", "\x98"}};

std::string EncodingOfDriver(int driver) {
    for (const Page& page : kPages)
        if (driver < 256 && page.drivers.find(static_cast<char>(driver)) != std::string_view::npos)
            return page.encoding;
    return {};
}

std::string EncodingOfNumber(int page) {
    if (page == 65001) return kUtf8;
    if (page >= 88591 && page <= 88599) return "ISO-8859-" + std::to_string(page - 88590);
    if (page >= 885910 && page <= 885916) return "ISO-8859-" + std::to_string(page - 885900);
    std::string name = "windows-" + std::to_string(page);
    for (const Page& known : kPages)
        if (name == known.encoding) return name;
    return "IBM" + std::to_string(page);
}

/// Returns the encoding named by a .cpg file or a language driver, such as "UTF-8", "1252", "ANSI
/// 1251", "OEM 437" or "LDID/87". The name may be unknown to ICU; it is empty for an unknown
/// driver.
std::string EncodingNamed(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    static const std::regex kNumbered(R"(\s*(?:(LDID)|ANSI|OEM|CP|)[ /_-]?(\d{1,6})\s*)",
                                      std::regex::icase);
    std::smatch match;
    if (!std::regex_match(text, match, kNumbered)) return text;
    const int number = std::stoi(match[2]);
    return match[1].matched ? EncodingOfDriver(number) : EncodingOfNumber(number);
}

enum class Texts { Ascii, Utf8, Other };

/// Returns the narrowest encoding that fits all names and texts.
Texts JudgeTexts(const DbfSchema& schema) {
    const auto utf8 = TextDecoder::Make(kUtf8);
    Texts judged = Texts::Ascii;
    const auto judge = [&](std::string_view bytes) {
        bytes = bytes.substr(0, bytes.find('\0'));
        if (IsAscii(bytes)) return;
        std::string ignored;
        judged = std::max(judged, utf8->Decode(bytes, ignored) ? Texts::Utf8 : Texts::Other);
    };
    for (const DbfField& field : schema.fields) judge(field.name);
    DbfReader reader(schema);
    while (judged != Texts::Other && reader.Next()) {
        if (IsAscii(reader.Record())) continue;
        for (const DbfField& field : schema.fields)
            if (field.kind == FieldKind::Text) judge(field.BytesIn(reader.Record()));
    }
    return judged;
}

bool Use(DbfSchema& schema, const std::string& encoding, const std::string& from) {
    schema.decoder = TextDecoder::Make(encoding);
    schema.encodingFrom = from;
    return schema.decoder != nullptr;
}

/// Uses the encoding of the .cpg file, else that of the language driver. Returns false if none is
/// known; `unknown` is then, or where only the .cpg file's is not known, the source that names it.
bool UseNamed(DbfSchema& schema, DBFHandle library, std::string& unknown) {
    const std::string driver = "LDID/" + std::to_string(library->iLanguageDriver);
    const char* const page = DBFGetCodePage(library);
    if (page != nullptr && page != driver) {  // Without a .cpg file the library returns the driver.
        const std::string encoding = EncodingNamed(page);
        if (Use(schema, encoding, ".cpg file")) return true;
        unknown = ".cpg file (" + PrintableAscii(encoding) + ")";
    }
    if (library->iLanguageDriver == 0) return false;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "language driver 0x%02X", library->iLanguageDriver);
    if (Use(schema, EncodingNamed(driver), text.data())) return true;
    if (unknown.empty()) unknown = text.data();
    return false;
}

/// Sets the text encoding: the one that is named, else UTF-8 if all texts are valid UTF-8, else
/// windows-1252. Adds a warning for an encoding that is unknown or seems wrong if a text needs it.
void FindEncoding(DbfSchema& schema, DBFHandle library) {
    std::string unknown;
    const bool named = UseNamed(schema, library, unknown);
    if (named && unknown.empty() && schema.decoder->Name() == kUtf8) return;
    const Texts texts = JudgeTexts(schema);
    if (!named && texts == Texts::Utf8)
        Use(schema, kUtf8, "default (all text is valid UTF-8)");
    else if (!named)
        Use(schema, kDefaultEncoding, "default");
    if (texts == Texts::Ascii) return;
    const std::string& used = schema.decoder->Name();
    if (!unknown.empty())
        schema.notes.AddFault("the encoding named by the " + unknown +
                              " is not known; its texts were read as " + used + ".");
    else if (named && texts == Texts::Utf8)
        schema.notes.AddFault("its texts look like UTF-8, but were read as " + used + ", as its " +
                              schema.encodingFrom +
                              " says. A .cpg file beside it can name another.");
    else if (!named && texts == Texts::Other)
        schema.notes.AddFault("nothing tells the encoding of its texts; they were read as " + used +
                              ". A .cpg file beside it can name another.");
}

void DecodeNames(DbfSchema& schema) {
    std::vector<std::string> names;
    for (DbfField& field : schema.fields) {
        schema.decoder->DecodePadded(field.name, names.emplace_back());
        field.name = names.back();
    }
    schema.names = FieldNames(names);
}

/// Returns the names of the wanted fields in brackets; empty if there are none.
template <class Wanted>
std::string NamesOf(const DbfSchema& schema, Wanted wanted) {
    std::string names;
    for (const DbfField& field : schema.fields)
        if (wanted(field)) names += (names.empty() ? " (" : ", ") + field.name;
    return names.empty() ? names : names + ")";
}

void JudgeFields(DbfSchema& schema) {
    const std::string foreign = NamesOf(schema, IsForeign);
    if (!foreign.empty())
        throw host::Failure(host::kFailureUnspecified, "DbfSchema",
                            schema.file.Path() + " has fields that only FoxPro or dBase 7 knows" +
                                foreign + kSaveAsOlder);
    const auto note = [&](FieldKind kind, const std::string& what) {
        const auto isOfKind = [&](const DbfField& field) { return field.kind == kind; };
        const std::string names = NamesOf(schema, isOfKind);
        if (!names.empty()) schema.notes.AddRemark(what + " are not read" + names + ".");
    };
    note(FieldKind::Memo, "memo texts and pictures");
    note(FieldKind::Unknown, "fields of unknown type");
    for (const std::string& name : schema.names.Repeated())
        schema.notes.AddFault("more than one field is named " + name +
                              "; the one so written counts, else the first.");
}

}  // namespace

DbfSchema::DbfSchema(const std::string& path)
    : file(path), notes(path), header(ReadDbfHeader(file)) {
    for (const std::string& warning : header.warnings) notes.AddFault(warning);
    const DbfReader reader(*this);
    fields = ReadFields(reader.Handle(), header.hasLongTexts);
    FindEncoding(*this, reader.Handle());
    DecodeNames(*this);
    JudgeFields(*this);
}

}  // namespace desk

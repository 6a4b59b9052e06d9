#include "desk/tables/DbfEncoding.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <utility>

#include "desk/tables/CodePages.h"
#include "desk/tables/DbfNotes.h"
#include "desk/tables/RecordReader.h"
#include "desk/tables/TextDecoder.h"

namespace desk {
namespace {

/// What Western programs have written since they left DOS.
constexpr const char* kDefaultEncoding = "windows-1252";
/// No encoding has a longer name.
constexpr std::streamsize kLongestCpg = 64;

std::optional<std::string> CpgContent(const std::string& tablePath) {
    std::filesystem::path path(tablePath);
    for (const char* ending : {".cpg", ".CPG", ".Cpg"}) {
        path.replace_extension(ending);
        std::error_code ignored;
        if (!std::filesystem::is_regular_file(path, ignored)) continue;
        std::ifstream stream(path, std::ios::binary);
        std::array<char, kLongestCpg> content{};
        stream.read(content.data(), kLongestCpg);
        return std::string(content.data(), static_cast<std::size_t>(stream.gcount()));
    }
    return std::nullopt;
}

enum class Texts { Ascii, Utf8, Other };

Texts Judge(std::string_view bytes) {
    if (IsAscii(bytes)) return Texts::Ascii;
    return IsUtf8(bytes.substr(0, bytes.find('\0'))) ? Texts::Utf8 : Texts::Other;
}

/// What all names and texts of a table could be.
Texts JudgeTable(const std::shared_ptr<const DbfSchema>& schema) {
    Texts judged = Texts::Ascii;
    for (const DbfField& field : schema->fields) judged = std::max(judged, Judge(field.name));
    RecordReader reader(schema);
    while (judged != Texts::Other && reader.Next()) {
        if (IsAscii(reader.Record())) continue;
        for (const DbfField& field : schema->fields) {
            if (field.kind != DbfKind::Text && field.kind != DbfKind::VarText) continue;
            judged = std::max(
                judged, Judge(reader.Record().substr(static_cast<std::size_t>(field.offset),
                                                     static_cast<std::size_t>(field.length))));
        }
    }
    return judged;
}

std::string DriverText(const DbfHeader& header) {
    if (!header.driverName.empty()) return "language driver " + PrintableAscii(header.driverName);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "language driver 0x%02X", header.languageDriver);
    return text.data();
}

bool Use(DbfSchema& schema, const std::string& encoding, std::string from) {
    schema.decoder = TextDecoder::Make(encoding);
    if (!schema.decoder) return false;
    schema.encoding = schema.decoder->Name();
    schema.encodingFrom = std::move(from);
    return true;
}

}  // namespace

void FindEncoding(const std::shared_ptr<DbfSchema>& schema, const DbfHeader& header) {
    std::string unknown;  // Who names an encoding that is not known.
    if (const auto content = CpgContent(schema->path)) {
        const std::string encoding = EncodingOfCpg(*content);
        if (Use(*schema, encoding, ".cpg file")) return;
        unknown = ".cpg file (" + PrintableAscii(encoding) + ")";
    }
    const bool named = !header.driverName.empty();
    const std::string driverEncoding =
        named ? EncodingOfDriverName(header.driverName) : EncodingOfDriver(header.languageDriver);
    if (Use(*schema, driverEncoding, DriverText(header))) return;
    if (unknown.empty() && (named || header.languageDriver != 0)) unknown = DriverText(header);

    const Texts texts = JudgeTable(schema);
    if (texts == Texts::Utf8)
        Use(*schema, "UTF-8", "default (all text is valid UTF-8)");
    else
        Use(*schema, kDefaultEncoding, "default");
    if (texts == Texts::Ascii) return;
    if (!unknown.empty())
        schema->notes->Add("the encoding named by the " + unknown +
                           " is not known; its texts were read as " + schema->encoding + ".");
    else if (texts == Texts::Other)
        schema->notes->Add("nothing tells the encoding of its texts; they were read as " +
                           schema->encoding + ". A .cpg file beside it can name another.");
}

}  // namespace desk

#include "desk/drawing/pdf/Metadata.h"

#include <cstdlib>
#include <ctime>
#include <optional>

#include "desk/drawing/pdf/Syntax.h"
#include "desk/unicode/Utf8.h"

namespace desk::pdf {
namespace {

constexpr char kProgram[] = "gazetteer";

/// Returns nothing if SOURCE_DATE_EPOCH is not a number.
std::optional<std::tm> CreationDate() {
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || !*epoch) return std::nullopt;
    char* end = nullptr;
    const std::time_t seconds = std::strtoll(epoch, &end, 10);
    std::tm date{};
    if (*end != '\0' || !gmtime_r(&seconds, &date)) return std::nullopt;
    return date;
}

std::string DateText(const char* format) {
    const auto date = CreationDate();
    char text[32];
    return date ? std::string(text, std::strftime(text, sizeof text, format, &*date)) : "";
}

/// Returns a text as XML shows it. Characters that XML cannot hold become U+FFFD.
std::string XmlText(std::string_view text) {
    std::string xml;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = NextCodePoint(text, at);
        const bool isControl = character < ' ' && character != '\t' && character != '\n';
        if (character == '&')
            xml += "&amp;";
        else if (character == '<')
            xml += "&lt;";
        else if (isControl || character == kNotUtf8 || character == 0xFFFE || character == 0xFFFF)
            xml += "\uFFFD";
        else
            xml += text.substr(start, at - start);
    }
    return xml;
}

}  // namespace

int WriteInfo(ObjectFile& file, const std::string& title) {
    std::string info = "<</Title" + TextString(title) + "/Creator(" + kProgram + ")";
    const std::string date = DateText("D:%Y%m%d%H%M%SZ");
    if (!date.empty()) info += "/CreationDate(" + date + ')';
    return file.WriteObject(info + ">>");
}

int WriteXmp(ObjectFile& file, const std::string& title) {
    std::string properties =
        "<dc:format>application/pdf</dc:format><dc:title><rdf:Alt><rdf:li "
        "xml:lang=\"x-default\">" +
        XmlText(title) + "</rdf:li></rdf:Alt></dc:title><xmp:CreatorTool>" + kProgram +
        "</xmp:CreatorTool>";
    const std::string date = DateText("%Y-%m-%dT%H:%M:%SZ");
    if (!date.empty()) properties += "<xmp:CreateDate>" + date + "</xmp:CreateDate>";
    // The identifier of the packet is fixed by the XMP specification.
    return file.WritePlainStream(
        "/Type/Metadata/Subtype/XML",
        "<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
        "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
        "rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
        "xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">" +
            properties + "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>");
}

}  // namespace desk::pdf

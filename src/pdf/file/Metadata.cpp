#include "pdf/file/Metadata.h"

#include <cstdlib>
#include <ctime>
#include <optional>

#include "characters/Utf8.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

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
        const char32_t character = characters::NextCodePoint(text, at);
        const bool isControl = character < ' ' && character != '\t' && character != '\n';
        if (character == '&')
            xml += "&amp;";
        else if (character == '<')
            xml += "&lt;";
        else if (isControl || character == characters::kNotUtf8 || character == 0xFFFE ||
                 character == 0xFFFF)
            xml += "\uFFFD";
        else
            xml += text.substr(start, at - start);
    }
    return xml;
}

/// Tells the standards by their properties, and what these are: PDF/A asks for a description of
/// properties that it does not know, such as PDF/UA's.
std::string ClaimTexts(Claims claims) {
    if (claims == Claims::None) return {};
    const bool access = claims == Claims::ArchiveAndAccess;
    std::string texts = "<pdfaid:part>2</pdfaid:part><pdfaid:conformance>";
    texts += access ? "A" : "B";
    texts += "</pdfaid:conformance>";
    if (!access) return texts;
    return texts +
           "<pdfuaid:part>1</pdfuaid:part><pdfaExtension:schemas><rdf:Bag><rdf:li "
           "rdf:parseType=\"Resource\"><pdfaSchema:schema>PDF/UA identification"
           "</pdfaSchema:schema><pdfaSchema:namespaceURI>http://www.aiim.org/pdfua/ns/id/"
           "</pdfaSchema:namespaceURI><pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>"
           "<pdfaSchema:property><rdf:Seq><rdf:li rdf:parseType=\"Resource\">"
           "<pdfaProperty:name>part</pdfaProperty:name><pdfaProperty:valueType>Integer"
           "</pdfaProperty:valueType><pdfaProperty:category>internal</pdfaProperty:category>"
           "<pdfaProperty:description>Part of ISO 14289</pdfaProperty:description></rdf:li>"
           "</rdf:Seq></pdfaSchema:property></rdf:li></rdf:Bag></pdfaExtension:schemas>";
}

constexpr char kNamespaces[] =
    " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
    " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\""
    " xmlns:pdfuaid=\"http://www.aiim.org/pdfua/ns/id/\""
    " xmlns:pdfaExtension=\"http://www.aiim.org/pdfa/ns/extension/\""
    " xmlns:pdfaSchema=\"http://www.aiim.org/pdfa/ns/schema#\""
    " xmlns:pdfaProperty=\"http://www.aiim.org/pdfa/ns/property#\"";

}  // namespace

int WriteInfo(ObjectFile& file, const About& about) {
    std::string info =
        "<</Title" + TextString(about.title) + "/Creator" + TextString(about.program);
    const std::string date = DateText("D:%Y%m%d%H%M%SZ");
    if (!date.empty()) info += "/CreationDate(" + date + ')';
    return file.WriteObject(info + ">>");
}

int WriteXmp(ObjectFile& file, const About& about) {
    std::string properties =
        "<dc:format>application/pdf</dc:format><dc:title><rdf:Alt><rdf:li "
        "xml:lang=\"x-default\">" +
        XmlText(about.title) + "</rdf:li></rdf:Alt></dc:title><xmp:CreatorTool>" +
        XmlText(about.program) + "</xmp:CreatorTool>" + ClaimTexts(about.claims);
    const std::string date = DateText("%Y-%m-%dT%H:%M:%SZ");
    if (!date.empty()) properties += "<xmp:CreateDate>" + date + "</xmp:CreateDate>";
    // The identifier of the packet is fixed by the XMP specification.
    return file.WritePlainStream(
        "/Type/Metadata/Subtype/XML",
        "<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
        "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
        "rdf:about=\"\"" +
            std::string(kNamespaces) + '>' + properties +
            "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"w\"?>");
}

}  // namespace pdf

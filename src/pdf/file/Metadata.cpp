#include "pdf/file/Metadata.h"

#include <cstdlib>
#include <ctime>
#include <optional>

#include "characters/Utf8.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Returns nothing if SOURCE_DATE_EPOCH is no number, or one of a year without four digits.
std::optional<std::int64_t> SourceTime() {
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || !*epoch) return std::nullopt;
    char* end = nullptr;
    const std::int64_t seconds = std::strtoll(epoch, &end, 10);
    constexpr std::int64_t kFirst = -62'135'596'800;  // Year 1.
    constexpr std::int64_t kLast = 253'402'300'799;   // End of year 9999.
    return *end == '\0' && seconds >= kFirst && seconds <= kLast ? std::optional(seconds)
                                                                 : std::nullopt;
}

/// Returns an empty text if no date is told.
std::string DateText(const About& about, const char* format) {
    const auto told = SourceTime();
    if (!told && !about.time) return {};
    const std::time_t seconds = told ? *told : *about.time;
    std::tm date{};
    if (!gmtime_r(&seconds, &date)) return {};
    // Years have four digits in a file; a date counts them from 1900.
    if (date.tm_year < 0 || date.tm_year > 9999 - 1900) return {};
    char text[32];
    return {text, std::strftime(text, sizeof text, format, &date)};
}

/// Returns a text without characters that XML cannot hold, which become U+FFFD, so that the
/// information dictionary and XMP say the same.
std::string Holdable(std::string_view text) {
    std::string held;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = characters::NextCodePoint(text, at);
        const bool isControl = character < ' ' && character != '\t' && character != '\n';
        if (isControl || character == characters::kNotUtf8 || character == 0xFFFE ||
            character == 0xFFFF)
            held += "\uFFFD";
        else
            held += text.substr(start, at - start);
    }
    return held;
}

/// Returns a text as XML shows it.
std::string XmlText(std::string_view text) {
    std::string xml;
    for (const char character : Holdable(text)) {
        if (character == '&')
            xml += "&amp;";
        else if (character == '<')
            xml += "&lt;";
        else if (character == '>')
            xml += "&gt;";
        else
            xml += character;
    }
    return xml;
}

/// Returns a document's identifier as a UUID of its content.
std::string DocumentId(const std::string& identity) {
    std::string id = "uuid:";
    for (std::size_t at = 0; at < identity.size(); ++at) {
        if (at == 8 || at == 12 || at == 16 || at == 20) id += '-';
        id += identity[at];
    }
    return id;
}

/// What PDF/X-4 asks for.
std::string PressTexts(const ObjectFile& file) {
    return "<pdfxid:GTS_PDFXVersion>PDF/X-4</pdfxid:GTS_PDFXVersion><pdf:Trapped>False"
           "</pdf:Trapped><xmpMM:DocumentID>" +
           DocumentId(file.Identity()) +
           "</xmpMM:DocumentID><xmpMM:VersionID>1</xmpMM:VersionID><xmpMM:RenditionClass>default"
           "</xmpMM:RenditionClass>";
}

/// Tells the standards by their properties.
std::string ClaimTexts(Claims claims) {
    if (claims == Claims::None || claims == Claims::Press) return {};
    if (claims == Claims::Archive)
        return "<pdfaid:part>2</pdfaid:part><pdfaid:conformance>B</pdfaid:conformance>";
    return "<pdfaid:part>2</pdfaid:part><pdfaid:conformance>A</pdfaid:conformance>"
           "<pdfuaid:part>1</pdfuaid:part>";
}

/// PDF/A asks for a description of properties that it does not know, such as PDF/UA's. Some readers
/// look for it in a description of its own.
constexpr char kAccessSchema[] =
    "<rdf:Description rdf:about=\"\""
    " xmlns:pdfaExtension=\"http://www.aiim.org/pdfa/ns/extension/\""
    " xmlns:pdfaSchema=\"http://www.aiim.org/pdfa/ns/schema#\""
    " xmlns:pdfaProperty=\"http://www.aiim.org/pdfa/ns/property#\">"
    "<pdfaExtension:schemas><rdf:Bag><rdf:li rdf:parseType=\"Resource\">"
    "<pdfaSchema:schema>PDF/UA identification</pdfaSchema:schema>"
    "<pdfaSchema:namespaceURI>http://www.aiim.org/pdfua/ns/id/</pdfaSchema:namespaceURI>"
    "<pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>"
    "<pdfaSchema:property><rdf:Seq><rdf:li rdf:parseType=\"Resource\">"
    "<pdfaProperty:name>part</pdfaProperty:name>"
    "<pdfaProperty:valueType>Integer</pdfaProperty:valueType>"
    "<pdfaProperty:category>internal</pdfaProperty:category>"
    "<pdfaProperty:description>Part of ISO 14289</pdfaProperty:description>"
    "</rdf:li></rdf:Seq></pdfaSchema:property></rdf:li></rdf:Bag></pdfaExtension:schemas>"
    "</rdf:Description>";

constexpr char kNamespaces[] =
    " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
    " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\""
    " xmlns:pdfuaid=\"http://www.aiim.org/pdfua/ns/id/\"";
constexpr char kPressNamespaces[] =
    " xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\" xmlns:xmpMM=\"http://ns.adobe.com/xap/1.0/mm/\""
    " xmlns:pdfxid=\"http://www.npes.org/pdfx/ns/id/\"";

}  // namespace

int WriteInfo(ObjectFile& file, const About& about) {
    file.Found().CheckText("the title", about.title);
    std::string info = "<</Title" + TextString(Holdable(about.title)) + "/Creator" +
                       TextString(Holdable(about.program));
    const std::string date = DateText(about, "D:%Y%m%d%H%M%SZ");
    if (!date.empty()) info += "/CreationDate(" + date + ')';
    if (about.claims == Claims::Press) info += "/ModDate(" + date + ")/Trapped/False";
    return file.WriteObject(info + ">>");
}

int WriteXmp(ObjectFile& file, const About& about) {
    std::string properties =
        "<dc:format>application/pdf</dc:format><dc:title><rdf:Alt><rdf:li "
        "xml:lang=\"x-default\">" +
        XmlText(about.title) + "</rdf:li></rdf:Alt></dc:title><xmp:CreatorTool>" +
        XmlText(about.program) + "</xmp:CreatorTool>" + ClaimTexts(about.claims);
    const bool isForPress = about.claims == Claims::Press;
    if (isForPress) properties += PressTexts(file);
    const std::string date = DateText(about, "%Y-%m-%dT%H:%M:%SZ");
    if (!date.empty()) properties += "<xmp:CreateDate>" + date + "</xmp:CreateDate>";
    if (isForPress)
        properties += "<xmp:ModifyDate>" + date + "</xmp:ModifyDate><xmp:MetadataDate>" + date +
                      "</xmp:MetadataDate>";
    // The identifier of the packet is fixed by the XMP specification.
    return file.WritePlainStream(
        "/Type/Metadata/Subtype/XML",
        "<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
        "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
        "rdf:about=\"\"" +
            std::string(kNamespaces) + (isForPress ? kPressNamespaces : "") + '>' + properties +
            "</rdf:Description>" + (about.claims == Claims::ArchiveAndAccess ? kAccessSchema : "") +
            "</rdf:RDF></x:xmpmeta>\n<?xpacket end=\"w\"?>");
}

}  // namespace pdf

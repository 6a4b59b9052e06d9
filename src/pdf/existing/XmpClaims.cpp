#include "pdf/existing/XmpClaims.h"

#include <pugixml.hpp>
#include <sstream>
#include <string_view>
#include <vector>

namespace pdf {
namespace {

enum class Standard { None, Archive, Access, Other };

/// Standards for print, variable print and engineering ask for older versions of PDF, or for the
/// inks of one printer.
constexpr struct {
    std::string_view nameSpace;  ///< Its beginning; some writers leave out the slash.
    std::string_view names;      ///< The beginning of the names that claim something.
    Standard standard;
} kIdentifications[] = {{"http://www.aiim.org/pdfa/ns/id", "", Standard::Archive},
                        {"http://www.aiim.org/pdfua/ns/id", "", Standard::Access},
                        {"http://www.npes.org/pdfx/ns/id", "", Standard::Other},
                        {"http://ns.adobe.com/pdfx/", "GTS_PDFX", Standard::Other},
                        {"http://www.npes.org/pdfvt/ns/id", "", Standard::Other},
                        {"http://www.aiim.org/pdfe/ns/id", "", Standard::Other}};

/// A property that claims something: an attribute, or an element with a text.
struct Claim {
    Standard standard = Standard::None;
    std::string name;  ///< Without the prefix.
    std::string value;
    pugi::xml_node element;
    pugi::xml_attribute attribute;  ///< Null: the element is the property.
};

std::string WithoutBlanks(std::string text) {
    std::erase_if(text, [](char byte) { return byte == ' ' || byte == '\n' || byte == '\r'; });
    return text;
}

/// Returns the name space that the prefix of a name stands for in an element.
std::string_view NameSpaceOf(pugi::xml_node element, const std::string& prefix) {
    const std::string wanted = prefix.empty() ? "xmlns" : "xmlns:" + prefix;
    for (; element; element = element.parent())
        if (const auto binding = element.attribute(wanted.c_str())) return binding.value();
    return {};
}

Claim ReadName(pugi::xml_node element, const std::string& name) {
    const auto colon = name.find(':');
    const std::string prefix = colon == std::string::npos ? "" : name.substr(0, colon);
    Claim claim;
    claim.name = name.substr(colon + 1);
    const std::string_view found = NameSpaceOf(element, prefix);
    for (const auto& [nameSpace, names, standard] : kIdentifications)
        if (found.starts_with(nameSpace) && claim.name.starts_with(names))
            claim.standard = standard;
    claim.element = element;
    return claim;
}

bool HasElements(pugi::xml_node element) {
    return element.find_child(
        [](pugi::xml_node child) { return child.type() == pugi::node_element; });
}

/// Collects the claims of a packet.
class Collector final : public pugi::xml_tree_walker {
public:
    std::vector<Claim> found;

private:
    bool for_each(pugi::xml_node& element) override {
        if (element.type() != pugi::node_element) return true;
        for (const pugi::xml_attribute attribute : element.attributes()) {
            const std::string name = attribute.name();
            // An attribute without a prefix has no name space.
            if (name.find(':') == std::string::npos || name.starts_with("xmlns:")) continue;
            Claim claim = ReadName(element, name);
            claim.attribute = attribute;
            Add(std::move(claim), attribute.value());
        }
        if (!HasElements(element)) Add(ReadName(element, element.name()), element.text().get());
        return true;
    }

    void Add(Claim claim, const char* value) {
        if (claim.standard == Standard::None) return;
        claim.value = WithoutBlanks(value);
        found.push_back(std::move(claim));
    }
};

std::vector<Claim> FindClaims(pugi::xml_document& packet) {
    Collector collector;
    packet.traverse(collector);
    return std::move(collector.found);
}

bool Load(pugi::xml_document& packet, const std::string& bytes) {
    // The declaration of an encoding is left out: what is written is UTF-8.
    constexpr unsigned kAll =
        (pugi::parse_full | pugi::parse_ws_pcdata) & ~unsigned{pugi::parse_declaration};
    return static_cast<bool>(packet.load_buffer(bytes.data(), bytes.size(), kAll));
}

bool IsLevel(const Claim& claim) {
    return claim.standard == Standard::Archive && claim.name == "conformance";
}

bool IsKept(Standard standard, const XmpClaims& kept) {
    if (standard == Standard::Archive) return !kept.archive.empty();
    return standard == Standard::Access && !kept.access.empty();
}

void Remove(Claim& claim) {
    if (claim.attribute)
        claim.element.remove_attribute(claim.attribute);
    else
        claim.element.parent().remove_child(claim.element);
}

void SetLevel(Claim& claim, const std::string& level) {
    if (claim.attribute)
        claim.attribute.set_value(level.c_str());
    else
        claim.element.text().set(level.c_str());
}

}  // namespace

std::optional<XmpClaims> ClaimsOf(const std::string& packet) {
    pugi::xml_document document;
    if (!Load(document, packet)) return std::nullopt;
    XmpClaims claims;
    // What is claimed twice is added up to something that no standard has.
    for (const Claim& claim : FindClaims(document)) {
        if (IsLevel(claim))
            claims.archiveLevel += claim.value;
        else if (claim.name == "part" && claim.standard == Standard::Archive)
            claims.archive += claim.value;
        else if (claim.name == "part" && claim.standard == Standard::Access)
            claims.access += claim.value;
        else if (claim.standard == Standard::Other)
            claims.others = true;
    }
    return claims;
}

std::string WithClaims(const std::string& packet, const XmpClaims& kept) {
    pugi::xml_document document;
    Load(document, packet);
    for (Claim& claim : FindClaims(document)) {
        if (!IsKept(claim.standard, kept))
            Remove(claim);
        else if (IsLevel(claim))
            SetLevel(claim, kept.archiveLevel);
    }
    std::ostringstream out;
    document.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return out.str();
}

}  // namespace pdf

#include "pdf/existing/MergedClaims.h"

#include <algorithm>
#include <map>
#include <optional>
#include <qpdf/QPDF.hh>
#include <stdexcept>
#include <string>

#include "pdf/existing/XmpClaims.h"

namespace pdf {
namespace {

/// Returns the data of a stream without its filters, or nothing if that fails.
std::optional<std::string> DataOf(QPDFObjectHandle stream) try {
    const auto data = stream.getStreamData(qpdf_dl_all);
    return std::string(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
} catch (const std::runtime_error&) {
    return std::nullopt;
}

/// Returns the metadata; empty if there is none, or if it cannot be read.
std::string PacketOf(QPDF& file) {
    auto stream = file.getRoot().getKey("/Metadata");
    return stream.isStream() ? DataOf(stream).value_or("") : std::string();
}

/// Returns whether an ICC profile has the colour space RGB (bytes 16 to 19, ICC.1:2010, 7.2.8).
bool IsOfScreens(QPDFObjectHandle profile) {
    constexpr std::size_t kColorSpace = 16;
    if (!profile.isStream()) return false;
    const auto data = DataOf(profile);
    return data && data->compare(std::min(kColorSpace, data->size()), 4, "RGB ") == 0;
}

/// Returns whether the output intent of PDF/A allows RGB, the colours of the index.
bool AllowsScreenColors(QPDF& file) {
    auto intents = file.getRoot().getKey("/OutputIntents");
    if (!intents.isArray()) return false;
    for (auto& intent : intents.aitems())
        if (intent.isDictionary() && intent.getKey("/S").isNameAndEquals("/GTS_PDFA1") &&
            IsOfScreens(intent.getKey("/DestOutputProfile")))
            return true;
    return false;
}

/// Returns whether the structure has headings without a level. PDF/UA forbids them beside those
/// that have one, as the headings of an index do.
bool HasPlainHeadings(QPDF& file) {
    auto root = file.getRoot().getKey("/StructTreeRoot");
    if (!root.isDictionary()) return false;
    auto roles = root.getKey("/RoleMap");
    for (auto& element : file.getAllObjects()) {
        if (!element.isDictionary() || !element.hasKey("/P")) continue;
        auto type = element.getKey("/S");
        if (!type.isName()) continue;
        const bool isMapped = roles.isDictionary() && roles.getKey(type.getName()).isName();
        if ((isMapped ? roles.getKey(type.getName()) : type).isNameAndEquals("/H")) return true;
    }
    return false;
}

/// Returns the level with fewer rules, or an empty text if one of them is no level.
std::string LowerLevel(const std::string& one, const std::string& other) {
    static const std::map<std::string, int> kRules = {{"B", 0}, {"U", 1}, {"A", 2}};
    const auto first = kRules.find(one);
    const auto second = kRules.find(other);
    if (first == kRules.end() || second == kRules.end()) return {};
    return first->second < second->second ? one : other;
}

/// PDF/A-1 forbids object streams, which are written. Parts 2 and 3 differ in what may be attached.
XmpClaims StillTrue(QPDF& file, const XmpClaims& first, const XmpClaims& second) {
    XmpClaims claims;
    const bool isArchive = (first.archive == "2" || first.archive == "3") && second.archive == "2";
    if (isArchive && AllowsScreenColors(file))
        claims.archiveLevel = LowerLevel(first.archiveLevel, second.archiveLevel);
    if (!claims.archiveLevel.empty()) claims.archive = first.archive;
    if (first.access == "1" && second.access == "1" && !HasPlainHeadings(file))
        claims.access = first.access;
    return claims;
}

void MergeXmp(QPDF& file, QPDF& copied) {
    auto catalog = file.getRoot();
    const std::string packet = PacketOf(file);
    const auto claims = ClaimsOf(packet);
    // What cannot be read may claim anything.
    if (!claims) return catalog.removeKey("/Metadata");
    const XmpClaims kept =
        StillTrue(file, *claims, ClaimsOf(PacketOf(copied)).value_or(XmpClaims()));
    const auto null = QPDFObjectHandle::newNull();
    if (!(kept == *claims))
        catalog.getKey("/Metadata").replaceStreamData(WithClaims(packet, kept), null, null);
}

void MergeInfo(QPDF& file) {
    auto info = file.getTrailer().getKey("/Info");
    if (!info.isDictionary()) return;
    for (const char* claim : {"/GTS_PDFXVersion", "/GTS_PDFXConformance", "/ISO_PDFEVersion"})
        info.removeKey(claim);
}

}  // namespace

void MergeClaims(QPDF& file, QPDF& copied) {
    MergeXmp(file, copied);
    MergeInfo(file);
}

}  // namespace pdf

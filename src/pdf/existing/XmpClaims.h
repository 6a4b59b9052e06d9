#pragma once

#include <optional>
#include <string>

namespace pdf {

/// Which parts of standards the XMP of a file claims to keep to. Empty: none.
struct XmpClaims {
    std::string archive;       ///< Of PDF/A, ISO 19005.
    std::string archiveLevel;  ///< A, B or U.
    std::string access;        ///< Of PDF/UA, ISO 14289.
    bool others = false;       ///< Of standards for print, such as PDF/X, and for engineering.

    // Not by default, for those who include this as C++17.
    bool operator==(const XmpClaims& other) const {
        return archive == other.archive && archiveLevel == other.archiveLevel &&
               access == other.access && others == other.others;
    }
};

/// Returns what a packet claims, or nothing for one that is no XML.
std::optional<XmpClaims> ClaimsOf(const std::string& packet);

/// Returns the packet, in UTF-8, with these claims alone, without others. Requires a packet that is
/// XML and has them, at the same level or another one.
std::string WithClaims(const std::string& packet, const XmpClaims& kept);

}  // namespace pdf

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// The standards that a file claims to keep to.
enum class Claims {
    None,
    Archive,           ///< PDF/A-2, level B.
    ArchiveAndAccess,  ///< PDF/A-2, level A, and PDF/UA-1.
    Press,             ///< PDF/X-4.
};

/// What a file tells of itself.
struct About {
    std::string title;
    std::string program;  ///< That made it.
    Claims claims = Claims::None;
    /// Seconds since 1970, unless SOURCE_DATE_EPOCH tells the date. Without either there is none.
    std::optional<std::int64_t> time = {};
};

/// Writes title, program and creation date as the file's information dictionary; for a press
/// also that nothing is trapped. Returns the object's number.
int WriteInfo(ObjectFile& file, const About& about);

/// Writes the same as XMP, which readers and archives search, and the claims. Returns the object's
/// number.
int WriteXmp(ObjectFile& file, const About& about);

}  // namespace pdf

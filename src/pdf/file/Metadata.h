#pragma once

#include <string>

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// The standards that a file claims to keep to.
enum class Claims {
    None,
    Archive,           ///< PDF/A-2, level B.
    ArchiveAndAccess,  ///< PDF/A-2, level A, and PDF/UA-1.
};

/// What a file tells of itself.
struct About {
    std::string title;
    std::string program;  ///< That made it.
    Claims claims = Claims::None;
};

/// Writes title, program and creation date as the file's information dictionary. The date is taken
/// from SOURCE_DATE_EPOCH and omitted without it. Returns the object's number.
int WriteInfo(ObjectFile& file, const About& about);

/// Writes the same as XMP, which readers and archives search, and the claims. Returns the object's
/// number.
int WriteXmp(ObjectFile& file, const About& about);

}  // namespace pdf

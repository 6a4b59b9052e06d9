#pragma once

#include "desk/drawing/PageWriter.h"

/// The writers of the formats in PageFormats.
namespace desk {

/// A PDF of any number of sheets. The same drawing gives the same bytes: the date of creation is
/// that of the environment's SOURCE_DATE_EPOCH (seconds since 1970), and none without it.
std::unique_ptr<PageWriter> NewPdfWriter(const std::string& path, const PageWriterOptions& options);

/// An image of one sheet on white.
std::unique_ptr<PageWriter> NewPngWriter(const std::string& path, const PageWriterOptions& options);

/// An SVG of one sheet, its texts as outlines.
std::unique_ptr<PageWriter> NewSvgWriter(const std::string& path, const PageWriterOptions& options);

}  // namespace desk

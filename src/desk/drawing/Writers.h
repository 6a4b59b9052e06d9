#pragma once

#include "desk/drawing/PageWriter.h"

namespace desk {

/// A PDF with any number of sheets. The same drawing gives the same bytes: the creation date is
/// taken from SOURCE_DATE_EPOCH (seconds since 1970) and omitted without it.
std::unique_ptr<PageWriter> NewPdfWriter(const std::string& path, const PageWriterOptions& options);

/// An image of one sheet on white.
std::unique_ptr<PageWriter> NewPngWriter(const std::string& path, const PageWriterOptions& options);

/// An SVG of one sheet; texts are outlines.
std::unique_ptr<PageWriter> NewSvgWriter(const std::string& path, const PageWriterOptions& options);

}  // namespace desk

#pragma once

#include <memory>
#include <string>

#include "pdf/file/Output.h"

class QPDF;

namespace pdf {

/// Opens a PDF file. Throws Error for a file that is none, that is damaged or encrypted, in a
/// sentence that names it.
std::unique_ptr<QPDF> OpenFile(const std::string& path);

/// The error of a file that cannot be read, with the reason as a clause.
Error UnreadableFile(const std::string& path, const std::string& reason);

}  // namespace pdf

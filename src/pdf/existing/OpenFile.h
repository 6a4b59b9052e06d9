#pragma once

#include <memory>
#include <string>

class QPDF;

namespace pdf {

/// Opens a PDF file. Throws Error for a file that is none, that is damaged or encrypted, in a
/// sentence that names it.
std::unique_ptr<QPDF> OpenFile(const std::string& path);

}  // namespace pdf

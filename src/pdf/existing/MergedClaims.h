#pragma once

class QPDF;

namespace pdf {

/// Takes out of a file what it claims of standards and no longer keeps to, now that the pages of
/// another file stand in it.
void MergeClaims(QPDF& file, QPDF& copied);

}  // namespace pdf

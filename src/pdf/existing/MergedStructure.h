#pragma once

class QPDF;

namespace pdf {

/// Adds the logical structure of a file's pages, which have been copied, to that of the file that
/// has them now, and says so where one of the two has none. Requires that the copies still have the
/// keys of their own file.
void MergeStructure(QPDF& file, QPDF& copied, int firstCopiedPage);

}  // namespace pdf

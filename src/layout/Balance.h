#pragma once

#include <vector>

#include "layout/StoredPages.h"

namespace gazetteer {

/// Heights in inches at which the column groups of a page end, so that they are about the same and
/// no smaller ones would hold the listings. The pass measures; the page is placed some twenty times
/// with the heights that its rows have.
std::vector<double> BalancedHeights(LayoutPass& pass, const FrameBounds& frame,
                                    const StoredPage& page);

}  // namespace gazetteer

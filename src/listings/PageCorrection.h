#pragma once

#include <cstdint>

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Converts the page of a linked listing to the numbering of the map book. Pages are renumbered
/// only if the linked section comes before the gazetteer's own section.
struct PageCorrection {
    std::int32_t pageBase = 1;
    std::int32_t seriesFirstPage = 0;
    bool isByBook = false;  ///< The corrected pages are those of the book.

    /// The listing's page in the book. A page beyond 32 bits is an overflow.
    std::int32_t Corrected(std::int32_t page) const;
};

/// Computes the correction from the map book. Selects the frame in the series manager.
PageCorrection MakePageCorrection(const Settings& settings, const SiblingObjects& siblings,
                                  const host::Ref<host::IHostMapFrame>& frame,
                                  host::IHostLocale& locale);

/// The first visible index grid of the frame; null where there is none.
host::Ref<host::IHostIndexGrid> FindIndexGrid(const host::Ref<host::IHostMapFrame>& frame);

}  // namespace gazetteer

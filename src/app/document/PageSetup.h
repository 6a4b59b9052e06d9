#pragma once

#include <optional>

#include "app/document/PageFurniture.h"
#include "app/document/SheetSizes.h"

namespace app {

/// Inches from the edges of the sheet to the gazetteer's frame.
struct Margins {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

Margins MarginsOf(const FrameOption& frame, const PageSize& size);

/// The sheet, the place of the gazetteer on it, and the texts beside the gazetteer.
struct PageSetup {
    PageSize size;
    std::optional<Margins> margins;  ///< None, as for the labels, without a gazetteer frame.
    std::int32_t firstSheet = 0;     ///< As in the document.
    Label head;
    Label number;
};

enum class SetupField { Width, Height, Left, Right, Top, Bottom, HeadText };

struct SetupFault {
    SetupField field;
    std::string sentence;
};

/// Returns what is wrong with a size, with the unit in which to tell it.
std::optional<SetupFault> SizeFault(const PageSize& size, LengthUnit unit);

/// Returns the first value that cannot be, among those that differ from what was before: a document
/// may have any. Lengths in the sentence have the given unit.
std::optional<SetupFault> FaultOf(const PageSetup& setup, const PageSetup& before, LengthUnit unit);

PageSetup PageSetupOf(OpenDocument& open);

/// Changes the document. A moved or resized frame drops the stored results. Throws UsageError and
/// changes nothing if there is a fault. Replaces what a DocumentState shares.
void ApplyPageSetup(OpenDocument& open, const PageSetup& setup);

}  // namespace app

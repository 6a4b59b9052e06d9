#pragma once

#include "app/document/OpenDocument.h"

/// Texts on a sheet outside the gazetteer: a running head with the first and last listing of the
/// page, and the sheet number. They are text elements of the layout page, recognised by their tags.
namespace app {

inline constexpr char kHeadTag[] = "RUNNINGHEAD";
inline constexpr char kNumberTag[] = "SHEETNUMBER";

/// Where a text stands between the left and the right edge of the gazetteer's frame.
enum class LabelPlace { Left, Center, Right, Elsewhere };

/// One of the texts, as the page setup changes it.
struct Label {
    bool shown = false;
    /// The family is that of the index's first column.
    bool followsIndex = true;
    host::Ref<host::IHostTextSymbol> symbol;  ///< Of its own, with the font.
    LabelPlace place = LabelPlace::Center;
    double distance = 0;  ///< Inches from the frame: a head's above it, a number's below it.
    std::string text;     ///< Of a head, as for HeadText.
};

/// Reads a label; one that is not on the sheet has the defaults of AddPageFurniture.
Label LabelOf(OpenDocument& open, const char* tag);
/// Puts a label beside the frame of the gazetteer, or removes it. Replaces geometry, symbol and
/// custom property of its element, so that a DocumentState keeps the old ones. Elsewhere keeps the
/// offset from the middle of the frame, which was at `middleBefore` (inches from the left).
void SetLabel(OpenDocument& open, const char* tag, const Label& label, double middleBefore);

/// Adds a running head above the gazetteer and a sheet number below it.
void AddPageFurniture(OpenDocument& open);

/// Returns the font family of the index's first column; empty without a column.
std::string IndexFamily(OpenDocument& open);
/// Gives the texts that follow the index the font family of its first column.
void UseColumnFont(OpenDocument& open);

/// Sets the running head and the number, if present, for a page of the gazetteer. Cuts the head
/// with an ellipsis to the width of the gazetteer. Throws if the map book cannot be read.
void LabelSheet(OpenDocument& open, std::int32_t page);

/// Returns the number printed on the sheet of a page. It counts from the document's first number,
/// else in a map book from the first page of the gazetteer's section. Throws if the map book cannot
/// be read.
std::int64_t SheetNumber(OpenDocument& open, std::int32_t page);

}  // namespace app

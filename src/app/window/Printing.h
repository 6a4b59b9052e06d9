#pragma once

#include "app/window/WindowSession.h"

class QPrinter;
class QWidget;

namespace app {

/// Sets the paper of a printer to the document's sheet, without margins.
void UseSheetAsPaper(WindowSession& session, QPrinter& printer);

/// Paints pages at their real size in the middle of the printer's paper, then draws the current
/// page again. Calls the listener before each page; an exception from it, or a failure, which
/// throws, aborts the print; of one to a file nothing is left.
void PrintPages(WindowSession& session, QPrinter& printer, const PageRange& pages,
                const SheetListener& before);

/// Opens the system's dialog, tells what would be wrong in print, and prints with a progress
/// dialog. Returns a sentence about the result, or an empty text.
QString Print(WindowSession& session, QWidget& window);

}  // namespace app

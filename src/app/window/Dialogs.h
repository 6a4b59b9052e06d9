#pragma once

#include <QString>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Asks for a listing table, a map book and a page size, and makes a new document from them. The
/// dialog starts with a table if one is given, and stays open until the document has been made or
/// the user cancels. Returns whether it was made.
bool MakeNewDocument(WindowSession& session, const QString& table, QWidget& window);

/// Asks for pages and a file, and writes them with a progress dialog that can be cancelled. Returns
/// what was done in one sentence, or an empty text.
QString ExportPages(WindowSession& session, QWidget& window);

}  // namespace app

#pragma once

#include <QString>
#include <optional>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Opens the dialog for a new document, with a listing table if one is given. It stays open until
/// the document is created or the user cancels. Returns whether it was created.
bool MakeNewDocument(WindowSession& session, const QString& table, QWidget& window);

/// Opens the dialog for the sheet, the place of the index on it, and the texts beside it. Returns
/// whether the document was changed; it is as before if the user cancels, also the run.
bool ChangePageSetup(WindowSession& session, QWidget& window);

/// Opens the export dialog and writes the pages with a progress dialog that can be cancelled.
/// Proposes the only page if one is given, else all. Returns a sentence about the result, or an
/// empty text.
QString ExportPages(WindowSession& session, QWidget& window, std::optional<int> onlyPage);

}  // namespace app

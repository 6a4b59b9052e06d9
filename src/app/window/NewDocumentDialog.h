#pragma once

#include "app/window/WindowSession.h"

class QString;
class QWidget;

namespace app {

/// Asks for a listing table, a map book and a page size, and makes a new document from them. The
/// dialog starts with a table if one is given, and stays open until the document has been made or
/// the user cancels. Returns whether it was made.
bool MakeNewDocument(WindowSession& session, const QString& table, QWidget& window);

}  // namespace app

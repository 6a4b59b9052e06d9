#pragma once

#include <QString>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Asks for pages and a file, and writes them with a progress dialog that can be cancelled. Returns
/// what was done in one sentence, or an empty text.
QString ExportPages(WindowSession& session, QWidget& window);

}  // namespace app

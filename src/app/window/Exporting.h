#pragma once

#include <QString>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// Asks for pages and a file, and writes them with a progress dialog that can be cancelled. Answers
/// what was done in one sentence; empty if nothing was.
QString ExportPages(WindowSession& session, QWidget& window);

}  // namespace app

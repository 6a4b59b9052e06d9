#pragma once

#include <QString>
#include <functional>

#include "app/window/WindowSession.h"

class QWidget;

namespace app {

/// How a job over pages is called: "Export", "Exporting".
struct JobName {
    QString title;
    QString verb;
};

/// Returns "1 page" or "5 pages".
QString CountedPages(const PageRange& pages);

/// Does a job over pages, with a progress dialog that can be cancelled; the job calls the listener
/// before each page. Tells failures. Returns whether the job was done.
bool WithProgress(WindowSession& session, QWidget& window, const JobName& name,
                  const PageRange& pages, const std::function<void(const SheetListener&)>& job);

}  // namespace app

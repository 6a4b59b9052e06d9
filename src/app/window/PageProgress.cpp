#include "app/window/PageProgress.h"

#include <QProgressDialog>

#include "app/document/Errors.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr int kDelay = 500;  // Milliseconds before the dialog appears.

struct Cancelled {};

}  // namespace

QString CountedPages(const PageRange& pages) {
    const int count = pages.last - pages.first + 1;
    return count == 1 ? QString("1 page") : QString("%1 pages").arg(count);
}

bool WithProgress(WindowSession& session, QWidget& window, const JobName& name,
                  const PageRange& pages, const std::function<void(const SheetListener&)>& job) {
    QProgressDialog progress(name.verb + "...", "Cancel", 0, pages.last - pages.first + 1, &window);
    progress.setWindowTitle(name.title);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(kDelay);
    const auto before = [&](std::int32_t page) {
        progress.setLabelText(
            QString("%1 page %2 of %3...").arg(name.verb).arg(page).arg(pages.last));
        // Processes events, so that the user can press Cancel; the rest of the window is blocked.
        progress.setValue(page - pages.first);
        if (progress.wasCanceled()) throw Cancelled{};
    };
    try {
        job(before);
        return true;
    } catch (const Cancelled&) {
        return false;
    } catch (const AlreadyReported&) {
        return false;
    } catch (const std::exception&) {
        progress.reset();
        session.Warn(desk::FromQt(name.title), CurrentSentence());
        return false;
    }
}

}  // namespace app

#include "app/window/Exporting.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>

#include "app/document/Errors.h"
#include "app/window/ExportDialog.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

struct Cancelled {};

constexpr int kPatience = 500;  // Milliseconds before the progress is shown.

void Warn(WindowSession& session, const std::string& sentence) {
    session.Host().Dialogs().MessageBox({"Export", sentence, host::kWarningOk, nullptr});
}

// Whether the pages were written.
bool WriteWithProgress(WindowSession& session, QWidget& window, const std::string& path,
                       const PageRange& pages) {
    const int count = pages.last - pages.first + 1;
    QProgressDialog progress("Exporting...", "Cancel", 0, count, &window);
    progress.setWindowTitle("Export");
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(kPatience);
    const auto before = [&](std::int32_t page) {
        progress.setLabelText(QString("Exporting page %1 of %2...").arg(page).arg(pages.last));
        // Lets the user press Cancel; nothing else in the program can be reached meanwhile.
        progress.setValue(page - pages.first);
        if (progress.wasCanceled()) throw Cancelled{};
    };
    try {
        session.Export(path, pages, before);
        return true;
    } catch (const Cancelled&) {
        return false;
    } catch (const AlreadyTold&) {
        return false;
    } catch (const std::exception&) {
        progress.reset();
        Warn(session, CurrentSentence());
        return false;
    }
}

}  // namespace

QString ExportPages(WindowSession& session, QWidget& window) {
    const QFileInfo document(desk::ToQt(session.Path()));
    const QString base = QDir::cleanPath(document.path() + '/' + document.completeBaseName());
    ExportDialog dialog(session.Page(), session.Pages(), base, &window);
    if (dialog.exec() != QDialog::Accepted) return {};
    const std::string path = desk::FromQt(QFileInfo(dialog.Path()).absoluteFilePath());
    if (session.Needs(path)) {
        Warn(session, "The pages cannot be written to \"" + path +
                          "\", since the document is made from that file.");
        return {};
    }
    const PageRange pages = dialog.Pages();
    if (!WriteWithProgress(session, window, path, pages)) return {};
    const int count = pages.last - pages.first + 1;
    return QString("Exported %1 to %2")
        .arg(count == 1 ? QString("1 page") : QString("%1 pages").arg(count),
             QFileInfo(dialog.Path()).fileName());
}

}  // namespace app

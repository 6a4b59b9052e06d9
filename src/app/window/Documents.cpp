#include "app/window/Documents.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>

#include "app/document/Errors.h"
#include "app/window/Dialogs.h"
#include "app/window/WaitPointer.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr char kFilter[] = "Documents (*.json *.gazetteer);;All files (*)";
constexpr char kRecent[] = "recentDocuments";
constexpr qsizetype kMostRecent = 8;

QStringList RecentWithout(const QString& path) {
    QStringList paths = Documents::Recent();
    paths.removeAll(QFileInfo(path).absoluteFilePath());
    return paths;
}

}  // namespace

Documents::Documents(WindowSession& session, QWidget& window)
    : QObject(&window), session_(session), window_(window) {}

QStringList Documents::Recent() {
    return QSettings().value(kRecent).toStringList();
}

void Documents::SetRecent(const QStringList& paths) {
    QSettings().setValue(kRecent, paths.first(qMin(kMostRecent, paths.size())));
    Q_EMIT RecentChanged();
}

void Documents::AddRecent(const QString& path) {
    SetRecent(QStringList(QFileInfo(path).absoluteFilePath()) + RecentWithout(path));
}

void Documents::ClearRecent() {
    SetRecent({});
}

QString Documents::Name() const {
    const QFileInfo file(desk::ToQt(session_.Path()));
    return session_.OnDisk() ? file.fileName() : file.completeBaseName() + " (not saved)";
}

QString Documents::StartFolder() const {
    return session_.HasDocument() ? QFileInfo(desk::ToQt(session_.Path())).absolutePath()
                                  : QString();
}

bool Documents::MayLeave() {
    if (!session_.Modified()) return true;
    QMessageBox box(QMessageBox::Question, "Unsaved Changes",
                    "The document \"" + Name() + "\" has changes that are not saved.",
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText("Save them?");
    box.setDefaultButton(QMessageBox::Save);
    const int pressed = box.exec();
    if (pressed == QMessageBox::Save) return Save();
    return pressed == QMessageBox::Discard;
}

void Documents::Open() {
    const QString path =
        QFileDialog::getOpenFileName(&window_, "Open Document", StartFolder(), kFilter);
    if (!path.isEmpty()) Open(path);
}

void Documents::Open(const QString& path) {
    if (desk::IsTablePath(desk::FromQt(path))) return New(path);
    if (!MayLeave()) return;
    try {
        const WaitPointer wait;
        session_.Open(desk::FromQt(path));
    } catch (const RunCancelled&) {
        return Q_EMIT Cancelled();
    } catch (const std::exception&) {
        return session_.Warn("Open Document", CurrentSentence());
    }
    AddRecent(path);
    Q_EMIT Replaced();
}

void Documents::OpenRecent(const QString& path) {
    if (QFileInfo::exists(path)) return Open(path);
    SetRecent(RecentWithout(path));
    session_.Warn("Open Document", "The document \"" + desk::FromQt(path) +
                                       "\" is no longer there, and was taken off the list of "
                                       "recent documents.");
}

void Documents::New(const QString& table) {
    if (!MayLeave()) return;
    if (MakeNewDocument(session_, table, window_)) Q_EMIT Replaced();
}

bool Documents::Save() {
    if (!session_.OnDisk()) return SaveAs();
    return SaveWith(desk::ToQt(session_.Path()), [this] { session_.Save(); });
}

bool Documents::SaveAs() {
    QFileDialog dialog(&window_, "Save Document", StartFolder(), kFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("json");
    dialog.selectFile(QFileInfo(desk::ToQt(session_.Path())).fileName());
    if (dialog.exec() != QDialog::Accepted) return false;
    const QString path = dialog.selectedFiles().value(0);
    return SaveWith(path, [&] { session_.SaveTo(desk::FromQt(path)); });
}

bool Documents::SaveWith(const QString& path, const std::function<void()>& save) {
    if (session_.Document().IsMadeFrom(desk::FromQt(path))) {
        session_.Warn("Save Document", "The document cannot be saved as \"" + desk::FromQt(path) +
                                           "\", since it is made from that file.");
        return false;
    }
    try {
        save();
    } catch (const std::exception&) {
        session_.Warn("Save Document", CurrentSentence());
        return false;
    }
    AddRecent(path);
    Q_EMIT Saved();
    return true;
}

}  // namespace app

#include "app/window/Documents.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "app/document/Errors.h"
#include "app/window/NewDocumentDialog.h"
#include "app/window/RecentDocuments.h"
#include "app/window/WaitPointer.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr char kFilter[] = "Documents (*.json *.gazetteer);;All files (*)";

}  // namespace

Documents::Documents(WindowSession& session, QWidget& window)
    : QObject(&window), session_(session), window_(window) {}

bool Documents::IsTable(const QString& path) {
    return QFileInfo(path).suffix().compare("dbf", Qt::CaseInsensitive) == 0;
}

QString Documents::Name() const {
    const QFileInfo file(desk::ToQt(session_.Path()));
    return session_.OnDisk() ? file.fileName() : file.completeBaseName() + " (not saved)";
}

QString Documents::StartFolder() const {
    return session_.HasDocument() ? QFileInfo(desk::ToQt(session_.Path())).absolutePath()
                                  : QString();
}

void Documents::Warn(const QString& title, const QString& sentence) {
    session_.Host().Dialogs().MessageBox(
        {desk::FromQt(title), desk::FromQt(sentence), host::kWarningOk, nullptr});
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
    if (IsTable(path)) return New(path);
    if (!MayLeave()) return;
    try {
        const WaitPointer wait;
        session_.Open(desk::FromQt(path));
    } catch (const std::exception&) {
        return Warn("Open Document", desk::ToQt(CurrentSentence()));
    }
    RecentDocuments::Add(path);
    Q_EMIT RecentChanged();
    Q_EMIT Replaced();
}

void Documents::OpenRecent(const QString& path) {
    if (QFileInfo::exists(path)) return Open(path);
    RecentDocuments::Remove(path);
    Q_EMIT RecentChanged();
    Warn("Open Document", "The document \"" + path +
                              "\" is no longer there, and was taken off the list of recent "
                              "documents.");
}

void Documents::New(const QString& table) {
    if (!MayLeave()) return;
    const auto make = [this](const NewDocumentOptions& options, bool readyToPrint) -> QString {
        try {
            const WaitPointer wait;
            session_.StartNew(options, readyToPrint);
            return {};
        } catch (const std::exception&) {
            return desk::ToQt(CurrentSentence());
        }
    };
    NewDocumentDialog dialog(session_.Host(), make, &window_);
    if (!table.isEmpty()) dialog.SetTable(table);
    if (dialog.exec() == QDialog::Accepted) Q_EMIT Replaced();
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
    if (session_.Needs(desk::FromQt(path))) {
        Warn("Save Document",
             "The document cannot be saved as \"" + path + "\", since it is made from that file.");
        return false;
    }
    try {
        save();
    } catch (const std::exception&) {
        Warn("Save Document", desk::ToQt(CurrentSentence()));
        return false;
    }
    RecentDocuments::Add(path);
    Q_EMIT RecentChanged();
    Q_EMIT Saved();
    return true;
}

}  // namespace app

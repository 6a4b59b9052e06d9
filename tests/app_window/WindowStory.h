#pragma once

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "app/window/MainWindow.h"
#include "app/window/PageView.h"
#include "support/DbfBuilder.h"
#include "support/TestDesk.h"
#include "support/Widgets.h"

namespace window_test {

using Answer = std::function<void(QWidget& dialog)>;

/// A user at the desk's window, with a folder, settings and a list of components of their own. What
/// is left unsaved in the end is no matter of a test.
class WindowStory : public testing::Test {
public:
    WindowStory() {
        qputenv("XDG_DATA_HOME", folder_.File("data").c_str());
        QSettings().clear();
        NewWindow();
    }

    void NewWindow() {
        window_ = std::make_unique<app::MainWindow>("en_US");
        window_->resize(1000, 800);
        window_->show();
    }
    /// Gives the keys to the window, which a closed dialog does not do without a window manager.
    void Activate() const {
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
    void Open(const std::string& path) { window_->Open(QString::fromStdString(path)); }

    /// A table of listings "Alpha 0001", "Alpha 0002", ..., on page 1 of the book and so on.
    std::string Table(const std::string& name, int listings) const {
        support::DbfBuilder table({{"Listing", 'C', 20}, {"Page", 'N', 6}});
        for (int i = 1; i <= listings; ++i)
            table.Row({"Alpha " + std::to_string(10000 + i).substr(1), std::to_string(i)});
        table.Write(folder_.File(name));
        return folder_.File(name);
    }

    /// Makes a document from a table by the dialog, as a user would who is content with it.
    void Make(const std::string& table) {
        support::WhenModal([](QWidget& dialog) { Press(dialog, "Create"); });
        Open(table);
    }
    /// The same, saved.
    std::string MakeSaved(const std::string& table, const std::string& name) {
        Make(table);
        DoWith("save", [&](QWidget& dialog) { TypeFile(dialog, folder_.File(name)); });
        return folder_.File(name);
    }

    QAction& Action(const char* name) const { return Find<QAction>(name); }
    void Do(const char* action) const {
        ASSERT_TRUE(Action(action).isEnabled()) << action;
        Action(action).trigger();
    }
    /// An action that opens a dialog, and what is done there.
    void DoWith(const char* action, const Answer& answer) const {
        support::WhenModal(answer);
        Do(action);
    }
    template <class T>
    T& Find(const char* name) const {
        return support::Part<T>(*window_, name);
    }
    app::WindowSession& Session() const { return window_->TheSession(); }
    std::string Status() const { return Find<QLabel>("statusText").text().toStdString(); }
    int ListedPages() const { return Find<QTreeView>("pageList").model()->rowCount(); }

    std::vector<std::string> DrawnListings() const {
        const auto& element = Session().Document().Gazetteer();
        auto texts = element ? support::TestDesk::DrawnTexts(*element) : std::vector<std::string>();
        for (auto& text : texts) text = text.substr(0, 10);  // Without the leader.
        return texts;
    }

    static void Press(QWidget& dialog, const QString& text) {
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->text().remove('&') == text) return button->click();
        ADD_FAILURE() << "no button " << text.toStdString();
    }
    /// Looks at the text of the message box that comes up next, and presses a button of it; then
    /// comes another dialog where there is an answer to one.
    static void ExpectMessage(const QString& part, const QString& button = "OK",
                              const Answer& next = {}) {
        support::WhenModal([part, button, next](QWidget& dialog) {
            const auto* const box = qobject_cast<QMessageBox*>(&dialog);
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE((box->text() + box->informativeText()).contains(part))
                << box->text().toStdString();
            if (next) support::WhenModal(next);
            Press(dialog, button);
        });
    }
    static void ActAndPress(QWidget& sheet, const Answer& act, const char* button) {
        QTest::qWait(50);
        act(sheet);
        Press(sheet, button);
    }
    /// Opens the sheet, acts on it, and leaves it by a button.
    void InSheet(const Answer& act, const char* button = "Cancel") {
        DoWith("properties", [=](QWidget& sheet) { ActAndPress(sheet, act, button); });
    }
    static void Type(QWidget& dialog, const char* field, const std::string& text) {
        support::Part<QLineEdit>(dialog, field).setText(QString::fromStdString(text));
    }
    static void TypeFile(QWidget& dialog, const std::string& path) {
        Type(dialog, "fileNameEdit", path);
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    support::TemporaryFolder folder_;
    std::unique_ptr<app::MainWindow> window_;
};

}  // namespace window_test

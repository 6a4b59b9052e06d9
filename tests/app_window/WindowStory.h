#pragma once

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "app/window/MainWindow.h"
#include "app/window/PageView.h"
#include "support/DbfBuilder.h"
#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace window_test {

/// A user at the desk's window, with a folder, settings and a list of components of their own.
class WindowStory : public testing::Test {
public:
    WindowStory() {
        qputenv("XDG_DATA_HOME", folder_.File("data").c_str());
        QSettings().clear();
        NewWindow();
    }
    ~WindowStory() override {
        // What was left unsaved is no matter of the test.
        window_.reset();
    }

    void NewWindow() {
        window_ = std::make_unique<app::MainWindow>("en_US");
        window_->resize(1000, 800);
        window_->show();
    }

    /// A table of listings "Alpha 0001", "Alpha 0002", ..., on page 1 of the book and so on.
    std::string Table(const std::string& name, int listings) const {
        support::DbfBuilder table({{"Listing", 'C', 20}, {"Page", 'N', 6}});
        for (int i = 1; i <= listings; ++i) {
            const std::string digits = std::to_string(10000 + i).substr(1);
            table.Row({"Alpha " + digits, std::to_string(i)});
        }
        table.Write(folder_.File(name));
        return folder_.File(name);
    }

    /// Makes a document from a table by the dialog, as a user would who is content with it.
    void Make(const std::string& table) {
        support::WhenModal([](QWidget& dialog) { Press(dialog, "Create"); });
        window_->Open(QString::fromStdString(table));
    }
    /// The same, saved.
    std::string MakeSaved(const std::string& table, const std::string& name) {
        Make(table);
        support::WhenModal([&](QWidget& dialog) { TypeFile(dialog, folder_.File(name)); });
        Do("save");
        return folder_.File(name);
    }

    QAction& Action(const char* name) const { return support::Part<QAction>(*window_, name); }
    void Do(const char* action) const {
        ASSERT_TRUE(Action(action).isEnabled()) << action;
        Action(action).trigger();
    }
    template <class T>
    T& Find(const char* name) const {
        return support::Part<T>(*window_, name);
    }
    app::Layout& Layout() const { return window_->TheLayout(); }
    QString Status() const { return Find<QLabel>("statusText").text(); }
    int ListedPages() const { return Find<QTreeView>("pageList").model()->rowCount(); }

    /// The first cell's text of each drawn row.
    std::vector<std::string> DrawnListings() const;

    static void Press(QWidget& dialog, const QString& text) {
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->text().remove('&') == text) return button->click();
        ADD_FAILURE() << "no button " << text.toStdString();
    }
    /// The text of the message box that comes up next; pressing a button of it.
    static void ExpectMessage(const QString& part, const QString& button = "OK") {
        support::WhenModal([part, button](QWidget& dialog) {
            const auto* const box = qobject_cast<QMessageBox*>(&dialog);
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE((box->text() + box->informativeText()).contains(part))
                << box->text().toStdString();
            Press(dialog, button);
        });
    }
    static void TypeFile(QWidget& dialog, const std::string& path) {
        support::Part<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    support::TemporaryFolder folder_;
    std::unique_ptr<app::MainWindow> window_;
};

}  // namespace window_test

#pragma once

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "desk/window/ExpressionEditor.h"
#include "desk/window/ObjectDialog.h"
#include "desk/window/ObjectSet.h"
#include "desk/window/PropertySheet.h"
#include "desk/window/SymbolDialog.h"
#include "model/Keys.h"
#include "page/GazetteerPropertyPage.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/SetDump.h"
#include "support/TestDesk.h"
#include "support/Widgets.h"
#include "typesetting/TypesettingPropertyPage.h"

namespace page_test {

using Texts = std::vector<std::string>;
using support::Dump;
using support::ObjectsIn;
using support::TestDesk;

/// A user at the property pages of one gazetteer: the real pages in the real sheet on the real
/// desk, with the desk's own object, symbol and expression dialogs. Message boxes are recorded.
class PageStory : public testing::Test {
public:
    PageStory() : desk_(WindowOptions(*this)) {
        desk_.TheDesk().Commands().Add("CVNLayoutsCmds.RefreshLayout", [this] {
            ++refreshes_;
            gazetteer::CVNGazetteerManager manager(desk_.HostRef());
            manager.SetIndexElement(element_);
            if (manager.CanDraw() && !IsDraft())
                manager.SetIndexToPageNumber(manager.DefaultPage());
        });
    }
    ~PageStory() override { CloseSheet(); }

    /// A new element of this width with four listings of Oak St (twice), Elm St and Ash St, and the
    /// page on it.
    void Open(double width = 4) {
        element_ = desk_.NewGazetteer(
            desk_.ListingTable(
                {{"Oak St", "3"}, {"Elm St", "1"}, {"Oak St", "5"}, {"Ash St", "2"}}),
            width, 3);
        OpenSheet();
    }
    /// The page on the element as it is now, in a sheet of its own.
    void OpenSheet() {
        CloseSheet();
        page_ = std::make_shared<gazetteer::GazetteerPropertyPage>(desk_.HostRef());
        sheet_ = std::make_unique<desk::PropertySheet>(
            std::vector<host::Ref<host::IComPropertyPage>>{
                page_, std::make_shared<gazetteer::TypesettingPropertyPage>(desk_.HostRef())},
            std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{element_}),
            nullptr);
        sheet_->show();
        QApplication::processEvents();
        form_ = sheet_->findChild<gazetteer::frmGazetteerPropertyPage*>();
        ASSERT_NE(form_, nullptr);
        ASSERT_TRUE(form_->IsFilled());
    }
    void CloseSheet() {
        form_ = nullptr;
        if (sheet_) sheet_->close();
        sheet_.reset();
        page_.reset();
        QApplication::processEvents();
    }
    gazetteer::frmGazetteerPropertyPage& Form() const { return *form_; }
    gazetteer::GazetteerPropertyPage& Page() const { return *page_; }
    desk::PropertySheet& Sheet() const { return *sheet_; }
    template <class T = QWidget>
    T& Control(const char* name) const {
        return support::Part<T>(Form(), name);
    }

    // What a user does.

    /// Brings the tab of a control to the front.
    void Reveal(const char* control) const {
        for (QWidget* shown = &Control(control); shown != nullptr; shown = shown->parentWidget()) {
            auto* stack = shown->parentWidget();
            auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
            if (tabs != nullptr && tabs->indexOf(shown) >= 0) tabs->setCurrentWidget(shown);
        }
        QApplication::processEvents();
        ASSERT_TRUE(Control(control).isVisible() && Control(control).isEnabled()) << control;
    }
    void Click(const char* control) const {
        Reveal(control);
        auto& button = Control<QAbstractButton>(control);
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Space);
    }
    /// Replaces the text of a text box.
    void Type(const char* control, const char* text) const {
        Reveal(control);
        support::Retype(Control<QLineEdit>(control), text);
    }
    void Choose(const char* list, const char* entry) const {
        Reveal(list);
        auto& box = Control<QComboBox>(list);
        ASSERT_GE(box.findText(entry), 0) << entry;
        box.setCurrentIndex(box.findText(entry));
    }
    void SelectRow(const char* list, int row) const {
        Reveal(list);
        auto& rows = Control<QListWidget>(list);
        const QRect place = rows.visualItemRect(rows.item(row));
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place.center());
        ASSERT_EQ(rows.currentRow(), row);
    }
    void Press(QDialogButtonBox::StandardButton which) const {
        auto& button = support::EndButton(*sheet_, which);
        ASSERT_TRUE(button.isEnabled()) << button.text().toStdString();
        QTest::mouseClick(&button, Qt::LeftButton);
        QApplication::processEvents();
    }
    void AddColumn(const char* name) {
        desk_.Dialogs().input = name;
        Click("cmdAdd");
    }
    /// Picks a table of the desk's folder in the host's dialog.
    void PickDatabase(const std::string& path) const {
        support::WhenModal([name = std::filesystem::path(path).filename()](QWidget& dialog) {
            auto& box = support::Part<QLineEdit>(dialog, "name");
            support::Retype(box, QString::fromStdString(name));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        Click("cmdSetNewFileName");
    }
    void LinkToMainMap() const {
        Choose("cmbSection", "Maps");
        Choose("CmbTemplate", "Map sheet");
        Choose("cmbMapSeriesFrame", "Main map");
    }

    // What comes of it.

    Texts RowsOf(const char* list) const {
        Texts texts;
        for (const QString& row : support::RowTexts(Control<QListWidget>(list)))
            texts.push_back(row.toStdString());
        return texts;
    }
    host::Ref<host::IHostPropertySet> Stored() { return desk_.Properties(element_); }
    host::Ref<host::IHostPropertySet> Working() const { return Form().GazetteerProperties(); }
    host::Variant Value(const std::string& key) const { return Working()->Item(key); }
    host::Variant ColumnValue(const std::string& column, const std::string& key) const {
        return TestDesk::SetIn(*TestDesk::SetIn(*Working(), "ColumnsProperties"), column)
            ->Item(key);
    }
    /// What the gazetteer, or else its column "Listing", holds under a key.
    host::Variant Held(const std::string& key) const {
        return gazetteer::FindColumnKey(key) == nullptr ? Value(key) : ColumnValue("Listing", key);
    }
    /// Texts of the listing column as they are drawn, from the top.
    Texts DrawnListings() const { return TestDesk::DrawnTexts(*element_); }
    bool IsDraft() const { return host::As<host::IHostFrameElement>(element_)->Draft(); }
    /// The titles of the messages that nobody asked for yet.
    Texts Told() {
        Texts titles;
        for (const auto& message : std::exchange(desk_.Dialogs().messages, {}))
            titles.push_back(message.title);
        return titles;
    }

    support::TestDesk desk_;
    support::TestDesk::Group element_;
    int refreshes_ = 0;   ///< Runs of the command that draws the layout anew.
    int redraws_ = 0;     ///< Of the view.
    std::string status_;  ///< Texts of the status bar.

private:
    static desk::DeskOptions WindowOptions(PageStory& story) {
        const auto parent = [&story]() -> QWidget* { return story.sheet_.get(); };
        desk::DeskOptions options;
        options.window.newObjectDialog = [&story, parent] {
            return std::make_shared<desk::ObjectDialog>(parent, story.desk_.Folder());
        };
        options.window.newSymbolDialog = [&story, parent] {
            return std::make_shared<desk::SymbolDialog>(story.desk_.Host(), parent);
        };
        options.listeners.refresh = [&story] { ++story.redraws_; };
        options.listeners.statusText = [&story](std::int32_t, const std::string& text) {
            story.status_ += text;
        };
        options.expressionEditor = desk::ExpressionEditor(parent, "en_US");
        return options;
    }

    std::shared_ptr<gazetteer::GazetteerPropertyPage> page_;
    std::unique_ptr<desk::PropertySheet> sheet_;
    gazetteer::frmGazetteerPropertyPage* form_ = nullptr;
};

}  // namespace page_test

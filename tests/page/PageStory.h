#pragma once

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "desk/window/PropertySheet.h"
#include "page/GazetteerPropertyPage.h"
#include "page/SetDump.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/TestDesk.h"

namespace page_test {

/// A user at the property page of one gazetteer: the real page in the real sheet on the real desk,
/// with the desk's own object, symbol and expression dialogs. Message boxes are recorded.
class PageStory : public testing::Test {
public:
    using Rows = support::TestDesk::Rows;

    PageStory();
    ~PageStory() override;

    /// A new element with this table, or with bare defaults for an empty path, and the page on it.
    void Open(const std::string& table, double width = 4, double height = 3);
    /// The page on the element as it is now, in a sheet of its own.
    void OpenSheet();
    void CloseSheet();

    gazetteer::frmGazetteerPropertyPage& Form() const { return *form_; }
    gazetteer::GazetteerPropertyPage& Page() const { return *page_; }

    template <class T = QWidget>
    T& Control(const QString& name) const {
        auto* control = Form().findChild<T*>(name);
        if (control == nullptr) throw std::runtime_error("no control " + name.toStdString());
        return *control;
    }

    // What a user does.

    /// Brings the tab of a control to the front.
    void Reveal(const QString& control) const;
    void Click(const QString& control) const;
    /// Replaces the text of a text box.
    void Type(const QString& control, const QString& text) const;
    void Choose(const QString& list, const QString& entry) const;
    void SelectRow(const QString& list, int row) const;
    /// Presses a button of the sheet: "OK", "Apply", "Cancel".
    void Press(const QString& button) const;

    // What comes of it.

    std::vector<std::string> RowsOf(const QString& list) const;
    host::Ref<host::IHostPropertySet> Stored() { return desk_.Properties(element_); }
    host::Ref<host::IHostPropertySet> Working() const { return Form().GazetteerProperties(); }
    host::Variant Value(const std::string& key) const { return Working()->Item(key); }
    host::Variant ColumnValue(const std::string& column, const std::string& key) const;
    std::string Text(const std::string& key) const { return std::get<std::string>(Value(key)); }
    /// Texts of the listing column as they are drawn, from the top.
    std::vector<std::string> DrawnListings();
    std::vector<std::string> Titles() const;

    support::TestDesk desk_;
    support::TestDesk::Group element_;

private:
    static desk::DeskOptions WindowOptions(PageStory& story);
    void RefreshLayout();

    std::shared_ptr<gazetteer::GazetteerPropertyPage> page_;
    std::unique_ptr<desk::PropertySheet> sheet_;
    gazetteer::frmGazetteerPropertyPage* form_ = nullptr;
};

}  // namespace page_test

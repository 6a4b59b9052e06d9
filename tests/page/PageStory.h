#pragma once

#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "desk/window/PropertySheet.h"
#include "page/GazetteerPropertyPage.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Modal.h"
#include "support/SetDump.h"
#include "support/TestDesk.h"
#include "support/Widgets.h"

namespace page_test {

using Texts = std::vector<std::string>;
using support::Dump;
using support::ObjectsIn;
using support::TestDesk;

/// A user at the property page of one gazetteer: the real page in the real sheet on the real desk,
/// with the desk's own object, symbol and expression dialogs. Message boxes are recorded.
class PageStory : public testing::Test {
public:
    PageStory();
    ~PageStory() override;

    /// A new element of this width with four listings of Oak St (twice), Elm St and Ash St, and the
    /// page on it.
    void Open(double width = 4);
    /// The page on the element as it is now, in a sheet of its own.
    void OpenSheet();
    void CloseSheet();
    /// Works with a book in which the template "Map sheet" of the section "Maps", which starts on
    /// page 5, has the map series frame "Main map".
    void UseBook();
    /// Makes the element's link to that frame by hand, by way of a section of this key.
    void StoreLink(const std::string& section);

    gazetteer::frmGazetteerPropertyPage& Form() const { return *form_; }
    gazetteer::GazetteerPropertyPage& Page() const { return *page_; }
    template <class T = QWidget>
    T& Control(const QString& name) const {
        return support::Part<T>(Form(), qPrintable(name));
    }

    // What a user does.

    /// Brings the tab of a control to the front.
    void Reveal(const QString& control) const;
    void Click(const QString& control) const;
    /// Replaces the text of a text box.
    void Type(const QString& control, const QString& text) const;
    void Choose(const QString& list, const QString& entry) const;
    void SelectRow(const QString& list, int row) const;
    void Press(QDialogButtonBox::StandardButton which) const;
    void AddColumn(const std::string& name);
    /// Picks a table of the desk's folder in the host's dialog.
    void PickDatabase(const std::string& path) const;
    void LinkToMainMap() const;

    // What comes of it.

    Texts RowsOf(const QString& list) const;
    host::Ref<host::IHostPropertySet> Stored() { return desk_.Properties(element_); }
    host::Ref<host::IHostPropertySet> Working() const { return Form().GazetteerProperties(); }
    host::Variant Value(const std::string& key) const { return Working()->Item(key); }
    host::Variant ColumnValue(const std::string& column, const std::string& key) const;
    /// What the gazetteer, or else its column "Listing", holds under a key.
    host::Variant Held(const std::string& key) const;
    /// Texts of the listing column as they are drawn, from the top.
    Texts DrawnListings();
    bool IsDraft() { return host::As<host::IHostFrameElement>(element_)->Draft(); }
    /// The titles of the messages that nobody asked for yet.
    Texts Told();

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

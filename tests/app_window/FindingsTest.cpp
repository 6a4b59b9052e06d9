#include <QAbstractButton>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QRadioButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <filesystem>
#include <set>

#include "app/document/FindFindings.h"
#include "app/document/SettingsEdit.h"
#include "app/window/LengthBox.h"
#include "app_window/WindowStory.h"
#include "host/Application.h"
#include "support/FindingCases.h"

namespace {

class Findings : public window_test::WindowStory {
public:
    /// A document from a table of the cases, with these settings, opened as one on disk.
    void OpenWith(const std::string& document, const std::vector<std::string>& settings,
                  const std::string& book = {}) {
        app::NewDocumentOptions options;
        options.listingDatabase = folder_.File(document + ".dbf");
        options.book = book;
        options.pageSize = support::kFindingPage;
        Session().StartNew(options, true);
        const std::string path = folder_.File(document + ".json");
        Session().SaveTo(path);
        support::TakeFields(folder_);
        Set({"Typesetting=none"});  // Headings find no room by the plain rules alone.
        Set(settings);
        Session().Save();
        Open(path);
    }
    void Set(const std::vector<std::string>& settings) {
        app::SettingsEdit edit(Session().Document());
        for (const auto& setting : settings) edit.Set(setting);
        edit.StoreWithoutWarnings();
    }
    void ShowList() {
        auto& dock = Find<QDockWidget>("findingsDock");
        if (dock.isHidden()) dock.toggleViewAction()->trigger();
    }
    QTreeWidget& List() const { return Find<QTreeWidget>("findingList"); }
    std::vector<QTreeWidgetItem*> Rows() const {
        std::vector<QTreeWidgetItem*> rows;
        for (QTreeWidgetItemIterator row(&List()); *row != nullptr; ++row) rows.push_back(*row);
        return rows;
    }
    QTreeWidgetItem* Row(const char* part) const {
        for (auto* row : Rows())
            if (row->parent() != nullptr && row->text(0).contains(part)) return row;
        return nullptr;
    }
    bool Lists(const char* part) const { return Row(part) != nullptr; }
    std::vector<app::PageMark> CurrentMarks() const {
        auto marks = window_->View().Marks();
        std::erase_if(marks, [](const auto& mark) { return !mark.current; });
        return marks;
    }
    /// The first text of the row that is marked.
    QString Marked(const app::PageMark& mark) const {
        const auto display = Session().Host().NewApplication()->Document()->ActiveView()->Display();
        const double height = Session().Document().TheDesk().CurrentDocument().pageHeight;
        const auto box = Session().Host().NewEnvelope();
        for (const auto& row :
             support::TestDesk::Members(*Session().Document().Gazetteer(), "ROWGROUP")) {
            row->MeasureBounds(display, box);
            if (QRectF(box->XMin(), height - box->YMax(), box->Width(), box->Height())
                    .contains(mark.box.center()))
                return QString::fromStdString(support::TestDesk::CellText(*row, 0));
        }
        return "no row";
    }
};

TEST_F(Findings, AreListedAndLeadToTheirPlaces) {
    support::WriteFindingTables(folder_);
    for (const auto& [document, settings, kind, part, keys] : support::kFindingCases) {
        SCOPED_TRACE(std::string(kind) + ' ' + part);
        support::WriteFindingTables(folder_);
        OpenWith(document, settings);
        ShowList();
        // The same sentences as those of a check, in the same order.
        std::vector<std::string> listed;
        for (const auto* row : Rows())
            if (row->parent() != nullptr && row->parent()->parent() == nullptr)
                listed.push_back(row->text(0).toStdString());
        EXPECT_EQ(listed, app::FindFindings(Session().Document(), app::WindowUnit()).Sentences());
        auto* const row = Row(part);
        ASSERT_NE(row, nullptr);

        List().setCurrentItem(row);
        const auto marks = CurrentMarks();
        static const std::set<std::string> kNowhere{"no-place", "overlap", "table-fault"};
        const bool ofColumn = row->text(1).isEmpty() && std::string(kind) != "empty-value";
        if (ofColumn && !kNowhere.contains(kind)) {
            EXPECT_FALSE(marks.empty()) << "the column";
            EXPECT_TRUE(Action("deselect").isEnabled());
        } else if (!kNowhere.contains(kind)) {
            ASSERT_FALSE(marks.empty());
            const QString marked = Marked(marks.back()).remove(QChar(0x2e)).simplified();
            EXPECT_TRUE(marked.startsWith(row->text(1).left(5))) << marked.toStdString();
            EXPECT_EQ(marked.isEmpty(), row->text(1).isEmpty());
        }
    }
}

TEST_F(Findings, AreThoseOfTheDocumentAsItIsNow) {
    support::WriteFindingTables(folder_);
    OpenWith("odd", {"Listing.ColumnFontSymbol=No Such Font,8"});
    ShowList();
    EXPECT_TRUE(Lists("is not installed"));
    Set({"Listing.ColumnFontSymbol=Liberation Sans,8"});
    Do("refresh");
    EXPECT_FALSE(Lists("is not installed"));
    // A font that was missed before is missed again, also in another document, and without a run.
    std::filesystem::remove(folder_.File("long.dbf"));
    const auto gone = [this] {
        support::WriteFindingTables(folder_);
        OpenWith("long", {"Listing.ColumnFontSymbol=No Such Font,8"});
        std::filesystem::remove(folder_.File("long.dbf"));
        Open(folder_.File("long.json"));
    };
    gone();
    EXPECT_TRUE(Lists("is not installed"));
    EXPECT_TRUE(Lists("long.dbf")) << "a reason is listed, too";
    support::WriteFindingTables(folder_);
    Make(Table("names.dbf", 10));
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(List().isVisible());
}

TEST_F(Findings, AreCopiedCountedAndShownFromTheNotice) {
    support::WriteFindingTables(folder_);
    OpenWith("long", {"SamplePage=true"});
    auto& show = Find<QAbstractButton>("showFindings");
    ASSERT_TRUE(show.isVisible());
    EXPECT_TRUE(Find<QLabel>("noticeText").text().contains("found no place"));
    Activate();
    show.click();
    EXPECT_TRUE(List().isVisible());
    EXPECT_FALSE(show.isVisible()) << "the list tells it";
    auto* const rest = Row("in all");
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(rest->parent()->childCount(), 6);
    EXPECT_GT(rest->childCount(), 80) << "those that a check only counts";

    List().setCurrentItem(rest->parent()->child(0));
    rest->parent()->child(1)->setSelected(true);
    QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              rest->parent()->child(0)->text(0) + '\n' + rest->parent()->child(1)->text(0));
    // Of settings, Enter opens the properties.
    support::WhenModal([](QWidget& sheet) { Press(sheet, "Cancel"); });
    QTest::keyClick(&List(), Qt::Key_Return);
}

TEST_F(Findings, OfOldResultsAreGoneWhenTheyAreMadeAnew) {
    MakeSaved(Table("names.dbf", 20), "names.json");
    Table("names.dbf", 25);
    Open(folder_.File("names.json"));
    ShowList();
    EXPECT_NE(Row("has changed since"), nullptr);
    EXPECT_EQ(DrawnListings().size(), 20U);
    Do("refresh");
    EXPECT_EQ(Row("has changed since"), nullptr);
    EXPECT_EQ(DrawnListings().size(), 25U);
    EXPECT_TRUE(window_->isWindowModified());
    // The property page runs the gazetteer, too.
    Table("names.dbf", 30);
    InSheet([](QWidget& sheet) { support::Part<QRadioButton>(sheet, "OptSortOrder_1").click(); },
            "OK");
    EXPECT_EQ(Row("has changed since"), nullptr);
    EXPECT_EQ(DrawnListings().size(), 30U);
    Do("undo");
    EXPECT_NE(Row("has changed since"), nullptr) << "with the results before";
}

}  // namespace

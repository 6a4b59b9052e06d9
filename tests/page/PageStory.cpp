#include "page/PageStory.h"

#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <filesystem>

#include "desk/window/ExpressionEditor.h"
#include "desk/window/ObjectDialog.h"
#include "desk/window/ObjectSet.h"
#include "desk/window/SymbolDialog.h"
#include "manager/CVNGazetteerManager.h"
#include "model/Keys.h"

namespace page_test {

PageStory::PageStory() : desk_(WindowOptions(*this)) {
    desk_.TheDesk().Commands().Add("CVNLayoutsCmds.RefreshLayout", [this] { RefreshLayout(); });
}

PageStory::~PageStory() {
    CloseSheet();
}

desk::DeskOptions PageStory::WindowOptions(PageStory& story) {
    const auto parent = [&story]() -> QWidget* { return story.sheet_.get(); };
    desk::DeskOptions options;
    options.window.newObjectDialog = [&story, parent] {
        return std::make_shared<desk::ObjectDialog>(parent, story.desk_.Folder());
    };
    options.window.newSymbolDialog = [&story, parent] {
        return std::make_shared<desk::SymbolDialog>(story.desk_.Host(), parent);
    };
    options.expressionEditor = desk::ExpressionEditor(parent, "en_US");
    return options;
}

void PageStory::Open(double width) {
    const auto table =
        desk_.ListingTable({{"Oak St", "3"}, {"Elm St", "1"}, {"Oak St", "5"}, {"Ash St", "2"}});
    element_ = desk_.NewGazetteer(table, width, 3);
    OpenSheet();
}

void PageStory::OpenSheet() {
    CloseSheet();
    page_ = std::make_shared<gazetteer::GazetteerPropertyPage>(desk_.HostRef());
    sheet_ = std::make_unique<desk::PropertySheet>(
        std::vector<host::Ref<host::IComPropertyPage>>{page_},
        std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{element_}),
        nullptr);
    sheet_->show();
    QApplication::processEvents();
    form_ = sheet_->findChild<gazetteer::frmGazetteerPropertyPage*>();
    ASSERT_NE(form_, nullptr);
    ASSERT_TRUE(form_->IsFilled());
}

void PageStory::CloseSheet() {
    form_ = nullptr;
    if (sheet_) sheet_->close();
    sheet_.reset();
    page_.reset();
    QApplication::processEvents();
}

void PageStory::UseBook() {
    desk_.UseBook(R"({"currentTemplate": "index", "books": [{"key": "atlas", "sections": [
        {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["sheet$1", "sheet$2"],
         "templates": [{"key": "sheet", "name": "Map sheet", "layout": [
           {"kind": "mapFrame", "name": "Main map", "series": {"indexLayer": "sheets.dbf",
            "firstPage": 1, "grids": []}}]}]},
        {"key": "back", "name": "Back matter", "startPage": 40, "pages": ["index$1"],
         "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})",
                  {{"REGION"}, {{"North"}, {"East"}, {"South"}, {"West"}, {"Centre"}}});
}

void PageStory::StoreLink(const std::string& section) {
    Stored()->SetItem("LinkToMapSeries", true);
    Stored()->SetItem("MapSeriesSectionKey", section);
    Stored()->SetItem("MapSeriesTemplateKey", std::string("sheet"));
    Stored()->SetItem("MapSeriesFrameName", std::string("Main map"));
}

void PageStory::RefreshLayout() {
    gazetteer::CVNGazetteerManager manager(desk_.HostRef());
    manager.SetIndexElement(element_);
    if (manager.CanDraw() && !IsDraft()) manager.SetIndexToPageNumber(manager.DefaultPage());
}

void PageStory::Reveal(const QString& control) const {
    for (QWidget* widget = &Control(control); widget != nullptr; widget = widget->parentWidget()) {
        auto* stack = widget->parentWidget();
        auto* tabs = stack == nullptr ? nullptr : qobject_cast<QTabWidget*>(stack->parentWidget());
        if (tabs != nullptr && tabs->indexOf(widget) >= 0) tabs->setCurrentWidget(widget);
    }
    QApplication::processEvents();
}

void PageStory::Click(const QString& control) const {
    Reveal(control);
    auto& button = Control<QAbstractButton>(control);
    ASSERT_TRUE(button.isVisible() && button.isEnabled()) << control.toStdString();
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
}

void PageStory::Type(const QString& control, const QString& text) const {
    Reveal(control);
    auto& box = Control<QLineEdit>(control);
    ASSERT_TRUE(box.isVisible() && box.isEnabled()) << control.toStdString();
    support::Retype(box, text);
}

void PageStory::Choose(const QString& list, const QString& entry) const {
    Reveal(list);
    auto& box = Control<QComboBox>(list);
    const int wanted = box.findText(entry);
    ASSERT_GE(wanted, 0) << entry.toStdString();
    box.setFocus();
    // Through the open list, so that no entry on the way is chosen.
    QTest::keyClick(&box, Qt::Key_Space);
    box.view()->setCurrentIndex(box.model()->index(wanted, 0));
    QTest::keyClick(box.view(), Qt::Key_Return);
    ASSERT_EQ(box.currentIndex(), wanted);
}

void PageStory::SelectRow(const QString& list, int row) const {
    Reveal(list);
    auto& rows = Control<QListWidget>(list);
    const QRect place = rows.visualItemRect(rows.item(row));
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place.center());
    ASSERT_EQ(rows.currentRow(), row);
}

void PageStory::Press(QDialogButtonBox::StandardButton which) const {
    auto& button = support::EndButton(*sheet_, which);
    ASSERT_TRUE(button.isEnabled()) << button.text().toStdString();
    QTest::mouseClick(&button, Qt::LeftButton);
    QApplication::processEvents();
}

void PageStory::AddColumn(const std::string& name) {
    desk_.Dialogs().input = name;
    Click("cmdAdd");
}

void PageStory::PickDatabase(const std::string& path) const {
    support::WhenModal([name = std::filesystem::path(path).filename()](QWidget& dialog) {
        auto& box = support::Part<QLineEdit>(dialog, "name");
        support::Retype(box, QString::fromStdString(name));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Click("cmdSetNewFileName");
}

void PageStory::LinkToMainMap() const {
    Choose("cmbSection", "Maps");
    Choose("CmbTemplate", "Map sheet");
    Choose("cmbMapSeriesFrame", "Main map");
}

Texts PageStory::RowsOf(const QString& list) const {
    Texts texts;
    for (const QString& row : support::RowTexts(Control<QListWidget>(list)))
        texts.push_back(row.toStdString());
    return texts;
}

host::Variant PageStory::ColumnValue(const std::string& column, const std::string& key) const {
    return TestDesk::SetIn(*TestDesk::SetIn(*Working(), "ColumnsProperties"), column)->Item(key);
}

host::Variant PageStory::Held(const std::string& key) const {
    return gazetteer::FindColumnKey(key) == nullptr ? Value(key) : ColumnValue("Listing", key);
}

Texts PageStory::DrawnListings() {
    Texts texts;
    for (const auto& row : TestDesk::Members(*element_, "ROWGROUP"))
        texts.push_back(TestDesk::CellText(*row, 0));
    return texts;
}

Texts PageStory::Told() {
    Texts titles;
    for (const auto& message : std::exchange(desk_.Dialogs().messages, {}))
        titles.push_back(message.title);
    return titles;
}

}  // namespace page_test

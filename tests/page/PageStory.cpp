#include "page/PageStory.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include "desk/window/ExpressionEditor.h"
#include "desk/window/ObjectDialog.h"
#include "desk/window/ObjectSet.h"
#include "desk/window/SymbolDialog.h"
#include "manager/CVNGazetteerManager.h"
#include "model/GeneralFunctions.h"

namespace page_test {

using support::TestDesk;

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

void PageStory::Open(const std::string& table, double width, double height) {
    if (table.empty()) {
        element_ = desk_.Host().NewGroupElement();
        auto frame = desk_.Host().NewEnvelope();
        frame->SetCoords(1, 1, 1 + width, 1 + height);
        element_->SetGeometry(frame);
        gazetteer::SetGazetteerProperties(desk_.Host(), element_,
                                          gazetteer::NewGazetteerProperties(desk_.Host()));
    } else {
        element_ = desk_.NewGazetteer(table, width, height);
    }
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

void PageStory::RefreshLayout() {
    gazetteer::CVNGazetteerManager manager(desk_.HostRef());
    manager.SetIndexElement(element_);
    const bool draft = host::As<host::IHostFrameElement>(element_)->Draft();
    if (manager.CanDraw() && !draft) manager.SetIndexToPageNumber(manager.DefaultPage());
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
    box.setFocus();
    box.selectAll();
    if (text.isEmpty())
        QTest::keyClick(&box, Qt::Key_Delete);
    else
        QTest::keyClicks(&box, text);
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

void PageStory::Press(const QString& button) const {
    for (auto* candidate : sheet_->findChildren<QPushButton*>())
        if (candidate->text().remove('&') == button &&
            qobject_cast<QDialogButtonBox*>(candidate->parentWidget())) {
            ASSERT_TRUE(candidate->isEnabled()) << button.toStdString();
            QTest::mouseClick(candidate, Qt::LeftButton);
            QApplication::processEvents();
            return;
        }
    FAIL() << "no button " << button.toStdString();
}

std::vector<std::string> PageStory::RowsOf(const QString& list) const {
    std::vector<std::string> texts;
    const auto& rows = Control<QListWidget>(list);
    for (int row = 0; row < rows.count(); ++row)
        texts.push_back(rows.item(row)->text().toStdString());
    return texts;
}

host::Variant PageStory::ColumnValue(const std::string& column, const std::string& key) const {
    return TestDesk::SetIn(*TestDesk::SetIn(*Working(), "ColumnsProperties"), column)->Item(key);
}

std::vector<std::string> PageStory::DrawnListings() {
    std::vector<std::string> texts;
    for (const auto& row : TestDesk::Members(*element_, "ROWGROUP"))
        texts.push_back(TestDesk::CellText(*row, 0));
    return texts;
}

std::vector<std::string> PageStory::Titles() const {
    std::vector<std::string> titles;
    for (const auto& message : const_cast<TestDesk&>(desk_).Dialogs().messages)
        titles.push_back(message.title);
    return titles;
}

}  // namespace page_test

// The form as it is described: which controls stand where, and that a keyboard reaches them.

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <map>
#include <set>

#include "page/BareForm.h"
#include "page/FormControlTable.h"

namespace page_test {
namespace {

std::string TextOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->text().toStdString();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->text().toStdString();
    if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        return line->text().toStdString();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&control))
        return text->toPlainText().toStdString();
    return {};
}

// "Index Layout" for what stands on that tab, also inside a frame.
std::string TabOf(const QWidget& control) {
    const QWidget* page = &control;
    while (page != nullptr && qobject_cast<QStackedWidget*>(page->parentWidget()) == nullptr)
        page = page->parentWidget();
    if (page == nullptr) return "no tab";
    const auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
    return tabs->tabText(tabs->indexOf(page)).toStdString();
}

bool IsReadOnly(const QWidget& control) {
    return control.property("readOnly").toBool();
}

std::string FlagsOf(const QWidget& control) {
    std::string flags;
    if (control.font().bold()) flags += 'b';
    if (control.isHidden()) flags += 'h';
    if (!control.isEnabledTo(control.parentWidget())) flags += 'd';
    if (IsReadOnly(control)) flags += 'r';
    return flags;
}

std::string Described(const QWidget& control) {
    return TabOf(control) + ": " + control.metaObject()->className() + ' ' +
           control.objectName().toStdString() + " \"" + TextOf(control) + "\" " + FlagsOf(control);
}

class Form : public BareForm {
public:
    const QWidget& Control(const char* name) const {
        const auto* control = form_.findChild<QWidget*>(name);
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    void Activate() {
        form_.show();
        form_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    }
    static bool IsTabStop(const QWidget& control) {
        const auto* option = qobject_cast<const QRadioButton*>(&control);
        if (option != nullptr && !option->isChecked()) return false;
        return (control.focusPolicy() & Qt::TabFocus) && control.isVisible() && control.isEnabled();
    }
};

TEST_F(Form, EveryControlStandsOnItsTab) {
    for (const ExpectedTab& tab : ExpectedTabs())
        for (const ExpectedControl& expected : tab.controls)
            EXPECT_EQ(Described(Control(expected.name)),
                      std::string(tab.title) + ": " + expected.kind + ' ' + expected.name + " \"" +
                          expected.text + "\" " + expected.flags);
}

TEST_F(Form, HasNoOtherControls) {
    std::set<std::string> expected = {"Image2", "lblTitle", "SSTabGazetteerProperties"};
    for (const ExpectedTab& tab : ExpectedTabs())
        for (const ExpectedControl& control : tab.controls) expected.insert(control.name);
    for (const QWidget* control : form_.findChildren<QWidget*>()) {
        const std::string name = control->objectName().toStdString();
        const QWidget* owner = control->parentWidget();
        const bool isPartOfTabs = qobject_cast<const QStackedWidget*>(owner) != nullptr ||
                                  qobject_cast<const QTabBar*>(owner) != nullptr;
        if (name.empty() || name.starts_with("qt_") || isPartOfTabs) continue;
        EXPECT_TRUE(expected.contains(name)) << name;
    }
}

TEST_F(Form, HasATitleAndItsTabsInOrder) {
    EXPECT_EQ(TextOf(Control("lblTitle")), "Gazetteer Properties");
    EXPECT_EQ(FlagsOf(Control("lblTitle")), "b");
    EXPECT_EQ(form_.findChild<QLabel*>("Image2")->pixmap().deviceIndependentSize(), QSizeF(16, 16));
    std::map<std::string, std::vector<std::string>> shown, expected;
    for (const ExpectedTab& tab : ExpectedTabs()) expected[tab.tabs].emplace_back(tab.title);
    for (const QTabWidget* tabs : form_.findChildren<QTabWidget*>())
        for (int i = 0; i < tabs->count(); ++i)
            shown[tabs->objectName().toStdString()].push_back(tabs->tabText(i).toStdString());
    EXPECT_EQ(shown, expected);
}

TEST_F(Form, OnlyThePicturedButtonHasAToolTip) {
    for (const QWidget* control : form_.findChildren<QWidget*>())
        EXPECT_EQ(control->toolTip().toStdString(),
                  control->objectName() == "cmdSetNewFileName" ? "Set new Grid Layer" : "")
            << control->objectName().toStdString();
    const auto* button = form_.findChild<QAbstractButton*>("cmdSetNewFileName");
    EXPECT_EQ(button->iconSize(), QSize(19, 18));
    EXPECT_FALSE(button->icon().pixmap(19, 18).isNull());
}

// Bold texts follow the form's font in all but their weight.
TEST_F(Form, BoldTextsHaveTheFontOfTheForm) {
    QFont other("Liberation Serif", 17);
    form_.setFont(other);
    other.setBold(true);
    for (const QWidget* control : form_.findChildren<QWidget*>())
        EXPECT_TRUE(!control->font().bold() || control->font() == other)
            << control->objectName().toStdString();
}

TEST_F(Form, ListsOfferNoFreeTextAndAreEmpty) {
    for (const QComboBox* list : form_.findChildren<QComboBox*>())
        EXPECT_TRUE(!list->isEditable() && list->count() == 0) << list->objectName().toStdString();
    for (const QListWidget* list : form_.findChildren<QListWidget*>())
        EXPECT_TRUE(list->selectionMode() == QAbstractItemView::SingleSelection &&
                    list->count() == 0)
            << list->objectName().toStdString();
}

TEST_F(Form, ChoicesExcludeEachOtherWithinTheirPair) {
    for (const char* pair :
         {"optColumnSource", "optCombineListings", "OptDisplayDirection", "OptSortOrder"}) {
        auto* first = form_.findChild<QAbstractButton*>(QString(pair) + "_0");
        auto* second = form_.findChild<QAbstractButton*>(QString(pair) + "_1");
        first->setChecked(true);
        second->setChecked(true);
        EXPECT_FALSE(first->isChecked()) << pair;
        first->setChecked(true);
    }
    for (const char* first :
         {"optColumnSource_0", "optCombineListings_0", "OptDisplayDirection_0", "OptSortOrder_0"})
        EXPECT_TRUE(form_.findChild<QAbstractButton*>(first)->isChecked()) << first;
    const std::map<std::string, std::string> frames = {{"OptDisplayDirection_0", "Frame2"},
                                                       {"OptSortOrder_1", "Frame1"},
                                                       {"optCombineListings_1", "Frame3"},
                                                       {"txtCombineDelimeter", "Frame3"}};
    for (const auto& [control, frame] : frames)
        EXPECT_EQ(Control(control.c_str()).parentWidget()->objectName().toStdString(), frame);
}

TEST_F(Form, LabelsBelongToTheirFields) {
    const std::map<std::string, std::string> buddies = {{"Label11", "txtDatabaseFile"},
                                                        {"Label3", "cmbSection"},
                                                        {"Label7", "CmbTemplate"},
                                                        {"Label10", "cmbMapSeriesFrame"},
                                                        {"Label9", "lstListingColumns"},
                                                        {"Label21", "SSTabColumnProps"},
                                                        {"lblExpression", "txtExpression"},
                                                        {"Label16", "picColumnFont"},
                                                        {"Label31", "cmbAlignment"},
                                                        {"Label17", "picBackgroundSymbol"},
                                                        {"Label22", "picAlternateBackgroundSymbol"},
                                                        {"Label23", "txtColumnWidth"},
                                                        {"Label26", "txtTopMargin"},
                                                        {"Label25", "txtBottomMargin"},
                                                        {"Label27", "txtLeftMargin"},
                                                        {"Label28", "txtRightMargin"},
                                                        {"Label2", "txtBreakSpacing"},
                                                        {"Label29", "picTitleFont"},
                                                        {"Label30", "picTitleBackground"},
                                                        {"Label34", "cmbTitleAlignment"},
                                                        {"Label1_0", "txtGroupSpacing"},
                                                        {"Label1_1", "txtDefaultPage"}};
    std::map<std::string, std::string> found;
    for (const QLabel* label : form_.findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            found[label->objectName().toStdString()] = label->buddy()->objectName().toStdString();
    EXPECT_EQ(found, buddies);
}

TEST_F(Form, ColumnFontLabelsStandAtTheRight) {
    for (const char* name : {"Label16", "Label31"})
        EXPECT_TRUE(form_.findChild<QLabel*>(name)->alignment() & Qt::AlignRight) << name;
}

// What a user meets who presses Tab on each tab, from its first control on. Of a pair of options
// Tab stops at the chosen one; the arrow keys choose the other.
TEST_F(Form, TabKeyGoesInReadingOrder) {
    Activate();
    for (auto* option : form_.findChildren<QRadioButton*>())
        if (option->objectName().endsWith("_0")) option->setChecked(true);
    for (const ExpectedTab& tab : ExpectedTabs()) {
        ShowTab(tab.tabs, tab.title);
        std::vector<std::string> expected;
        for (const ExpectedControl& control : tab.controls)
            if (IsTabStop(Control(control.name))) expected.emplace_back(control.name);
        form_.findChild<QWidget*>(QString::fromStdString(expected.front()))->setFocus();
        std::vector<std::string> met = {expected.front()};
        while (met.size() < expected.size()) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QWidget* reached = QApplication::focusWidget();
            if (qobject_cast<QTabBar*>(reached) != nullptr) reached = reached->parentWidget();
            met.push_back(reached->objectName().toStdString());
        }
        EXPECT_EQ(met, expected) << tab.title;
    }
}

TEST_F(Form, OptionsAreChosenByTheKeyboard) {
    Activate();
    ShowTab("SSTabGazetteerProperties", "Display/Sort Order");
    auto& ascending = *form_.findChild<QRadioButton*>("OptSortOrder_0");
    ascending.setChecked(true);
    ascending.setFocus();
    QTest::keyClick(&ascending, Qt::Key_Right);
    EXPECT_TRUE(form_.findChild<QRadioButton*>("OptSortOrder_1")->isChecked());
}

TEST_F(Form, TabsAreChangedByTheKeyboard) {
    Activate();
    ShowTab("SSTabGazetteerProperties", "Index Layout");
    for (const char* name : {"SSTabColumnProps", "SSTabGazetteerProperties"}) {
        auto& tabs = *form_.findChild<QTabWidget*>(name);
        tabs.setCurrentIndex(0);
        tabs.setFocus();
        for (int i = 1; i < tabs.count(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
            EXPECT_EQ(tabs.currentIndex(), i) << name;
        }
    }
}

}  // namespace
}  // namespace page_test

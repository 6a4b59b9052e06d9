// The form as it is described: which controls stand where, and that a keyboard reaches them.

#include <QAbstractButton>
#include <QLabel>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>
#include <map>
#include <set>

#include "page/BareForm.h"

namespace page_test {
namespace {

struct Kind {
    const char* names;  ///< How the names of such controls begin.
    const char* className;
};

constexpr Kind kKinds[] = {
    {"txtExpression", "QPlainTextEdit"},
    {"Frame", "QFrame"},
    {"Label", "QLabel"},
    {"SSTab", "QTabWidget"},
    {"chk", "QCheckBox"},
    {"cmb", "QComboBox"},
    {"cmd", "QPushButton"},
    {"lbl", "QLabel"},
    {"lst", "QListWidget"},
    {"opt", "QRadioButton"},
    {"pic", "gazetteer::SymbolPreview"},
    {"txt", "QLineEdit"},
};

const Kind& KindOf(const std::string& control) {
    return *std::ranges::find_if(kKinds,
                                 [name = QString::fromStdString(control)](const Kind& kind) {
                                     return name.startsWith(kind.names, Qt::CaseInsensitive);
                                 });
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

std::string Described(const QWidget& control) {
    std::string flags;
    if (control.font().bold()) flags += 'b';
    if (control.isHidden()) flags += 'h';
    if (!control.isEnabledTo(control.parentWidget())) flags += 'd';
    if (control.property("readOnly").toBool()) flags += 'r';
    return TabOf(control) + ": " + control.metaObject()->className() + ' ' +
           control.objectName().toStdString() + ' ' + flags;
}

using Names = std::set<std::string>;

Names Without(const Names& all, const Names& known) {
    Names rest;
    std::ranges::set_difference(all, known, std::inserter(rest, rest.end()));
    return rest;
}

class Form : public BareForm {
public:
    // Of a pair of options Tab stops at the chosen one; the arrow keys choose the other.
    bool IsTabStop(const std::string& name) {
        const auto& control = Control(name);
        const auto* option = qobject_cast<const QRadioButton*>(&control);
        if (name.starts_with("pic") || (option != nullptr && !option->isChecked())) return false;
        return (control.focusPolicy() & Qt::TabFocus) && control.isVisible() && control.isEnabled();
    }
};

TEST_F(Form, EveryControlStandsOnItsTabAndNoOther) {
    Names expected = {"no tab: QLabel Image2 ", "no tab: QLabel lblTitle b",
                      "no tab: QTabWidget SSTabGazetteerProperties "};
    std::map<std::string, int> next;
    for (const ExpectedTab& tab : ExpectedTabs()) {
        const QString title = Control<QTabWidget>(tab.tabs).tabText(next[tab.tabs]++);
        EXPECT_EQ(title.toStdString(), tab.title);
        for (const auto& [name, flags] : tab.controls)
            expected.insert(std::string(tab.title) + ": " + KindOf(name).className + ' ' + name +
                            ' ' + flags);
    }
    Names found;
    for (const QWidget* control : form_.findChildren<QWidget*>()) {
        const QWidget* owner = control->parentWidget();
        const bool isPartOfTabs = qobject_cast<const QStackedWidget*>(owner) != nullptr ||
                                  qobject_cast<const QTabBar*>(owner) != nullptr;
        const QString name = control->objectName();
        if (!name.isEmpty() && !name.startsWith("qt_") && !isPartOfTabs)
            found.insert(Described(*control));
    }
    EXPECT_EQ(Without(expected, found), Names{}) << "missing";
    EXPECT_EQ(Without(found, expected), Names{}) << "not described";
}

// What is left unconnected by a slip of the pen keeps the form from being made.
TEST_F(Form, NoControlAndNoHandlerIsForgotten) {
    gazetteer::FormEvents events(form_, desk_.Host());
    for (const char* nowhere : {"cmdNowhere_Click", "lblTitle_Click", "SSTabColumnProps_Click"})
        EXPECT_THROW(events.Connect(nowhere, [] {}), host::Failure) << nowhere;
    EXPECT_THROW(events.RequireAllBut({}), host::Failure);
}

TEST_F(Form, HasItsPictures) {
    const QSize size(19, 18);
    EXPECT_EQ(Control<QLabel>("Image2").pixmap().deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_FALSE(Control<QAbstractButton>("cmdSetNewFileName").icon().pixmap(size).isNull());
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

TEST_F(Form, CaptionsBelongToTheFieldBehindThem) {
    for (const ExpectedTab& tab : ExpectedTabs()) {
        const QLabel* label = nullptr;
        for (const auto& [name, flags] : tab.controls) {
            auto& control = Control(name);
            const QLabel* before = std::exchange(label, qobject_cast<QLabel*>(&control));
            if (label == nullptr && before != nullptr && before->text().endsWith(':')) {
                EXPECT_EQ(before->buddy(), &control) << tab.title << ": " << name;
            }
        }
    }
}

// What a user meets who presses Tab on each tab, from its first control on.
TEST_F(Form, TabKeyGoesInReadingOrder) {
    form_.show();
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    for (auto* option : form_.findChildren<QRadioButton*>())
        if (option->objectName().endsWith("_0")) option->setChecked(true);
    for (const ExpectedTab& tab : ExpectedTabs()) {
        ShowTab(tab.tabs, tab.title);
        std::vector<std::string> expected;
        for (const ExpectedControl& control : tab.controls)
            if (IsTabStop(control.name)) expected.push_back(control.name);
        Control(expected.front()).setFocus();
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

}  // namespace
}  // namespace page_test

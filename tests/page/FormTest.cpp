// The form before any element is given to it, with its tabs open to the user: nothing is cut off,
// every control has a name and is reached by the keyboard.

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyleFactory>
#include <QTabBar>
#include <algorithm>
#include <map>
#include <set>

#include "page/SymbolPreview.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/TestDesk.h"
#include "support/Widgets.h"
#include "typesetting/TypesettingForm.h"

namespace page_test {
namespace {

template <class... Kinds>
bool IsOneOf(const QWidget& widget) {
    return ((qobject_cast<const Kinds*>(&widget) != nullptr) || ...);
}

// Those that need a caption or a name of their own.
bool IsField(const QWidget& widget) {
    return IsOneOf<QLineEdit, QComboBox, QListWidget, QPlainTextEdit, gazetteer::SymbolPreview>(
        widget);
}

bool IsBefore(const QRect& one, const QRect& other) {
    const bool inOneLine = one.bottom() >= other.top() && other.bottom() >= one.top();
    return inOneLine ? one.x() < other.x() : one.y() < other.y();
}

QRect PlaceIn(const QWidget& form, const QWidget& control) {
    return {control.mapTo(&form, QPoint()), control.size()};
}

/// What is on show: labels, buttons and fields, but not their parts.
std::vector<const QWidget*> ShownOn(const QWidget& form) {
    std::vector<const QWidget*> shown;
    for (const auto* widget : form.findChildren<const QWidget*>())
        if (widget->isVisible() && !widget->objectName().startsWith("qt_") &&
            (!widget->objectName().isEmpty() || IsOneOf<QLabel>(*widget)) &&
            (IsField(*widget) || IsOneOf<QLabel, QAbstractButton>(*widget)))
            shown.push_back(widget);
    return shown;
}

class Form : public testing::Test {
public:
    Form() {
        for (auto* tabs : form_.findChildren<QTabWidget*>()) tabs->setEnabled(true);
        form_.show();
    }

    template <class T = QWidget>
    T& Control(const char* name) {
        return support::Part<T>(form_, name);
    }
    QRect PlaceOf(const QWidget& control) const { return PlaceIn(form_, control); }
    /// Looks at the form with each tab on show, those of the column among them.
    void OnEachTab(const std::function<void()>& look) {
        auto& outer = Control<QTabWidget>("SSTabGazetteerProperties");
        auto& inner = Control<QTabWidget>("SSTabColumnProps");
        for (auto* tabs : {&outer, &inner}) {
            if (tabs == &inner) outer.setCurrentIndex(1);
            for (int i = 0; i < tabs->count(); ++i) {
                SCOPED_TRACE(tabs->tabText(i).toStdString());
                tabs->setCurrentIndex(i);
                QApplication::processEvents();
                look();
            }
        }
    }
    std::vector<const QWidget*> Shown() const { return ShownOn(form_); }

    support::TestDesk desk_;
    gazetteer::frmGazetteerPropertyPage form_{desk_.HostRef()};
};

TEST_F(Form, HidesWhatHasNoUseYet) {
    std::set<std::string> hidden;
    for (const auto* control : form_.findChildren<QWidget*>())
        if (control->isHidden() && (IsOneOf<QLabel, QAbstractButton>(*control)))
            if (qobject_cast<QTabBar*>(control->parentWidget()) == nullptr)
                hidden.insert(control->objectName().toStdString());
    EXPECT_EQ(hidden,
              (std::set<std::string>{"Label14", "OptDisplayDirection_0", "OptDisplayDirection_1",
                                     "chkAutoRefreshListings", "chkMissingHeaders", "cmdRename"}));
    EXPECT_TRUE(Control<QLineEdit>("txtDatabaseFile").isReadOnly());
    EXPECT_TRUE(Control<QPlainTextEdit>("txtExpression").isReadOnly());
    EXPECT_EQ(Control<QLabel>("Image2").pixmap().deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_FALSE(Control<QAbstractButton>("cmdSetNewFileName").icon().isNull());
}

// What is left unconnected by a slip of the pen keeps the form from being made.
TEST_F(Form, NoControlAndNoHandlerIsForgotten) {
    gazetteer::FormEvents events(form_, desk_.Host());
    for (const char* nowhere : {"cmdNowhere_Click", "lblTitle_Click", "SSTabColumnProps_Click"})
        EXPECT_THROW(events.Connect(nowhere, [] {}), host::Failure) << nowhere;
    EXPECT_THROW(events.RequireAllBut({}), host::Failure);
}

TEST_F(Form, EveryControlHasANameAndEveryCaptionIsThatOfTheNextField) {
    OnEachTab([this] {
        std::set<const QWidget*> named;
        const auto shown = Shown();
        for (const QWidget* one : shown) {
            const auto* label = qobject_cast<const QLabel*>(one);
            const auto* button = qobject_cast<const QAbstractButton*>(one);
            if (!one->accessibleName().isEmpty() || (button && !button->text().isEmpty()))
                named.insert(one);
            if (label == nullptr || label->buddy() == nullptr) continue;
            named.insert(label->buddy());
            for (const QWidget* other : shown)
                EXPECT_FALSE(IsField(*other) && IsBefore(PlaceOf(*label), PlaceOf(*other)) &&
                             IsBefore(PlaceOf(*other), PlaceOf(*label->buddy())))
                    << label->text().toStdString();
        }
        for (const QWidget* one : shown)
            EXPECT_TRUE(named.contains(one) || qobject_cast<const QLabel*>(one) != nullptr)
                << one->objectName().toStdString();
    });
}

// What a user meets who presses Tab on each tab. Of a pair of options Tab stops at the chosen one;
// the arrow keys choose the other.
TEST_F(Form, TabKeyReachesEveryControlInReadingOrder) {
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
    for (auto* option : form_.findChildren<QRadioButton*>())
        if (option->objectName().endsWith("_0")) option->setChecked(true);
    auto& first = *Control<QTabWidget>("SSTabGazetteerProperties").tabBar();
    OnEachTab([&] {
        std::set<const QWidget*> missed;
        for (const QWidget* one : Shown()) {
            const auto* option = qobject_cast<const QRadioButton*>(one);
            if ((one->focusPolicy() & Qt::TabFocus) && one->isEnabled() &&
                (option == nullptr || option->isChecked()))
                missed.insert(one);
        }
        first.setFocus();
        QRect before = PlaceOf(first);
        for (int presses = 0; presses < 100; ++presses) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget& reached = *QApplication::focusWidget();
            if (&reached == &first) break;
            missed.erase(&reached);
            EXPECT_TRUE(IsBefore(before, PlaceOf(reached))) << reached.objectName().toStdString();
            before = PlaceOf(reached);
        }
        for (const QWidget* stop : missed) ADD_FAILURE() << stop->objectName().toStdString();
    });
}

// Style, family, and factors of the font's size and of the room of a letter.
using Look = std::tuple<std::string, std::string, double, double>;

constexpr double kDefaultPoints = 9;

class FormSize : public Form, public testing::WithParamInterface<Look> {
public:
    FormSize() { Give(form_); }

    /// The look of the test.
    void Give(QWidget& form) {
        const auto& [style, family, size, room] = GetParam();
        style_.reset(QStyleFactory::create(QString::fromStdString(style)));
        form.setStyle(style_.get());
        for (QWidget* part : form.findChildren<QWidget*>()) part->setStyle(style_.get());
        QFont font(QString::fromStdString(family));
        font.setPointSizeF(kDefaultPoints * size);
        font.setLetterSpacing(QFont::PercentageSpacing, 100 * room);
        form.setFont(font);
        QApplication::processEvents();
    }

private:
    std::unique_ptr<QStyle> style_;
};

// A text that wraps needs a height for its width; a text box shows five digits at least.
bool ShowsItsText(const QWidget& widget) {
    if (IsOneOf<QLineEdit>(widget))
        return widget.contentsRect().width() >= widget.fontMetrics().horizontalAdvance("0.125");
    const QSize needed = widget.minimumSizeHint();
    const int height = std::max(needed.height(), widget.heightForWidth(widget.width()));
    return widget.width() >= needed.width() && widget.height() >= height;
}

bool IsWhollyOnItsPage(const QWidget& widget) {
    for (const QWidget* outer = widget.parentWidget(); outer != nullptr && !outer->isWindow();
         outer = outer->parentWidget())
        if (!outer->rect().contains(QRect(widget.mapTo(outer, QPoint()), widget.size())))
            return false;
    return true;
}

TEST_P(FormSize, NothingIsCutOff) {
    for (auto* list : form_.findChildren<QListWidget*>())
        list->addItems({"Listing", "Page", "Grid", "Note"});
    QFont bold = form_.font();
    bold.setBold(true);
    OnEachTab([this, &bold] {
        const auto shown = Shown();
        for (const QWidget* control : shown) {
            SCOPED_TRACE(control->objectName().toStdString());
            EXPECT_TRUE(!control->font().bold() || control->font() == bold);
            EXPECT_TRUE(ShowsItsText(*control));
            EXPECT_TRUE(IsWhollyOnItsPage(*control));
            for (const QWidget* other : shown)
                EXPECT_TRUE(other == control || !PlaceOf(*control).intersects(PlaceOf(*other)))
                    << other->objectName().toStdString();
            const auto* list = qobject_cast<const QListWidget*>(control);
            EXPECT_TRUE(list == nullptr || list->verticalScrollBar()->maximum() == 0)
                << "it shows four rows";
        }
    });
    for (const QTabWidget* tabs : form_.findChildren<QTabWidget*>()) {
        const QTabBar& bar = *tabs->tabBar();
        for (int i = 0; i < bar.count(); ++i) {
            EXPECT_TRUE(bar.rect().contains(bar.tabRect(i))) << bar.tabText(i).toStdString();
            EXPECT_GE(bar.tabRect(i).width(), bar.fontMetrics().horizontalAdvance(bar.tabText(i)));
        }
        EXPECT_TRUE(tabs->rect().contains(bar.geometry()));
    }
}

// A mnemonic leads to one control.
TEST_P(FormSize, TheOtherPageIsSeenWholeAndEachControlHasALetter) {
    gazetteer::TypesettingForm form(desk_.HostRef());
    form.show();
    Give(form);
    std::map<QChar, QString> letters;
    const auto shown = ShownOn(form);
    for (const QWidget* control : shown) {
        const auto* label = qobject_cast<const QLabel*>(control);
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const QString text = label ? label->text() : button ? button->text() : QString();
        SCOPED_TRACE((control->objectName() + text).toStdString());
        EXPECT_TRUE(ShowsItsText(*control));
        EXPECT_TRUE(IsWhollyOnItsPage(*control));
        for (const QWidget* other : shown)
            EXPECT_TRUE(other == control ||
                        !PlaceIn(form, *control).intersects(PlaceIn(form, *other)));
        EXPECT_TRUE(label || button || !control->accessibleName().isEmpty());
        if (text.isEmpty()) continue;
        const auto mark = text.indexOf('&');
        ASSERT_GE(mark, 0);
        const QChar letter = text[mark + 1].toLower();
        EXPECT_EQ(letters[letter], QString()) << letter.toLatin1();
        letters[letter] = text;
    }
    EXPECT_GT(letters.size(), 15U);
    const auto& picture = support::Part<QWidget>(form, "samplePicture");
    EXPECT_GE(picture.height(), picture.minimumSizeHint().height());
    if (std::get<2>(GetParam()) > 1 || std::get<3>(GetParam()) > 1) return;
    EXPECT_LE(form.height(), form.screen()->availableSize().height() - 110);
}

INSTANTIATE_TEST_SUITE_P(Looks, FormSize,
                         testing::Values(Look{"fusion", "Liberation Sans", 1, 1},
                                         Look{"fusion", "DejaVu Sans", 1, 1},
                                         Look{"fusion", "Noto Sans", 1.5, 1},
                                         Look{"windows", "DejaVu Sans", 1.5, 1},
                                         Look{"fusion", "Liberation Sans", 2.2, 1},
                                         Look{"fusion", "DejaVu Sans", 1, 1.4}));

// It fits a sheet with its buttons on the screen, and is no wider than that needs. Below a least
// size, in twips, it does not shrink. Space that is left over goes to the lists.
TEST_F(Form, GrowsAndShrinksWithItsFontAndItsWindow) {
    form_.setFont(QFont("Liberation Sans", kDefaultPoints));
    const QSize before = form_.size();
    const QSize screen = form_.screen()->availableSize();
    EXPECT_LE(before.width(), screen.height() >= 760 ? 640 : screen.width() - 100);
    EXPECT_LE(before.height(), screen.height() - 110);
    form_.setFont(QFont("Liberation Sans", 14));
    EXPECT_TRUE(form_.width() > before.width() && form_.height() > before.height());
    form_.setFont(QFont("Liberation Sans", 4));
    const double twips = 1440.0 / form_.logicalDpiX();
    EXPECT_GE(form_.width() * twips, 120 + 6735 + 100);
    EXPECT_GE(form_.height() * twips, 6855 + 100);

    form_.setFont(QFont("Liberation Sans", kDefaultPoints));
    EXPECT_EQ(form_.size(), before);
    Control<QTabWidget>("SSTabGazetteerProperties").setCurrentIndex(1);
    QApplication::processEvents();
    const QWidget& list = Control("lstListingColumns");
    const int height = list.height();
    form_.resize(form_.width(), form_.height() + 200);
    QApplication::processEvents();
    EXPECT_EQ(list.height(), height + 200);
}

}  // namespace
}  // namespace page_test

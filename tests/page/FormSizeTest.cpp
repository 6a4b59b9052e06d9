// Nothing on the form is cut off, whatever its font, its style and the scale of the screen.

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTabBar>

#include "page/BareForm.h"
#include "page/FormControlTable.h"

namespace page_test {
namespace {

struct Look {
    const char* style;
    const char* family;
    double factor;       ///< Of the font's size.
    double width = 100;  ///< Of a letter and the space behind it, in percent.
};

std::ostream& operator<<(std::ostream& out, const Look& look) {
    return out << look.style << ", " << look.family << " times " << look.factor << ", "
               << look.width << "% wide";
}

constexpr double kDefaultPoints = 9;

class FormSize : public BareForm, public testing::WithParamInterface<Look> {
public:
    FormSize() { form_.show(); }

    void Wear() {
        const Look& look = GetParam();
        form_.setStyle(style_.get());
        for (QWidget* part : form_.findChildren<QWidget*>()) part->setStyle(style_.get());
        QFont font(look.family);
        font.setPointSizeF(kDefaultPoints * look.factor);
        font.setLetterSpacing(QFont::PercentageSpacing, look.width);
        form_.setFont(font);
        QApplication::processEvents();
    }

private:
    std::unique_ptr<QStyle> style_{QStyleFactory::create(GetParam().style)};
};

QRect ButtonTextArea(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    auto area = QStyle::SE_CheckBoxContents;
    if (qobject_cast<const QPushButton*>(&button) != nullptr) area = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QRadioButton*>(&button) != nullptr)
        area = QStyle::SE_RadioButtonContents;
    return button.style()->subElementRect(area, &option, &button);
}

QSize TextSize(const QWidget& widget, const QString& text, int width, bool wrapped) {
    const int flags = wrapped ? Qt::TextWordWrap : Qt::TextSingleLine;
    return widget.fontMetrics().boundingRect(QRect(0, 0, width, 10000), flags, text).size();
}

bool ShowsItsText(const QWidget& widget) {
    QRect area = widget.contentsRect();
    QString text = "0.125";  // What a text box has to show at least.
    bool wrapped = false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        text = label->text();
        wrapped = label->wordWrap();
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        text = button->text();
        area = ButtonTextArea(*button);
    } else if (qobject_cast<const QLineEdit*>(&widget) == nullptr) {
        return true;
    }
    if (text.isEmpty()) return true;
    const QSize needed = TextSize(widget, text, area.width(), wrapped);
    return needed.width() <= area.width() && needed.height() <= area.height();
}

bool IsWhollyOnItsPage(const QWidget& widget) {
    for (const QWidget* outer = widget.parentWidget(); outer != nullptr && !outer->isWindow();
         outer = outer->parentWidget())
        if (!outer->rect().contains(QRect(widget.mapTo(outer, QPoint()), widget.size())))
            return false;
    return true;
}

TEST_P(FormSize, EveryTextIsShownInFull) {
    Wear();
    for (const ExpectedTab& tab : ExpectedTabs()) {
        ShowTab(tab.tabs, tab.title);
        for (const ExpectedControl& expected : tab.controls) {
            const auto& control = *form_.findChild<QWidget*>(expected.name);
            if (!control.isVisible()) continue;
            EXPECT_TRUE(ShowsItsText(control)) << tab.title << ": " << expected.name;
            EXPECT_TRUE(IsWhollyOnItsPage(control)) << tab.title << ": " << expected.name;
        }
    }
}

TEST_P(FormSize, EveryTabIsShownInFull) {
    Wear();
    ShowTab("SSTabColumnProps", "Column Text");
    for (const QTabWidget* tabs : form_.findChildren<QTabWidget*>()) {
        const QTabBar& bar = *tabs->tabBar();
        for (int i = 0; i < bar.count(); ++i) {
            EXPECT_TRUE(bar.rect().contains(bar.tabRect(i))) << bar.tabText(i).toStdString();
            EXPECT_GE(bar.tabRect(i).width(), TextSize(bar, bar.tabText(i), 0, false).width())
                << bar.tabText(i).toStdString();
        }
        EXPECT_TRUE(tabs->rect().contains(bar.geometry())) << tabs->objectName().toStdString();
    }
}

TEST_P(FormSize, ListsShowFourRowsWithoutScrolling) {
    Wear();
    for (auto* list : form_.findChildren<QListWidget*>()) {
        ShowTab("SSTabGazetteerProperties",
                list->objectName() == "lstListingColumns" ? "Index Layout" : "Display/Sort Order");
        list->addItems({"Listing", "Page", "Grid", "Note"});
        QApplication::processEvents();
        EXPECT_EQ(list->verticalScrollBar()->maximum(), 0) << list->objectName().toStdString();
    }
}

// The next control is to the right of the one before, or below it.
TEST_P(FormSize, ControlsStandInReadingOrder) {
    Wear();
    for (const ExpectedTab& tab : ExpectedTabs()) {
        ShowTab(tab.tabs, tab.title);
        const QWidget* before = nullptr;
        for (const ExpectedControl& expected : tab.controls) {
            const auto* control = form_.findChild<QWidget*>(expected.name);
            if (!control->isVisible() || std::string(expected.kind) == "QFrame") continue;
            if (before != nullptr) {
                const QRect there(before->mapTo(&form_, QPoint()), before->size());
                const QPoint here = control->mapTo(&form_, QPoint());
                EXPECT_TRUE(here.x() > there.right() || here.y() > there.bottom())
                    << tab.title << ": " << expected.name;
            }
            before = control;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Looks, FormSize,
    testing::Values(Look{"fusion", "Liberation Sans", 1}, Look{"fusion", "DejaVu Sans", 1},
                    Look{"fusion", "Noto Sans", 1.5}, Look{"windows", "DejaVu Sans", 1.5},
                    Look{"fusion", "Liberation Sans", 2.2}, Look{"fusion", "DejaVu Sans", 1, 140}));

class FormDefaultSize : public BareForm {
public:
    FormDefaultSize() { form_.setFont(QFont("Liberation Sans", 9)); }

    QRect TabArea() const {
        return form_.findChild<QTabWidget*>("SSTabGazetteerProperties")->geometry();
    }
};

// A twip is 1/1440 inch. The font is one that would need less.
TEST_F(FormDefaultSize, KeepsTheLeastSizesAndTheMargins) {
    form_.setFont(QFont("Liberation Sans", 4));
    form_.show();
    ShowTab("SSTabColumnProps", "Font");
    const double pixels = form_.logicalDpiX() / 1440.0;
    const QRect column = form_.findChild<QWidget*>("SSTabColumnProps")->geometry();
    EXPECT_GE(TabArea().width(), 6735 * pixels);
    EXPECT_GE(TabArea().height(), 6855 * pixels);
    EXPECT_GE(column.width(), 6255 * pixels);
    EXPECT_GE(column.height(), 2775 * pixels);
    EXPECT_EQ(TabArea().left(), std::lround(120 * pixels));
    EXPECT_EQ(form_.width() - TabArea().width() - TabArea().left(), std::lround(100 * pixels));
    EXPECT_EQ(form_.height() - TabArea().height() - TabArea().top(), std::lround(100 * pixels));
}

// In a sheet with its buttons on a screen of 1366 by 768 pixels.
TEST_F(FormDefaultSize, FitsASmallScreen) {
    EXPECT_LE(form_.width(), 640);
    EXPECT_LE(form_.height(), 620);
}

TEST_F(FormDefaultSize, GrowsAndShrinksWithItsFont) {
    const QSize before = form_.size();
    form_.setFont(QFont("Liberation Sans", 14));
    EXPECT_GT(form_.width(), before.width());
    EXPECT_GT(form_.height(), before.height());
    form_.setFont(QFont("Liberation Sans", 9));
    EXPECT_EQ(form_.size(), before);
}

// Space that is left over goes to the lists, and never to the texts between them.
TEST_F(FormDefaultSize, ALargerWindowGivesItsSpaceToTheLists) {
    form_.show();
    ShowTab("SSTabGazetteerProperties", "Index Layout");
    const auto* list = form_.findChild<QWidget*>("lstListingColumns");
    const int before = list->height();
    form_.resize(form_.width(), form_.height() + 200);
    QApplication::processEvents();
    EXPECT_EQ(list->height(), before + 200);
}

}  // namespace
}  // namespace page_test

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

// The next control is to the right of the one before, or below it.
TEST_P(FormSize, EveryControlIsShownInFullAndInReadingOrder) {
    Wear();
    for (const ExpectedTab& tab : ExpectedTabs()) {
        ShowTab(tab.tabs, tab.title);
        QRect before;
        for (const auto& [name, flags] : tab.controls) {
            const QWidget& control = Control(name);
            if (!control.isVisible()) continue;
            EXPECT_TRUE(ShowsItsText(control)) << tab.title << ": " << name;
            EXPECT_TRUE(IsWhollyOnItsPage(control)) << tab.title << ": " << name;
            if (name.starts_with("Frame")) continue;
            const QRect here(control.mapTo(&form_, QPoint()), control.size());
            EXPECT_TRUE(here.x() > before.right() || here.y() > before.bottom())
                << tab.title << ": " << name;
            before = here;
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

INSTANTIATE_TEST_SUITE_P(
    Looks, FormSize,
    testing::Values(Look{"fusion", "Liberation Sans", 1}, Look{"fusion", "DejaVu Sans", 1},
                    Look{"fusion", "Noto Sans", 1.5}, Look{"windows", "DejaVu Sans", 1.5},
                    Look{"fusion", "Liberation Sans", 2.2}, Look{"fusion", "DejaVu Sans", 1, 140}));

class FormDefaultSize : public BareForm {
public:
    FormDefaultSize() { form_.setFont(QFont("Liberation Sans", 9)); }
};

// It fits a sheet with its buttons on a screen of 1366 by 768 pixels. Below a least size, in twips,
// it does not shrink.
TEST_F(FormDefaultSize, GrowsAndShrinksWithItsFont) {
    const QSize before = form_.size();
    EXPECT_TRUE(before.width() <= 640 && before.height() <= 620);
    form_.setFont(QFont("Liberation Sans", 14));
    EXPECT_TRUE(form_.width() > before.width() && form_.height() > before.height());
    form_.setFont(QFont("Liberation Sans", 9));
    EXPECT_EQ(form_.size(), before);
    form_.setFont(QFont("Liberation Sans", 4));
    const double twips = 1440.0 / form_.logicalDpiX();
    EXPECT_GE(form_.width() * twips, 120 + 6735 + 100);
    EXPECT_GE(form_.height() * twips, 6855 + 100);
}

// Space that is left over goes to the lists, and never to the texts between them.
TEST_F(FormDefaultSize, ALargerWindowGivesItsSpaceToTheLists) {
    form_.show();
    ShowTab("SSTabGazetteerProperties", "Index Layout");
    const QWidget& list = Control("lstListingColumns");
    const int before = list.height();
    form_.resize(form_.width(), form_.height() + 200);
    QApplication::processEvents();
    EXPECT_EQ(list.height(), before + 200);
}

}  // namespace
}  // namespace page_test

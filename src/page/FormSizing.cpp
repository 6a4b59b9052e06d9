#include "page/FormSizing.h"

#include <QFontInfo>
#include <QGridLayout>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace gazetteer {
namespace {

constexpr double kTwipsPerInch = 1440;

// Position, margins and minimum sizes of the tab controls with the default font, in twips.
constexpr int kLeft = 120;
constexpr int kMargin = 100;
constexpr int kPropertiesWidth = 6735;
constexpr int kPropertiesHeight = 6855;
constexpr int kColumnWidth = 6255;
constexpr int kColumnHeight = 2775;

// Width of the form in font sizes: about 90 letters per line of explaining text.
constexpr int kFontSizesWide = 50;
// On a low screen the form becomes wider, which saves lines, and its rows stand closer, in pixels.
constexpr int kMostFontSizesWide = 76;
constexpr int kDenseSpacing = 3;
// Lines of the sheet around the form: title bar, borders and buttons.
constexpr int kLinesAround = 7;
// Visible rows of a list, lines of an expression, digits of a number.
constexpr int kRows = 4;
constexpr int kLines = 3;
constexpr int kDigits = 9;

int Pixels(int twips, int dotsPerInch) {
    return static_cast<int>(std::lround(twips * dotsPerInch / kTwipsPerInch));
}

int RowHeight(const QListWidget& list) {
    return list.fontMetrics().height() +
           2 * list.style()->pixelMetric(QStyle::PM_FocusFrameVMargin, nullptr, &list);
}

void SizeLists(const QWidget& form) {
    for (auto* list : form.findChildren<QListWidget*>())
        list->setMinimumHeight(kRows * RowHeight(*list) + 2 * list->frameWidth());
}

void SizeTexts(const QWidget& form) {
    for (auto* text : form.findChildren<QPlainTextEdit*>()) {
        const double frame = 2 * (text->frameWidth() + text->document()->documentMargin());
        text->setMinimumHeight(kLines * text->fontMetrics().lineSpacing() +
                               static_cast<int>(std::ceil(frame)));
    }
}

// In some styles a caption would touch the border of its button.
void SizeButtons(const QWidget& form) {
    for (auto* button : form.findChildren<QPushButton*>()) {
        if (button->text().isEmpty()) continue;
        const int room = 2 * button->fontMetrics().averageCharWidth();
        button->setMinimumWidth(button->sizeHint().width() + room);
    }
}

// Boxes of fixed width contain a number or a separator.
void SizeNumbers(const QWidget& form) {
    for (auto* box : form.findChildren<QLineEdit*>()) {
        if (box->sizePolicy().horizontalPolicy() != QSizePolicy::Fixed) continue;
        const int letters = box->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 17;
        const int digits = box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kDigits;
        // QLineEdit's size hint is 17 times "x" plus its frame.
        box->setFixedWidth(box->sizeHint().width() - letters + digits);
    }
}

// Layouts of hidden tabs are not notified of a new font.
void InvalidateLayouts(const QWidget& form) {
    for (auto* layout : form.findChildren<QLayout*>()) layout->invalidate();
    for (auto* tabs : form.findChildren<QTabWidget*>()) tabs->updateGeometry();
}

// Vertical distances; -1 for those of the style.
void SetSpacing(const QWidget& form, int pixels) {
    for (auto* layout : form.findChildren<QVBoxLayout*>()) layout->setSpacing(pixels);
    for (auto* layout : form.findChildren<QGridLayout*>()) layout->setVerticalSpacing(pixels);
}

void SetLeastSize(const QWidget& form, const char* name, int width, int height) {
    const int dpi = form.logicalDpiX();
    auto& tabs = *form.findChild<QTabWidget*>(name);
    const QSize given(Pixels(width, dpi), Pixels(height, dpi));
    tabs.setMinimumSize(given.expandedTo(tabs.minimumSizeHint()));
}

// The size at this width, in font sizes, or more if the form needs it.
QSize LeastSize(const QWidget& form, int fontSizesWide) {
    InvalidateLayouts(form);
    SetLeastSize(form, "SSTabColumnProps", kColumnWidth, kColumnHeight);
    SetLeastSize(form, "SSTabGazetteerProperties", kPropertiesWidth, kPropertiesHeight);
    const QLayout& layout = *form.layout();
    const int readable = fontSizesWide * QFontInfo(form.font()).pixelSize();
    const int width = std::max(layout.totalMinimumSize().width(), readable);
    return {width, std::max(layout.totalMinimumSize().height(), layout.totalHeightForWidth(width))};
}

}  // namespace

void FitFormToTabs(QWidget& form) {
    SizeLists(form);
    SizeTexts(form);
    SizeButtons(form);
    SizeNumbers(form);
    const int margin = Pixels(kMargin, form.logicalDpiX());
    form.layout()->setContentsMargins(Pixels(kLeft, form.logicalDpiX()), margin, margin, margin);
    SetSpacing(form, -1);
    QSize size = LeastSize(form, kFontSizesWide);
    const int line = form.fontMetrics().lineSpacing();
    const QSize room = form.screen()->availableSize() - QSize(line, line) * kLinesAround;
    if (size.height() > room.height()) SetSpacing(form, kDenseSpacing);
    for (int wide = kFontSizesWide; size.height() > room.height() && wide <= kMostFontSizesWide;
         ++wide) {
        const QSize next = LeastSize(form, wide);
        if (next.width() > room.width()) break;
        size = next;
    }
    form.setMinimumSize(size);
    form.resize(size);
}

}  // namespace gazetteer

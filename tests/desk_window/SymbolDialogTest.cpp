#include <QCheckBox>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desk/session/Desk.h"
#include "desk/window/SymbolDialog.h"
#include "host/Failure.h"
#include "support/Modal.h"
#include "support/RecordingDialogs.h"

namespace {

using support::Part;
using support::WhenModal;

class SymbolDialogTest : public testing::Test {
protected:
    /// Edits a symbol in a dialog of its own; the result, or null where it was cancelled.
    template <class T>
    host::Ref<T> Edit(const host::Ref<T>& symbol, const std::function<void(QWidget&)>& act) {
        desk::SymbolDialog dialog(desk_, [] { return nullptr; });
        bool ok = false;
        dialog.AddSymbol(symbol, ok);
        EXPECT_TRUE(ok);
        WhenModal(act);
        dialog.Show(0, ok);
        const auto result = host::As<T>(dialog.Symbol(0));
        EXPECT_NE(result, symbol);
        return ok ? result : nullptr;
    }
    static void PickColor(QWidget& shown, const char* button, const QColor& color) {
        WhenModal([&](QWidget& picker) {
            dynamic_cast<QColorDialog&>(picker).setCurrentColor(color);
            QTest::keyClick(&picker, Qt::Key_Return);
        });
        QTest::mouseClick(&Part<QPushButton>(shown, button), Qt::LeftButton);
    }
    static void Confirm(QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Return); }

    static desk::DeskOptions Options() {
        desk::DeskOptions options;
        options.locale = "en_US";
        options.dialogs = std::make_shared<support::RecordingDialogs>();
        return options;
    }
    desk::Desk desk_{Options()};
};

TEST_F(SymbolDialogTest, EditsACopyOfATextAndKeepsWhatItDoesNotShow) {
    const auto symbol = desk_.NewTextSymbol();
    symbol->SetAngle(30);
    symbol->SetVerticalPlacement(2);
    symbol->SetHorizontalPlacement(1);
    symbol->SetText("Sample");
    const auto edited = Edit(symbol, [](QWidget& shown) {
        auto& family = Part<QFontComboBox>(shown, "family");
        EXPECT_EQ(family.currentText(), "Helvetica");
        family.lineEdit()->selectAll();
        QTest::keyClicks(family.lineEdit(), "Liberation Serif");
        auto& size = Part<QDoubleSpinBox>(shown, "size");
        size.selectAll();
        QTest::keyClicks(&size, "7.25");
        QTest::keyClick(&Part<QCheckBox>(shown, "bold"), Qt::Key_Space);
        PickColor(shown, "color", QColor(1, 2, 3));
        Confirm(shown);
    });
    ASSERT_TRUE(edited);
    EXPECT_EQ(edited->Font()->Name(), "Liberation Serif");
    EXPECT_EQ(edited->Size(), 7.25);
    EXPECT_TRUE(edited->Font()->Bold());
    EXPECT_EQ(edited->Color()->RGB(), 0x030201U);
    EXPECT_EQ(edited->Angle(), 30);
    EXPECT_EQ(edited->VerticalPlacement(), 2);
    EXPECT_EQ(edited->HorizontalPlacement(), 1);
    EXPECT_EQ(edited->Text(), "Sample");
    EXPECT_EQ(symbol->Font()->Name(), "Helvetica");
    EXPECT_EQ(symbol->Color()->RGB(), 0U);
}

TEST_F(SymbolDialogTest, ChangesNothingThatWasNotTouched) {
    const auto symbol = desk_.NewTextSymbol();
    symbol->Font()->SetName("A font that nobody has");
    symbol->SetSize(1000.125);
    symbol->Color()->SetTransparent(true);
    const auto edited = Edit(symbol, [](QWidget& shown) {
        EXPECT_EQ(Part<QLabel>(shown, "fontNote").text(),
                  "The font A font that nobody has is not installed. Another stands in for it.");
        auto& family = Part<QFontComboBox>(shown, "family");
        family.lineEdit()->selectAll();
        QTest::keyClick(family.lineEdit(), Qt::Key_Backspace);
        Confirm(shown);
    });
    ASSERT_TRUE(edited);
    EXPECT_EQ(edited->Font()->Name(), "A font that nobody has");
    EXPECT_EQ(edited->Size(), 1000.125);
    EXPECT_TRUE(edited->Color()->Transparent());
}

TEST_F(SymbolDialogTest, LeavesTheSymbolAsItCameWhenCancelled) {
    desk::SymbolDialog dialog(desk_, [] { return nullptr; });
    bool ok = false;
    dialog.AddSymbol(desk_.NewTextSymbol(), ok);
    WhenModal([](QWidget& shown) {
        Part<QDoubleSpinBox>(shown, "size").setValue(50);
        QTest::keyClick(&shown, Qt::Key_Escape);
    });
    dialog.Show(0, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(host::As<host::IHostTextSymbol>(dialog.Symbol(0))->Size(), 10);
    EXPECT_THROW(dialog.Symbol(1), host::Failure);
}

TEST_F(SymbolDialogTest, EditsFillAndOutline) {
    const auto symbol = desk_.NewFillSymbol();
    const auto edited = Edit(symbol, [](QWidget& shown) {
        EXPECT_FALSE(Part<QPushButton>(shown, "outlineColor").isEnabled());
        Part<QCheckBox>(shown, "outlined").click();
        PickColor(shown, "outlineColor", QColor(9, 8, 7));
        Part<QCheckBox>(shown, "outlined").click();
        Part<QCheckBox>(shown, "outlined").click();
        Part<QCheckBox>(shown, "filled").click();
        Confirm(shown);
    });
    ASSERT_TRUE(edited);
    EXPECT_TRUE(edited->Color()->Transparent());
    ASSERT_TRUE(edited->Outline());
    EXPECT_EQ(edited->Outline()->Color()->RGB(), 0x070809U);
    const auto again = Edit(edited, [](QWidget& shown) {
        EXPECT_FALSE(Part<QPushButton>(shown, "color").isEnabled());
        Part<QCheckBox>(shown, "filled").click();
        PickColor(shown, "color", QColor(255, 0, 0));
        Part<QCheckBox>(shown, "outlined").click();
        Confirm(shown);
    });
    ASSERT_TRUE(again);
    EXPECT_FALSE(again->Color()->Transparent());
    EXPECT_EQ(again->Color()->RGB(), 0x0000FFU);
    EXPECT_FALSE(again->Outline());
    EXPECT_TRUE(edited->Outline());
}

TEST_F(SymbolDialogTest, RefusesOtherSymbols) {
    desk::SymbolDialog dialog(desk_, [] { return nullptr; });
    bool ok = true;
    dialog.AddSymbol(desk_.NewLineSymbol(), ok);
    EXPECT_FALSE(ok);
    dialog.Show(0, ok);
    EXPECT_FALSE(ok);
}

/// How many pixels of a preview are of a colour, in thousandths.
int Share(QWidget& preview, const QColor& color) {
    const QImage picture = preview.grab().toImage();
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) found += picture.pixelColor(x, y) == color;
    return found * 1000 / (picture.width() * picture.height());
}

TEST_F(SymbolDialogTest, PreviewsLive) {
    const auto symbol = desk_.NewTextSymbol();
    symbol->SetSize(60);
    symbol->Color()->SetRGB(0x0000FF);
    Edit(symbol, [](QWidget& shown) {
        auto& preview = Part<QWidget>(shown, "preview");
        auto& caption = Part<QLabel>(shown, "previewCaption");
        const int ink = Share(preview, Qt::red);
        EXPECT_GT(ink, 10);
        EXPECT_GT(Share(preview, Qt::white), 500);
        auto& size = Part<QDoubleSpinBox>(shown, "size");
        size.setValue(12);
        EXPECT_LT(Share(preview, Qt::red), ink);
        QApplication::processEvents();
        EXPECT_EQ(caption.text(), "Preview in true size");
        size.setValue(400);
        EXPECT_GT(Share(preview, Qt::red), 10);
        QApplication::processEvents();
        EXPECT_TRUE(caption.text().startsWith("Preview, reduced to "))
            << qPrintable(caption.text());
        Confirm(shown);
    });
    const auto fill = desk_.NewFillSymbol();
    fill->Color()->SetRGB(0x00FF00);
    Edit(fill, [](QWidget& shown) {
        auto& preview = Part<QWidget>(shown, "preview");
        EXPECT_GT(Share(preview, QColor(0, 255, 0)), 500);
        Part<QCheckBox>(shown, "filled").click();
        EXPECT_EQ(Share(preview, QColor(0, 255, 0)), 0);
        Confirm(shown);
    });
}

}  // namespace

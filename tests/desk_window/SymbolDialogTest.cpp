#include <QCheckBox>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QLabel>

#include "desk/window/SymbolDialog.h"
#include "host/Failure.h"
#include "support/SetDump.h"
#include "support/TestDesk.h"
#include "support/Widgets.h"

namespace {

using support::Part;
using support::WhenModal;

class SymbolDialogTest : public testing::Test {
protected:
    /// Edits a symbol in a dialog of its own, which is confirmed in the end.
    template <class T>
    host::Ref<T> Edit(const host::Ref<T>& symbol, const std::function<void(QWidget&)>& act) {
        bool ok = false;
        dialog_.AddSymbol(symbol, ok);
        WhenModal([&](QWidget& shown) {
            act(shown);
            QTest::keyClick(&shown, Qt::Key_Return);
        });
        dialog_.Show(0, ok);
        EXPECT_TRUE(ok);
        return host::As<T>(dialog_.Symbol(0));
    }
    /// All that a symbol has, as text.
    std::string Told(const host::Ref<host::IHostObject>& symbol) {
        const auto set = desk_.Host().NewPropertySet();
        set->SetItem("symbol", symbol);
        return support::Dump(*set).substr(8);
    }
    static void Toggle(QWidget& shown, const char* box) { Part<QCheckBox>(shown, box).click(); }
    static void PickColor(QWidget& shown, const char* button, const QColor& color) {
        WhenModal([&](QWidget& picker) {
            dynamic_cast<QColorDialog&>(picker).setCurrentColor(color);
            QTest::keyClick(&picker, Qt::Key_Return);
        });
        QTest::mouseClick(&Part<QPushButton>(shown, button), Qt::LeftButton);
    }
    /// How many pixels of the preview are of a colour, in thousandths.
    static int Share(QWidget& shown, const QColor& color) {
        const QImage picture = Part<QWidget>(shown, "preview").grab().toImage();
        int found = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) found += picture.pixelColor(x, y) == color;
        return found * 1000 / (picture.width() * picture.height());
    }

    support::TestDesk desk_;
    desk::SymbolDialog dialog_{desk_.Host(), [] { return nullptr; }};
};

TEST_F(SymbolDialogTest, EditsACopyOfATextAndKeepsWhatItDoesNotShow) {
    const auto symbol = desk_.Host().NewTextSymbol();
    symbol->SetAngle(30);
    symbol->SetText("Sample");
    const auto edited = Edit(symbol, [](QWidget& shown) {
        auto& family = Part<QFontComboBox>(shown, "family");
        EXPECT_EQ(family.currentText(), "Helvetica");
        support::Retype(*family.lineEdit(), "Liberation Serif");
        auto& size = Part<QDoubleSpinBox>(shown, "size");
        size.selectAll();
        QTest::keyClicks(&size, "7.25");
        Toggle(shown, "bold");
        Toggle(shown, "italic");
        PickColor(shown, "color", QColor(1, 2, 3));
    });
    EXPECT_EQ(Told(edited), "Liberation Serif 7.25 bold italic 197121 00 30 'Sample'\n");
    EXPECT_EQ(Told(symbol), "Helvetica 10 0 00 30 'Sample'\n");
}

TEST_F(SymbolDialogTest, ChangesNothingThatWasNotTouched) {
    const auto symbol = desk_.Host().NewTextSymbol();
    symbol->Font()->SetName("A font that nobody has");
    symbol->SetSize(1000.125);
    symbol->Color()->SetTransparent(true);
    const auto edited = Edit(symbol, [](QWidget& shown) {
        EXPECT_EQ(Part<QLabel>(shown, "fontNote").text(),
                  "The font A font that nobody has is not installed. Another stands in for it.");
        support::Retype(*Part<QFontComboBox>(shown, "family").lineEdit(), "");
    });
    EXPECT_EQ(Told(edited), Told(symbol));
}

TEST_F(SymbolDialogTest, EditsFillAndOutline) {
    const auto edited = Edit(desk_.Host().NewFillSymbol(), [](QWidget& shown) {
        EXPECT_FALSE(Part<QPushButton>(shown, "outlineColor").isEnabled());
        Toggle(shown, "outlined");
        PickColor(shown, "outlineColor", QColor(9, 8, 7));
        for (const char* box : {"outlined", "outlined", "filled"}) Toggle(shown, box);
    });
    const std::string outlined = "fill 0 none line 460809\n";
    EXPECT_EQ(Told(edited), outlined);
    const auto again = Edit(edited, [](QWidget& shown) {
        EXPECT_FALSE(Part<QPushButton>(shown, "color").isEnabled());
        Toggle(shown, "filled");
        PickColor(shown, "color", QColor(255, 0, 0));
        Toggle(shown, "outlined");
        EXPECT_GT(Share(shown, Qt::red), 500);
        Toggle(shown, "filled");
        EXPECT_EQ(Share(shown, Qt::red), 0);
        Toggle(shown, "filled");
    });
    EXPECT_EQ(Told(again), "fill 255 no object\n");
    EXPECT_EQ(Told(edited), outlined) << "the copy is edited";
}

TEST_F(SymbolDialogTest, RefusesOtherSymbols) {
    bool ok = true;
    dialog_.AddSymbol(desk_.Host().NewLineSymbol(), ok);
    EXPECT_FALSE(ok);
    dialog_.Show(0, ok);
    EXPECT_FALSE(ok);
    EXPECT_THROW(dialog_.Symbol(0), host::Failure);
}

TEST_F(SymbolDialogTest, PreviewsATextInItsSizeOrReduced) {
    const auto symbol = desk_.Host().NewTextSymbol();
    symbol->SetSize(60);
    symbol->Color()->SetRGB(0x0000FF);
    Edit(symbol, [](QWidget& shown) {
        auto& caption = Part<QLabel>(shown, "previewCaption");
        auto& size = Part<QDoubleSpinBox>(shown, "size");
        const int ink = Share(shown, Qt::red);
        EXPECT_GT(ink, 10);
        EXPECT_GT(Share(shown, Qt::white), 500);
        size.setValue(12);
        EXPECT_LT(Share(shown, Qt::red), ink);
        QApplication::processEvents();
        EXPECT_EQ(caption.text(), "Preview in true size");
        size.setValue(400);
        EXPECT_GT(Share(shown, Qt::red), 10);
        QApplication::processEvents();
        EXPECT_EQ(caption.text().left(20), "Preview, reduced to ");
    });
}

}  // namespace

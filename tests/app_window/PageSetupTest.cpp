#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPrinter>
#include <QSpinBox>

#include "app/document/PageSetup.h"
#include "app/window/LengthBox.h"
#include "app/window/Printing.h"
#include "app_window/WindowStory.h"
#include "support/Output.h"

namespace {

using support::EndButton;
using support::Part;

/// The user's locale, for as long as it lives.
class UserLocale {
public:
    explicit UserLocale(const char* name) { QLocale::setDefault(QLocale(name)); }
    ~UserLocale() { QLocale::setDefault(before_); }

private:
    QLocale before_;
};

void RetypeLength(QWidget& dialog, const char* box, const char* text) {
    support::Retype(*Part<app::LengthBox>(dialog, box).findChild<QLineEdit*>(), text);
}

TEST(LengthBox, TakesAnyUnitAndShowsThatOfTheLocale) {
    struct Case {
        const char* locale;
        const char* typed;
        double inches;  // Negative: no length.
        const char* shown;
    };
    for (const auto& [locale, typed, inches, shown] :
         {Case{"en_US", "2.5", 2.5, "2.5 in"}, Case{"en_US", "63.5 mm", 2.5, "2.5 in"},
          Case{"en_US", "1\"", 1, "1 in"}, Case{"de_DE", "63,5", 2.5, "63,5 mm"},
          Case{"de_DE", "2.5 in", 2.5, "63,5 mm"}, Case{"en_GB", "1 CM", 1 / 2.54, "10 mm"},
          Case{"en_US", "", -1, ""}, Case{"en_US", "2 ells", -1, "2 ells"},
          Case{"sv_SE", "1,2,3", -1, "1,2,3"}}) {
        SCOPED_TRACE(typed);
        const UserLocale user(locale);
        QWidget window;
        auto* const box = new app::LengthBox("box", "Length", &window);
        window.show();
        box->SetInches(7);
        RetypeLength(window, "box", typed);
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_NEAR(box->Inches().value_or(-1), inches, 1e-9);
        EXPECT_EQ(box->findChild<QLineEdit*>()->text(), shown);
    }
    // What is not edited is not rounded.
    const UserLocale user("en_US");
    app::LengthBox box("box", "Length", nullptr);
    box.SetInches(210 / 25.4);
    EXPECT_EQ(box.text(), "8.268 in");
    EXPECT_EQ(box.Inches(), 210 / 25.4);
    box.stepBy(1);
    EXPECT_EQ(box.Inches(), 8.3125);
}

class PageSetup : public window_test::WindowStory {
public:
    PageSetup() { MakeSaved(Table("names.dbf", 900), "names.json"); }

    app::PageSetup Setup() const { return app::PageSetupOf(Session().Document()); }
    std::string TextOf(const char* tag) const {
        for (const auto& element : Session().Document().TheDesk().CurrentDocument().elements)
            if (host::As<host::IHostElementName>(element)->Name() == tag)
                return host::As<host::IHostTextElement>(element)->Text();
        return "none";
    }

    UserLocale user_{"en_US"};
};

TEST_F(PageSetup, IsOneStepThatCanBeUndone) {
    const auto before = Setup();
    const auto drawn = DrawnListings();
    const auto pages = Session().Pages();
    DoWith("pageSetup", [](QWidget& dialog) {
        auto& format = Part<QComboBox>(dialog, "pageSize");
        EXPECT_EQ(format.currentText(), "Letter");
        format.setCurrentText("A5");
        Q_EMIT format.activated(format.currentIndex());
        auto& orientation = Part<QComboBox>(dialog, "orientation");
        orientation.setCurrentIndex(1);
        Q_EMIT orientation.activated(1);
        Part<QSpinBox>(dialog, "firstSheet").setValue(97);
        RetypeLength(dialog, "marginLeft", "30 mm");
        Part<QLineEdit>(dialog, "RUNNINGHEADText").setText("Names from $$FIRST");
        Part<QComboBox>(dialog, "SHEETNUMBERPlace").setCurrentText("Right");
        RetypeLength(dialog, "SHEETNUMBERDistance", "5 mm");
        EndButton(dialog, QDialogButtonBox::Ok).click();
    });
    const auto after = Setup();
    EXPECT_EQ(after.size.width, 210 / 25.4);
    EXPECT_EQ(after.size.height, 148 / 25.4);
    EXPECT_NEAR(after.margins->left, 30 / 25.4, 1e-9);
    EXPECT_NEAR(after.margins->right, before.margins->right, 1e-9);
    EXPECT_EQ(after.number.place, app::LabelPlace::Right);
    EXPECT_NEAR(after.number.distance, 5 / 25.4, 1e-9);
    EXPECT_NEAR(after.head.distance, before.head.distance, 1e-9);
    EXPECT_EQ(TextOf("RUNNINGHEAD"), "Names from Alpha 0001");
    EXPECT_EQ(TextOf("SHEETNUMBER"), "97");
    EXPECT_GT(Session().Pages(), pages);
    EXPECT_TRUE(window_->isWindowModified());

    Do("undo");
    EXPECT_EQ(Setup().size.height, 11);
    EXPECT_EQ(Setup().margins->left, before.margins->left);
    EXPECT_EQ(DrawnListings(), drawn);
    EXPECT_EQ(TextOf("RUNNINGHEAD").substr(0, 16), "Alpha 0001 \u2013 A");
    EXPECT_FALSE(window_->isWindowModified());
    Do("redo");
    EXPECT_EQ(TextOf("RUNNINGHEAD"), "Names from Alpha 0001");
    EXPECT_EQ(TextOf("SHEETNUMBER"), "97");
}

TEST_F(PageSetup, TellsWhatIsWrongAndKeepsIt) {
    struct Case {
        const char* field;
        const char* typed;
        const char* told;
    };
    DoWith("pageSetup", [](QWidget& dialog) {
        auto& format = Part<QComboBox>(dialog, "pageSize");
        format.setCurrentText("Custom");
        Q_EMIT format.activated(format.currentIndex());
        const auto& ok = EndButton(dialog, QDialogButtonBox::Ok);
        const auto& fault = Part<QLabel>(dialog, "fault");
        for (const auto& [field, typed, told] :
             {Case{"pageWidth", "201", "width of the sheet must be from 0.01 inches to 200.00"},
              Case{"pageHeight", "high", "height of the sheet must be"},
              Case{"marginLeft", "-1", "left margin must not be negative"},
              Case{"marginTop", "", "The top margin must be a length such as 0.5 in."},
              Case{"marginRight", "8", "leave no width for the index"},
              Case{"RUNNINGHEADDistance", "far", "The distance of the running head must be"}}) {
            SCOPED_TRACE(field);
            auto& box = Part<app::LengthBox>(dialog, field);
            const double before = *box.Inches();
            RetypeLength(dialog, field, typed);
            EXPECT_TRUE(fault.text().contains(told)) << fault.text().toStdString();
            EXPECT_FALSE(ok.isEnabled());
            EXPECT_NE(box.palette().color(QPalette::Text), dialog.palette().color(QPalette::Text));
            QTest::keyClick(&box, Qt::Key_Tab);
            EXPECT_TRUE(box.text().startsWith(typed));
            box.SetInches(before);
            Q_EMIT box.Changed();
            EXPECT_TRUE(ok.isEnabled());
        }
        auto& head = Part<QLineEdit>(dialog, "RUNNINGHEADText");
        head.setText("$$FRIST");
        EXPECT_TRUE(fault.text().contains("\"$$FRIST\""));
        EXPECT_FALSE(ok.isEnabled());
        Part<QGroupBox>(dialog, "RUNNINGHEAD").setChecked(false);
        EXPECT_TRUE(ok.isEnabled());
        support::Escape(dialog);
    });
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_FALSE(Action("undo").isEnabled());
}

TEST_F(PageSetup, PrintsTheAskedPagesAtTheirSize) {
    Do("nextPage");
    const auto drawn = DrawnListings();
    const std::string file = folder_.File("print.pdf");
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(QString::fromStdString(file));
    app::UseSheetAsPaper(Session(), printer);
    std::vector<int> told;
    app::PrintPages(Session(), printer, {2, 3}, [&](int page) { told.push_back(page); });
    EXPECT_EQ(told, (std::vector<int>{2, 3}));
    EXPECT_EQ(DrawnListings(), drawn);

    const std::string exported = folder_.File("export.pdf");
    Session().Export(exported, {2, 3}, [](int) {});
    EXPECT_EQ(support::PdfText(file), support::PdfText(exported));
    EXPECT_NE(support::PdfText(file).find(drawn.front()), std::string::npos);
    const auto info = [](const std::string& pdf) {
        const std::string all = support::Output("pdfinfo '" + pdf + "'");
        return all.substr(all.find("Page size:"), 35);
    };
    EXPECT_EQ(info(file), info(exported));
    // Letters stand where the exported ones do.
    const auto firstWord = [](const std::string& pdf) {
        return support::Output("pdftotext -bbox '" + pdf + "' - | grep -m1 '<word' | " +
                               R"(sed -E 's/[^0-9. ]//g' | awk '{printf "%.0f %.0f", $1, $3}')");
    };
    EXPECT_EQ(firstWord(file), firstWord(exported));
    EXPECT_FALSE(firstWord(file).empty());
}

TEST_F(PageSetup, ACancelledPrintLeavesNoFileAndTheSamePage) {
    const auto drawn = DrawnListings();
    QPrinter printer;
    printer.setOutputFileName(QString::fromStdString(folder_.File("print.pdf")));
    EXPECT_THROW(app::PrintPages(Session(), printer, {1, 3},
                                 [](int page) {
                                     if (page == 2) throw std::runtime_error("cancelled");
                                 }),
                 std::runtime_error);
    EXPECT_FALSE(QFile::exists(printer.outputFileName()));
    EXPECT_EQ(DrawnListings(), drawn);
}

}  // namespace

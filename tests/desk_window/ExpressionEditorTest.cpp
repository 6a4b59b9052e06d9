#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <array>

#include "desk/tables/DbfTable.h"
#include "desk/window/ExpressionEditor.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/Widgets.h"

namespace {

using support::Part;

class ExpressionEditorTest : public testing::Test {
protected:
    ExpressionEditorTest() {
        support::DbfBuilder builder({{"NAME", 'C', 20}, {"PAGE", 'N', 6}, {"LEN", 'N', 6, 1}});
        for (int i = 1; i <= 7; ++i)
            builder.Row({"Oak " + std::to_string(i), i == 2 ? "" : std::to_string(10 + i), "1.5"});
        builder.Write(folder_.File("a.dbf"));
        table_ = std::make_shared<desk::DbfTable>(folder_.File("a.dbf"));
    }

    std::string Edit(const std::string& expression, const std::function<void(QWidget&)>& act) {
        support::WhenModal(act);
        return desk::ExpressionEditor([] { return nullptr; }, "de_DE")(
            table_, expression,
            {{"$$PAGE_NUMBER", "The page"}, {"$$ROW", "The row"}, {"$$DOTS", "Dots"}});
    }
    static QPlainTextEdit& Text(QWidget& shown) {
        return Part<QPlainTextEdit>(shown, "expression");
    }
    static QStringList Texts(QWidget& shown) {
        return support::RowTexts(Part<QListWidget>(shown, "texts"));
    }
    static bool CanConfirm(QWidget& shown) {
        return support::EndButton(shown, QDialogButtonBox::Ok).isEnabled();
    }
    static void Confirm(QWidget& shown) { QTest::keyClick(&Text(shown), Qt::Key_Return); }

    support::TemporaryFolder folder_;
    host::Ref<host::IHostTable> table_;
};

TEST_F(ExpressionEditorTest, PutsFieldsAndTokensAtTheCursor) {
    const auto edited = Edit("()", [](QWidget& shown) {
        auto& fields = Part<QTreeWidget>(shown, "fields");
        auto& tokens = Part<QTreeWidget>(shown, "tokens");
        EXPECT_EQ(tokens.topLevelItem(1)->text(1), "The row");
        QTest::keyClick(&Text(shown), Qt::Key_Left);
        const QPoint at = fields.visualItemRect(fields.topLevelItem(0)).center();
        QTest::mouseClick(fields.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(fields.viewport(), Qt::LeftButton, {}, at);
        QTest::keyClick(&tokens, Qt::Key_Down);
        QTest::keyClick(&tokens, Qt::Key_Return);
        QTest::keyClicks(&Text(shown), "-");
        Confirm(shown);
    });
    EXPECT_EQ(edited, "([NAME]$$ROW-)");
}

TEST_F(ExpressionEditorTest, ShowsWhatTheFirstRecordsGiveWhileTyping) {
    const auto edited = Edit("[NAME]", [](QWidget& shown) {
        EXPECT_EQ(Texts(shown), (QStringList{"Oak 1", "Oak 2", "Oak 3", "Oak 4", "Oak 5"}));
        QTest::keyClicks(&Text(shown), " $$PAGE_NUMBER$$ROW [LEN]$$DOTS");
        // The second record has no page.
        EXPECT_EQ(Texts(shown).mid(0, 2),
                  (QStringList{"Oak 1 11A 1,5$$DOTS", "Oak 2 1A 1,5$$DOTS"}));
        const QString note = Part<QLabel>(shown, "note").text().remove(QChar(0x2060));
        EXPECT_TRUE(note.contains("$$PAGE_NUMBER is the field Page, $$ROW is A"));
        support::Escape(shown);
    });
    EXPECT_EQ(edited, "");
}

TEST_F(ExpressionEditorTest, MarksWhatIsNotValidAndDoesNotTakeIt) {
    const std::array<const char*, 3> cases[] = {
        {"\u00e9 [Foo] x", "[Foo]", "No field named Foo."},
        {"\U0001F333 [NAME", "[NAME", "[ without ]."},
        {"", "",
         "An empty expression would leave the old one in place: write one, or press Cancel."}};
    for (const auto& [expression, wrong, finding] : cases) {
        SCOPED_TRACE(expression);
        const auto edited = Edit(expression, [&, wrong = wrong, found = finding](QWidget& shown) {
            QString marked;
            for (const auto& mark : Text(shown).extraSelections())
                marked += mark.cursor.selectedText();
            EXPECT_EQ(marked, wrong);
            EXPECT_EQ(Part<QLabel>(shown, "finding").text(), found);
            EXPECT_EQ(Texts(shown).join(""), "");
            EXPECT_FALSE(CanConfirm(shown));
            Confirm(shown);
            EXPECT_TRUE(shown.isVisible());
            Text(shown).setPlainText("[NAME]");
            EXPECT_TRUE(Text(shown).extraSelections().isEmpty());
            EXPECT_EQ(Part<QLabel>(shown, "finding").text(), "");
            Confirm(shown);
        });
        EXPECT_EQ(edited, "[NAME]");
    }
}

TEST_F(ExpressionEditorTest, ReturnsAnUntouchedTextByteForByteAndWorksWithoutATable) {
    const std::string odd = "a\r\nb\tc\u00A0d";
    EXPECT_EQ(Edit(odd, Confirm), odd);
    table_ = nullptr;
    Edit("$$ROW", [](QWidget& shown) {
        EXPECT_TRUE(Texts(shown).isEmpty());
        QTest::keyClicks(&Text(shown), "[NAME]");
        EXPECT_FALSE(CanConfirm(shown));
        support::Escape(shown);
    });
}

}  // namespace

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "desk/tables/DbfTable.h"
#include "desk/window/ExpressionEditor.h"
#include "support/DbfBuilder.h"
#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace {

using support::Part;
using support::WhenModal;

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
        WhenModal(act);
        return desk::ExpressionEditor([] { return nullptr; }, "de_DE")(
            table_, expression,
            {{"$$PAGE_NUMBER", "The page"}, {"$$ROW", "The row"}, {"$$DOTS", "Dots"}});
    }
    static QPlainTextEdit& Text(QWidget& shown) {
        return Part<QPlainTextEdit>(shown, "expression");
    }
    static QStringList Texts(QWidget& shown) {
        auto& list = Part<QListWidget>(shown, "texts");
        QStringList texts;
        for (int row = 0; row < list.count(); ++row) texts << list.item(row)->text();
        return texts;
    }
    static bool CanConfirm(QWidget& shown) {
        return shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
    }

    support::TemporaryFolder folder_;
    host::Ref<host::IHostTable> table_;
};

TEST_F(ExpressionEditorTest, PutsFieldsAndTokensAtTheCursor) {
    EXPECT_EQ(Edit("()",
                   [](QWidget& shown) {
                       auto& fields = Part<QTreeWidget>(shown, "fields");
                       auto& tokens = Part<QTreeWidget>(shown, "tokens");
                       EXPECT_EQ(fields.topLevelItem(2)->text(0), "LEN");
                       EXPECT_EQ(tokens.topLevelItem(1)->text(1), "The row");
                       QTest::keyClick(&Text(shown), Qt::Key_Left);
                       const QPoint at = fields.visualItemRect(fields.topLevelItem(0)).center();
                       QTest::mouseClick(fields.viewport(), Qt::LeftButton, {}, at);
                       QTest::mouseDClick(fields.viewport(), Qt::LeftButton, {}, at);
                       EXPECT_EQ(Text(shown).toPlainText(), "([NAME])");
                       QTest::keyClick(&tokens, Qt::Key_Down);
                       QTest::keyClick(&tokens, Qt::Key_Return);
                       QTest::keyClicks(&Text(shown), "-");
                       QTest::keyClick(&Text(shown), Qt::Key_Return);
                   }),
              "([NAME]$$ROW-)");
}

TEST_F(ExpressionEditorTest, ShowsWhatTheFirstRecordsGiveWhileTyping) {
    EXPECT_EQ(Edit("[NAME]",
                   [](QWidget& shown) {
                       EXPECT_EQ(Texts(shown).size(), 5);
                       EXPECT_EQ(Texts(shown).front(), "Oak 1");
                       QTest::keyClicks(&Text(shown), " $$PAGE_NUMBER$$ROW [LEN]$$DOTS");
                       // The second record has no page.
                       EXPECT_EQ(Texts(shown).mid(0, 2),
                                 (QStringList{"Oak 1 11A 1,5$$DOTS", "Oak 2 1A 1,5$$DOTS"}));
                       EXPECT_TRUE(Part<QLabel>(shown, "note")
                                       .text()
                                       .remove(QChar(0x2060))
                                       .contains("$$PAGE_NUMBER is the field Page, $$ROW is A"));
                       QTest::keyClick(&shown, Qt::Key_Escape);
                   }),
              "");
}

TEST_F(ExpressionEditorTest, MarksWhatIsNotValidAndDoesNotTakeIt) {
    const std::vector<std::vector<QString>> cases = {
        {"\u00e9 [Foo] x", "[Foo]", "No field named Foo."},
        {"\U0001F333 [NAME", "[NAME", "[ without ]."},
        {"[]", "[]", "[] names no field."}};
    for (const auto& one : cases) {
        EXPECT_EQ(Edit(one[0].toStdString(),
                       [&](QWidget& shown) {
                           const auto marks = Text(shown).extraSelections();
                           ASSERT_EQ(marks.size(), 1);
                           EXPECT_EQ(marks[0].cursor.selectedText(), one[1]);
                           EXPECT_EQ(Part<QLabel>(shown, "finding").text(), one[2]);
                           EXPECT_TRUE(Texts(shown).isEmpty());
                           EXPECT_FALSE(CanConfirm(shown));
                           QTest::keyClick(&Text(shown), Qt::Key_Return);
                           EXPECT_TRUE(shown.isVisible());
                           Text(shown).setPlainText("[NAME]");
                           EXPECT_TRUE(Text(shown).extraSelections().isEmpty());
                           EXPECT_EQ(Part<QLabel>(shown, "finding").text(), "");
                           QTest::keyClick(&Text(shown), Qt::Key_Return);
                       }),
                  "[NAME]");
    }
}

TEST_F(ExpressionEditorTest, SaysWhyAnEmptyExpressionIsNotTaken) {
    EXPECT_EQ(Edit("[NAME]",
                   [](QWidget& shown) {
                       Text(shown).selectAll();
                       QTest::keyClick(&Text(shown), Qt::Key_Delete);
                       EXPECT_FALSE(CanConfirm(shown));
                       EXPECT_TRUE(Part<QLabel>(shown, "finding").text().startsWith("An empty"));
                       QTest::keyClick(&shown, Qt::Key_Escape);
                   }),
              "");
}

TEST_F(ExpressionEditorTest, ReturnsAnUntouchedTextByteForByte) {
    const std::string odd =
        "a\r\nb\tc\xC2\xA0"
        "d";
    EXPECT_EQ(Edit(odd, [](QWidget& shown) { QTest::keyClick(&Text(shown), Qt::Key_Return); }),
              odd);
}

TEST_F(ExpressionEditorTest, WorksWithoutATable) {
    table_ = nullptr;
    EXPECT_EQ(Edit("$$ROW",
                   [](QWidget& shown) {
                       EXPECT_TRUE(Texts(shown).isEmpty());
                       QTest::keyClicks(&Text(shown), "[NAME]");
                       EXPECT_FALSE(CanConfirm(shown));
                       QTest::keyClick(&shown, Qt::Key_Escape);
                   }),
              "");
}

}  // namespace

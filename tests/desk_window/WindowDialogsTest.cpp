#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <tuple>

#include "desk/window/WindowDialogs.h"
#include "support/Widgets.h"

namespace {

using host::MessageAnswer;
using support::Part;
using support::WhenModal;

desk::WindowDialogs Dialogs() {
    return desk::WindowDialogs([] { return nullptr; });
}

TEST(WindowDialogs, ShowsMessagesByTheirStyle) {
    const std::tuple<std::int32_t, QMessageBox::Icon, Qt::Key, MessageAnswer> cases[] = {
        {host::kStopOk, QMessageBox::Critical, Qt::Key_Return, MessageAnswer::Ok},
        {host::kInformationOk, QMessageBox::Information, Qt::Key_Escape, MessageAnswer::Ok},
        {host::kWarningOk, QMessageBox::Warning, Qt::Key_Return, MessageAnswer::Ok},
        {host::kYesNo, QMessageBox::Question, Qt::Key_Return, MessageAnswer::Yes},
        {host::kYesNo, QMessageBox::Question, Qt::Key_N, MessageAnswer::No},
        {host::kYesNo, QMessageBox::Question, Qt::Key_Escape, MessageAnswer::No}};
    for (const auto& [style, icon, key, answer] : cases) {
        WhenModal([style = style, icon = icon, key = key](QWidget& shown) {
            auto& box = dynamic_cast<QMessageBox&>(shown);
            EXPECT_EQ(box.windowTitle(), "A <b>title</b>");
            EXPECT_EQ(box.text(), "<b>First</b> & last\n\nline");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.buttons().size(), style == host::kYesNo ? 2 : 1);
            QTest::keyClick(&box, key, key == Qt::Key_N ? Qt::AltModifier : Qt::NoModifier);
        });
        EXPECT_EQ(Dialogs().MessageBox(
                      {"A <b>title</b>", "<b>First</b> & last\r\n\r\nline", style, nullptr}),
                  answer);
    }
}

TEST(WindowDialogs, ShowsAFailureWithItsFactsAndItsStackToCopy) {
    host::Failure failure(host::kFailureUnspecified, "here", "There is no <b>field</b> Foo.");
    failure.AddFact("column", "Listing");
    std::string text = "Stack\r\n";
    for (int i = 0; i < 500; ++i) text += "\tProcedure " + std::to_string(i) + "\r\n";
    WhenModal([&](QWidget& shown) {
        EXPECT_EQ(Part<QLabel>(shown, "cause").text(), "There is no <b>field</b> Foo.");
        EXPECT_EQ(Part<QLabel>(shown, "cause").textFormat(), Qt::PlainText);
        QStringList labels;
        for (const auto* label : shown.findChildren<QLabel*>()) labels << label->text();
        EXPECT_TRUE(labels.contains("column:") && labels.contains("Listing"));
        const QString all = QString::fromStdString(text).replace("\r\n", "\n");
        EXPECT_EQ(Part<QPlainTextEdit>(shown, "text").toPlainText(), all);
        const QSize room = shown.screen()->availableSize();
        EXPECT_TRUE(shown.width() <= room.width() && shown.height() <= room.height());
        for (auto* button : shown.findChildren<QPushButton*>())
            if (button->text().startsWith("Copy")) button->click();
        EXPECT_EQ(QApplication::clipboard()->text(), all);
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    EXPECT_EQ(Dialogs().MessageBox({"Unexpected Program Error", text, host::kWarningOk, &failure}),
              MessageAnswer::Ok);
}

TEST(WindowDialogs, TellsAnEmptyAnswerFromNone) {
    const std::pair<std::vector<Qt::Key>, std::optional<std::string>> cases[] = {
        {{Qt::Key_R, Qt::Key_Return}, "r"},
        {{Qt::Key_Return}, "Old"},
        {{Qt::Key_Backspace, Qt::Key_Return}, ""},
        {{Qt::Key_R, Qt::Key_Escape}, std::nullopt}};
    for (const auto& [keys, answer] : cases) {
        WhenModal([keys = keys](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle(), "Name");
            EXPECT_EQ(shown.findChild<QLabel*>()->textFormat(), Qt::PlainText);
            auto* edit = shown.findChild<QLineEdit*>();
            for (const Qt::Key key : keys) QTest::keyClick(edit, key);
        });
        EXPECT_EQ(Dialogs().InputBox("New <i>column</i>", "Name", "Old"), answer);
    }
}

TEST(WindowDialogs, LieOverADialogThatIsOpen) {
    QDialog sheet;
    WhenModal([&](QWidget&) {
        WhenModal([&](QWidget& message) {
            EXPECT_EQ(message.parentWidget(), &sheet);
            QTest::keyClick(&message, Qt::Key_Return);
        });
        Dialogs().MessageBox({"Title", "Text", host::kStopOk, nullptr});
        sheet.reject();
    });
    sheet.exec();
}

}  // namespace

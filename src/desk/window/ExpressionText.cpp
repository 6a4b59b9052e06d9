#include "desk/window/ExpressionText.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpression>

#include "desk/window/WidgetText.h"

namespace desk {

ExpressionText::ExpressionText(const std::string& text, QWidget* parent)
    : QPlainTextEdit(parent), first_(text) {
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
    setPlainText(ToQt(text));
    firstShown_ = toPlainText();
    moveCursor(QTextCursor::End);
}

std::string ExpressionText::Text() const {
    const QString shown = toPlainText();
    return shown == firstShown_ ? first_ : FromQt(shown);
}

void ExpressionText::Insert(const QString& text) {
    insertPlainText(text);
    setFocus();
}

void ExpressionText::Mark(std::size_t begin, std::size_t length) {
    QList<QTextEdit::ExtraSelection> marks;
    if (length > 0) {
        // Positions in the document are in UTF-16 units.
        const std::string text = FromQt(toPlainText());
        const auto from = static_cast<int>(ToQt(text.substr(0, begin)).size());
        const auto count = static_cast<int>(ToQt(text.substr(begin, length)).size());
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(document());
        mark.cursor.setPosition(from);
        mark.cursor.setPosition(from + count, QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(Qt::red);
        marks << mark;
    }
    setExtraSelections(marks);
}

QSize ExpressionText::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * 4};
}

void ExpressionText::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void ExpressionText::insertFromMimeData(const QMimeData* source) {
    static const QRegularExpression lineEnds("[\\r\\n\\x{2028}\\x{2029}]+");
    insertPlainText(source->text().replace(lineEnds, " "));
}

}  // namespace desk

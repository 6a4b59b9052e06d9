#pragma once

#include <QPlainTextEdit>

namespace desk {

/// The text box for an expression: a text in one paragraph, wrapped, with the part at fault
/// underlined. Tab and Return belong to the dialog.
class ExpressionText : public QPlainTextEdit {
public:
    ExpressionText(const std::string& text, QWidget* parent);

    /// The text as it came, to the byte, while nothing has been edited.
    std::string Text() const;
    void Insert(const QString& text);
    /// Underlines a part, in bytes of the text; nothing for a length of 0.
    void Mark(std::size_t begin, std::size_t length);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    std::string first_;
    QString firstShown_;
};

}  // namespace desk

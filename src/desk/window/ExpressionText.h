#pragma once

#include <QPlainTextEdit>

namespace desk {

/// Text box for an expression: one wrapped paragraph in which a fault can be underlined. Tab and
/// Return are left to the dialog.
class ExpressionText : public QPlainTextEdit {
public:
    ExpressionText(const std::string& text, QWidget* parent);

    /// Returns the initial text unchanged, to the byte, unless it was edited.
    std::string Text() const;
    void Insert(const QString& text);
    /// Underlines a part, given in bytes; removes the underline for a length of 0.
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

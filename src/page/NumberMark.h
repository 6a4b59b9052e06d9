#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QValidator>
#include <functional>

namespace gazetteer {

/// Marks a text box while its text is not accepted: a red frame and a tool tip, and below the box,
/// while it has the focus, a sentence. Does not restrict what can be typed. It is the validator of
/// the box, so that hasAcceptableInput() of the box answers whether the text is accepted.
class NumberMark final : public QValidator {
    Q_OBJECT

public:
    /// The form is the area that the sentence may cover.
    NumberMark(QLineEdit& box, QWidget& form, QString sentence,
               std::function<bool(const QString&)> accepts);

    State validate(QString& text, int& cursor) const override;
    bool eventFilter(QObject* box, QEvent* event) override;

private:
    void Update();
    void ShowSentence();

    QLineEdit& box_;
    QWidget& form_;
    QString sentence_;
    QString description_;  ///< What the box is, for those who hear it.
    std::function<bool(const QString&)> accepts_;
    QFrame* frame_;
    QPointer<QLabel> label_;  ///< Null while the sentence is not shown.
};

}  // namespace gazetteer

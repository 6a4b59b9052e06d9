#include "page/ControlValues.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "host/Failure.h"
#include "page/QtText.h"

namespace gazetteer {
namespace {

// A box of several lines normalises blanks and line ends of what it shows. What was put in is kept
// beside it; the boxes are read-only, so that nothing else changes their text.
constexpr char kWholeText[] = "wholeText";

QWidget* Find(const QWidget& form, const std::string& name) {
    return form.findChild<QWidget*>(ToQt(name));
}

}  // namespace

QWidget& ControlNamed(const QWidget& form, const std::string& name) {
    QWidget* control = Find(form, name);
    if (control == nullptr) control = Find(form, name + "_0");
    if (control != nullptr) return *control;
    throw host::Failure(host::kFailureNotFound, "gazetteer::ControlNamed",
                        "The form has no control \"" + name + "\".");
}

void ShowFlag(const QWidget& form, const std::string& control, bool value) {
    auto& first = dynamic_cast<QAbstractButton&>(ControlNamed(form, control));
    auto* second = dynamic_cast<QAbstractButton*>(Find(form, control + "_1"));
    if (second == nullptr)
        first.setChecked(value);
    else
        (value ? first : *second).setChecked(true);
}

bool ShownFlag(const QWidget& form, const std::string& control) {
    return dynamic_cast<QAbstractButton&>(ControlNamed(form, control)).isChecked();
}

void ShowText(const QWidget& form, const std::string& control, const std::string& text) {
    QWidget& widget = ControlNamed(form, control);
    if (auto* line = dynamic_cast<QLineEdit*>(&widget)) {
        line->setText(ToQt(text));
        line->setCursorPosition(0);
    } else if (auto* list = dynamic_cast<QComboBox*>(&widget)) {
        list->setCurrentIndex(
            list->findText(ToQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive));
    } else {
        widget.setProperty(kWholeText, ToQt(text));
        dynamic_cast<QPlainTextEdit&>(widget).setPlainText(ToQt(text));
    }
}

std::string ShownText(const QWidget& form, const std::string& control) {
    const QWidget& widget = ControlNamed(form, control);
    if (const auto* line = dynamic_cast<const QLineEdit*>(&widget)) return FromQt(line->text());
    if (const auto* list = dynamic_cast<const QComboBox*>(&widget))
        return FromQt(list->currentText());
    return FromQt(widget.property(kWholeText).toString());
}

}  // namespace gazetteer

#include "page/ControlValues.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "host/Failure.h"
#include "page/QtText.h"

namespace gazetteer {
namespace {

// What was put into a control that cannot show every text, kept beside it. A box of several lines
// normalises blanks and line ends; such boxes are read-only, so that nothing else changes their
// text. A drop-down list shows no selection for a text that it does not offer.
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
        return;
    }
    widget.setProperty(kWholeText, ToQt(text));
    if (auto* list = dynamic_cast<QComboBox*>(&widget)) {
        list->setCurrentIndex(
            list->findText(ToQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive));
    } else {
        dynamic_cast<QPlainTextEdit&>(widget).setPlainText(ToQt(text));
    }
}

std::string ShownText(const QWidget& form, const std::string& control) {
    const QWidget& widget = ControlNamed(form, control);
    if (const auto* line = dynamic_cast<const QLineEdit*>(&widget)) return FromQt(line->text());
    const auto* list = dynamic_cast<const QComboBox*>(&widget);
    if (list != nullptr && list->currentIndex() >= 0) return FromQt(list->currentText());
    return FromQt(widget.property(kWholeText).toString());
}

}  // namespace gazetteer

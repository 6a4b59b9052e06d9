#include "typesetting/KeyControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

#include "page/NumberMark.h"
#include "page/NumberTexts.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using Changed = std::function<void()>;

constexpr int kDigits = 9;  // Room in a box for a number, in digits.

QWidget* NewCheckBox(QWidget& form, const SettingText& text, const Changed& changed) {
    auto* box = new QCheckBox(text.label, &form);
    QObject::connect(box, &QCheckBox::toggled, box, changed);
    return box;
}

QWidget* NewList(QWidget& form, const TypesettingKey& key, const SettingText& text,
                 const Changed& changed) {
    auto* list = new QComboBox(&form);
    for (std::size_t i = 0; i < key.Choices().size(); ++i)
        list->addItem(text.words.at(i), QString(key.Choices()[i]));
    QObject::connect(list, &QComboBox::currentIndexChanged, list, changed);
    return list;
}

QWidget* NewNumber(QWidget& form, const TypesettingKey& key, const Changed& changed) {
    auto* box = new QSpinBox(&form);
    box->setRange(0, key.most);
    QObject::connect(box, &QSpinBox::valueChanged, box, changed);
    return box;
}

QLineEdit* NewBox(QWidget& form, const Changed& changed) {
    auto* box = new QLineEdit(&form);
    QObject::connect(box, &QLineEdit::textChanged, box, changed);
    return box;
}

QWidget* NewLength(QWidget& form, host::IHost& host, const Changed& changed) {
    auto* box = NewBox(form, changed);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(kDigits, u'0')) +
                       box->sizeHint().height());
    new NumberMark(*box, form, ToQt(RangeSentence(0.0, host.Locale())), NumberTest<double>(host));
    return box;
}

QWidget* NewText(QWidget& form, const SettingText& text, const Changed& changed) {
    auto* box = NewBox(form, changed);
    box->setPlaceholderText(text.words.front());
    return box;
}

QWidget* NewControl(QWidget& form, host::IHost& host, const TypesettingKey& key,
                    const SettingText& text, const Changed& changed) {
    switch (key.kind) {
        case ValueKind::Boolean:
            return NewCheckBox(form, text, changed);
        case ValueKind::Long:
            return NewNumber(form, key, changed);
        case ValueKind::Double:
            return NewLength(form, host, changed);
        default:
            return key.Choices().empty() ? NewText(form, text, changed)
                                         : NewList(form, key, text, changed);
    }
}

void ShowIn(QWidget& widget, bool value) {
    dynamic_cast<QCheckBox&>(widget).setChecked(value);
}
void ShowIn(QWidget& widget, std::int32_t value) {
    dynamic_cast<QSpinBox&>(widget).setValue(value);
}
void ShowIn(QWidget& widget, const std::string& value) {
    if (auto* list = qobject_cast<QComboBox*>(&widget))
        return list->setCurrentIndex(list->findData(ToQt(value)));
    auto& box = dynamic_cast<QLineEdit&>(widget);
    box.setText(ToQt(value));
    box.setCursorPosition(0);
}

void ReadFrom(const QWidget& widget, host::IHostLocale&, bool& value) {
    value = dynamic_cast<const QCheckBox&>(widget).isChecked();
}
void ReadFrom(const QWidget& widget, host::IHostLocale&, std::int32_t& value) {
    value = dynamic_cast<const QSpinBox&>(widget).value();
}
void ReadFrom(const QWidget& widget, host::IHostLocale& locale, double& value) {
    value =
        NumberIn<double>(FromQt(dynamic_cast<const QLineEdit&>(widget).text()), locale).value_or(0);
}
// A stored choice that the list does not offer stays until another is taken.
void ReadFrom(const QWidget& widget, host::IHostLocale&, std::string& value) {
    const auto* list = qobject_cast<const QComboBox*>(&widget);
    if (list == nullptr)
        value = FromQt(dynamic_cast<const QLineEdit&>(widget).text());
    else if (list->currentIndex() >= 0)
        value = FromQt(list->currentData().toString());
}

}  // namespace

KeyControl::KeyControl(QWidget& form, host::IHost& host, const TypesettingKey& key,
                       const SettingText& text, const std::function<void()>& changed)
    : key_(&key), text_(&text), widget_(NewControl(form, host, key, text, changed)) {
    widget_->setObjectName(key.name);
    widget_->setToolTip(text.toolTip);
    widget_->setAccessibleName(QString(text.label).remove('&').remove(':'));
    widget_->setAccessibleDescription(text.toolTip);
}

void KeyControl::Show(const Typesetting& typesetting, host::IHostLocale& locale) const {
    std::visit(
        [&]<class T>(T Typesetting::*field) {
            if constexpr (std::is_same_v<T, double>)
                ShowIn(*widget_, locale.FormatNumber(typesetting.*field));
            else
                ShowIn(*widget_, typesetting.*field);
        },
        key_->field);
}

void KeyControl::Read(Typesetting& typesetting, host::IHostLocale& locale) const {
    std::visit([&](auto field) { ReadFrom(*widget_, locale, typesetting.*field); }, key_->field);
}

}  // namespace gazetteer

#pragma once

#include <QWidget>
#include <functional>

#include "model/TypesettingKeys.h"
#include "typesetting/TypesettingTexts.h"

namespace gazetteer {

/// The control of one setting, of the kind that its key asks for: a check box, a list of choices, a
/// whole number, a length or a text. Its object name is that of the key.
class KeyControl {
public:
    /// Makes the control in the form; changed is called after each change by the user or by code.
    KeyControl(QWidget& form, host::IHost& host, const TypesettingKey& key, const SettingText& text,
               const std::function<void()>& changed);

    QWidget& Widget() const { return *widget_; }
    const SettingText& Text() const { return *text_; }

    void Show(const Typesetting& typesetting, host::IHostLocale& locale) const;
    /// A text that is not a valid number counts as the initial value.
    void Read(Typesetting& typesetting, host::IHostLocale& locale) const;

private:
    const TypesettingKey* key_;
    const SettingText* text_;
    QWidget* widget_;
};

}  // namespace gazetteer

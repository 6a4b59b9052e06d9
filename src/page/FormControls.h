#pragma once

#include <QWidget>

#include "host/Locale.h"
#include "model/ColumnProperties.h"
#include "model/Settings.h"

namespace gazetteer {

/// The controls that show one key each: of the gazetteer, and of the open column. Which control
/// shows which key is said once, in the tables of the implementation; filling and reading walk
/// them. Numbers are shown as their shortest text. A text that is no number, or none that fits, is
/// read as the key's default; the box keeps what was typed.
class FormControls {
public:
    /// Both must outlive this.
    FormControls(QWidget& form, host::IHostLocale& locale) : form_(form), locale_(locale) {}

    void Fill(const Settings& settings);
    void Read(Settings& settings) const;

    void Fill(const ColumnProperties& column);
    void Read(ColumnProperties& column) const;

private:
    QWidget& form_;
    host::IHostLocale& locale_;
};

}  // namespace gazetteer

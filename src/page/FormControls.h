#pragma once

#include <QWidget>

#include "host/Locale.h"
#include "page/FormEvents.h"

namespace gazetteer {

/// The controls that show one value each of a record: of the gazetteer (Settings) or of the open
/// column (ColumnProperties). Which control shows which value is said once, in the tables of the
/// implementation; filling, reading and the events walk them. Numbers are shown as their shortest
/// text. A text that is no number, or none that fits, is read as the value's default; the box keeps
/// what was typed.
template <class Record>
class FormControls {
public:
    /// Both must outlive this.
    FormControls(QWidget& form, host::IHostLocale& locale) : form_(form), locale_(locale) {}

    void Fill(const Record& record);
    void Read(Record& record) const;
    /// Calls the handler for every edit.
    void Connect(FormEvents& events, const FormEvents::Handler& handler) const;

private:
    QWidget& form_;
    host::IHostLocale& locale_;
};

}  // namespace gazetteer

#pragma once

#include <QWidget>

#include "host/Host.h"
#include "page/FormEvents.h"

namespace gazetteer {

/// Binds controls to the values of a record: the gazetteer (Settings) or the open column
/// (ColumnProperties). Tables in the implementation say which control shows which value; filling,
/// reading and events use them. Numbers are shown as their shortest text. A text that is not a
/// valid number is read as the value's default, stays in the box and is marked there.
template <class Record>
class FormControls {
public:
    /// Both references must outlive this. The locale is asked for at each use, because a host may
    /// replace it.
    FormControls(QWidget& form, host::IHost& host) : form_(form), host_(host) {}

    void Fill(const Record& record);
    void Read(Record& record) const;
    void Connect(FormEvents& events, const FormEvents::Handler& handler) const;

private:
    QWidget& form_;
    host::IHost& host_;
};

}  // namespace gazetteer

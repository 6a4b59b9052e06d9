#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "host/Host.h"

namespace gazetteer {

/// Connects handlers to the events of a form's controls. Each handler runs as a top procedure of
/// the failure convention (see ErrorHandling.h) named CONTROL_Event: Click of buttons, check boxes,
/// pairs of option buttons and lists; Change of text boxes; ItemCheck of lists with check boxes;
/// Paint of previews; Click or Change of drop-down lists. Changes made by code also cause events. A
/// list's Click is a change of the current row or a press on it.
class FormEvents {
public:
    using Handler = std::function<void()>;

    FormEvents(QWidget& form, host::IHost& host) : form_(form), host_(host) {}

    /// Throws if no control has the event.
    void Connect(const std::string& event, Handler handler);
    /// Throws if a control that a user can operate is neither connected nor in the list.
    void RequireAllBut(std::initializer_list<const char*> controls) const;

    /// While code fills controls, no handler is called except Paint. Initially true.
    bool IsPopulating() const { return isPopulating_; }
    void SetPopulating(bool isPopulating) { isPopulating_ = isPopulating; }

private:
    QWidget& form_;
    host::IHost& host_;
    bool isPopulating_ = true;
    std::vector<const QWidget*> connected_;
    QObject context_;  ///< Disconnects the handlers on destruction.
};

/// Sets IsPopulating while it exists.
class Populating {
public:
    explicit Populating(FormEvents& events) : events_(events), before_(events.IsPopulating()) {
        events.SetPopulating(true);
    }
    ~Populating() { events_.SetPopulating(before_); }
    Populating(const Populating&) = delete;
    Populating& operator=(const Populating&) = delete;

private:
    FormEvents& events_;
    bool before_;
};

}  // namespace gazetteer

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

/// The events of a form's controls. Each is a top procedure of the failure convention under its own
/// name, CONTROL_Event: Click of buttons, check boxes, pairs of option buttons and lists, Change of
/// text boxes, ItemCheck of lists with check boxes, Paint of previews; of a drop-down list it is
/// either word. Events come as well when code changes a control. The click of a list is another
/// current row, or a press on the current one.
class FormEvents {
public:
    using Handler = std::function<void()>;

    FormEvents(QWidget& form, host::IHost& host) : form_(form), host_(host) {}

    /// Fails where no control has the event.
    void Connect(const std::string& event, Handler handler);
    /// Fails for a control that a user can act on and that was not connected, but for these.
    void RequireAllBut(std::initializer_list<const char*> controls) const;

    /// Code is filling controls: no handler is called but those of Paint. True at first.
    bool IsPopulating() const { return isPopulating_; }
    void SetPopulating(bool isPopulating) { isPopulating_ = isPopulating; }

private:
    QWidget& form_;
    host::IHost& host_;
    bool isPopulating_ = true;
    std::vector<const QWidget*> connected_;
    QObject context_;  ///< Ends the connections.
};

/// Sets the flag for as long as it lives.
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

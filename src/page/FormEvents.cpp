#include "page/FormEvents.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "host/Failure.h"
#include "page/ControlValues.h"
#include "page/SymbolPreview.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

using Handler = FormEvents::Handler;

template <class... Kinds>
bool IsOneOf(const QWidget* widget) {
    return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

// Controls that a user can operate, and previews. Parts of composite controls have other types.
bool HasEvents(const QWidget* widget) {
    return IsOneOf<QCheckBox, QRadioButton, QPushButton, QComboBox, QLineEdit, QPlainTextEdit,
                   QListWidget, SymbolPreview>(widget);
}

// Reports a press on the current row, for which a list emits no signal.
class PressOnCurrentRow final : public QObject {
public:
    PressOnCurrentRow(QListWidget& list, Handler handler)
        : QObject(list.viewport()), list_(list), handler_(std::move(handler)) {
        list.viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject* viewport, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) {
            const QPointF place = static_cast<QMouseEvent*>(event)->position();
            const auto* row = list_.itemAt(place.toPoint());
            if (row != nullptr && row == list_.currentItem()) handler_();
        }
        return QObject::eventFilter(viewport, event);
    }

private:
    QListWidget& list_;
    Handler handler_;
};

void ConnectList(QListWidget& list, const std::string& event, QObject* context,
                 const Handler& act) {
    if (event == "ItemCheck") {
        QObject::connect(&list, &QListWidget::itemChanged, context, act);
        return;
    }
    QObject::connect(&list, &QListWidget::currentRowChanged, context, [act](int row) {
        if (row >= 0) act();
    });
    new PressOnCurrentRow(list, act);
}

void ConnectControl(QWidget* control, const std::string& event, QObject* context,
                    const Handler& act) {
    if (const auto* option = qobject_cast<QRadioButton*>(control))
        QObject::connect(option, &QRadioButton::toggled, context, [act](bool chosen) {
            if (chosen) act();
        });
    else if (const auto* check = qobject_cast<QCheckBox*>(control))
        QObject::connect(check, &QCheckBox::toggled, context, act);
    else if (const auto* button = qobject_cast<QPushButton*>(control))
        QObject::connect(button, &QPushButton::clicked, context, act);
    else if (const auto* choice = qobject_cast<QComboBox*>(control))
        QObject::connect(choice, &QComboBox::currentIndexChanged, context, [act](int entry) {
            if (entry >= 0) act();
        });
    else if (const auto* line = qobject_cast<QLineEdit*>(control))
        QObject::connect(line, &QLineEdit::textChanged, context, act);
    else if (const auto* text = qobject_cast<QPlainTextEdit*>(control))
        QObject::connect(text, &QPlainTextEdit::textChanged, context, act);
    else if (auto* list = qobject_cast<QListWidget*>(control))
        ConnectList(*list, event, context, act);
    else if (const auto* preview = qobject_cast<SymbolPreview*>(control))
        QObject::connect(preview, &SymbolPreview::Paint, context, act);
}

[[noreturn]] void Fail(const std::string& message) {
    throw host::Failure(host::kFailureNotFound, "gazetteer::FormEvents", message);
}

}  // namespace

void FormEvents::Connect(const std::string& event, Handler handler) {
    const std::size_t cut = event.rfind('_');
    const std::string kind = event.substr(cut + 1);
    const Handler act = [this, event, isPaint = kind == "Paint", handler = std::move(handler)] {
        try {
            if (isPaint || !isPopulating_) handler();
        } catch (...) {
            ShowAtTop(host_.Dialogs(), event.c_str(), kFormLabel);
        }
    };
    bool found = false;
    for (const char* ofPair : {"", "_0", "_1"}) {
        auto* control = form_.findChild<QWidget*>(ToQt(event.substr(0, cut) + ofPair));
        if (!HasEvents(control)) continue;
        ConnectControl(control, kind, &context_, act);
        connected_.push_back(control);
        found = true;
    }
    if (!found) Fail("No control raises the event " + event + ".");
}

void FormEvents::RequireAllBut(std::initializer_list<const char*> controls) const {
    for (const auto* control : form_.findChildren<const QWidget*>()) {
        const std::string name = FromQt(control->objectName());
        if (HasEvents(control) && std::ranges::find(connected_, control) == connected_.end() &&
            std::ranges::find(controls, name) == controls.end())
            Fail("The events of the control " + name + " are not handled.");
    }
}

}  // namespace gazetteer

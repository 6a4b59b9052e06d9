#include "page/HandlerWiring.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "host/Failure.h"
#include "page/SymbolPreview.h"

namespace gazetteer {
namespace {

// A handler of the form, ready to be called.
class Handler {
public:
    Handler(QWidget& form, const QMetaMethod& method) : form_(&form), method_(method) {}

    void operator()() const { method_.invoke(form_, Qt::DirectConnection); }
    void operator()(int index) const {
        if (method_.parameterCount() == 0)
            (*this)();
        else
            method_.invoke(form_, Qt::DirectConnection, Q_ARG(int, index));
    }

private:
    QWidget* form_;
    QMetaMethod method_;
};

void ConnectOption(QRadioButton& option, int index, const Handler& handler) {
    QObject::connect(&option, &QRadioButton::toggled, [handler, index](bool chosen) {
        if (chosen) handler(index);
    });
}

void ConnectList(QListWidget& list, const QString& event, const Handler& handler) {
    if (event == "ItemCheck") {
        QObject::connect(&list, &QListWidget::itemChanged,
                         [handler, &list](QListWidgetItem* item) { handler(list.row(item)); });
    } else {
        QObject::connect(&list, &QListWidget::currentRowChanged, [handler](int row) {
            if (row >= 0) handler();
        });
    }
}

bool ConnectControl(QWidget* control, const QString& event, const Handler& handler) {
    const auto act = [handler] { handler(); };
    if (const auto* check = qobject_cast<QCheckBox*>(control))
        QObject::connect(check, &QCheckBox::toggled, act);
    else if (const auto* button = qobject_cast<QAbstractButton*>(control))
        QObject::connect(button, &QAbstractButton::clicked, act);
    else if (const auto* choice = qobject_cast<QComboBox*>(control))
        QObject::connect(choice, &QComboBox::currentIndexChanged, act);
    else if (const auto* line = qobject_cast<QLineEdit*>(control))
        QObject::connect(line, &QLineEdit::textChanged, act);
    else if (const auto* text = qobject_cast<QPlainTextEdit*>(control))
        QObject::connect(text, &QPlainTextEdit::textChanged, act);
    else if (auto* list = qobject_cast<QListWidget*>(control))
        ConnectList(*list, event, handler);
    else if (const auto* preview = qobject_cast<SymbolPreview*>(control))
        QObject::connect(preview, &SymbolPreview::Paint, act);
    else
        return false;
    return true;
}

bool ConnectPair(QWidget& form, const QString& name, const Handler& handler) {
    bool found = false;
    for (int index = 0; index < 2; ++index) {
        auto* option = form.findChild<QRadioButton*>(name + '_' + QString::number(index));
        if (option == nullptr) continue;
        ConnectOption(*option, index, handler);
        found = true;
    }
    return found;
}

}  // namespace

void ConnectHandlers(QWidget& form) {
    const QMetaObject& meta = *form.metaObject();
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const QString name = QString::fromLatin1(method.name());
        const qsizetype cut = name.lastIndexOf('_');
        if (cut < 0 || name.startsWith("Form_")) continue;
        const QString control = name.left(cut);
        const Handler handler(form, method);
        if (ConnectPair(form, control, handler)) continue;
        if (ConnectControl(form.findChild<QWidget*>(control), name.mid(cut + 1), handler)) continue;
        throw host::Failure(host::kFailureNotFound, "gazetteer::ConnectHandlers",
                            "No control raises the event " + name.toStdString() + ".");
    }
}

}  // namespace gazetteer

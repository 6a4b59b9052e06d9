#include "app/window/layers/Rows.h"

#include <QComboBox>
#include <QFormLayout>

#include "app/window/layers/Disclosure.h"

namespace app {

QComboBox* ChoiceOf(const char* name, const std::vector<std::pair<const char*, const char*>>& texts,
                    QWidget* parent) {
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    for (const auto& [text, word] : texts) list->addItem(text, word);
    return list;
}

void AddMore(QFormLayout& form, Disclosure& more, const QString& text, QWidget* field) {
    form.addRow(text, field);
    more.Add(field);
    if (QWidget* const label = form.labelForField(field)) more.Add(label);
}

}  // namespace app

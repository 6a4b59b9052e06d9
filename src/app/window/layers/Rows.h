#pragma once

#include <QString>
#include <utility>
#include <vector>

class QComboBox;
class QFormLayout;
class QWidget;

namespace app {

class Disclosure;

/// Returns a list of texts, each with the word that the options have for it.
QComboBox* ChoiceOf(const char* name, const std::vector<std::pair<const char*, const char*>>& texts,
                    QWidget* parent);

/// Adds a row with a label, or with an empty text without one, that the disclosure shows.
void AddMore(QFormLayout& form, Disclosure& more, const QString& text, QWidget* field);

}  // namespace app

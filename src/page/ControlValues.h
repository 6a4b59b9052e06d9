#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

#include "host/PropertySet.h"

/// Reading and writing the form's controls and lists. Filling a list calls no handler.
namespace gazetteer {

inline QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// Returns the control, or the first of its pair of option buttons. Throws if there is none.
QWidget& ControlNamed(const QWidget& form, const std::string& name);

/// For a check box, or for a pair of option buttons of which the first means true.
void ShowFlag(const QWidget& form, const std::string& control, bool value);
bool ShownFlag(const QWidget& form, const std::string& control);

/// For a text box or a drop-down list. A list that does not offer the text shows no selection and
/// keeps the text until the user selects an entry.
void ShowText(const QWidget& form, const std::string& control, const std::string& text);
std::string ShownText(const QWidget& form, const std::string& control);

/// Replaces the entries and selects none.
void FillList(QComboBox& list, const std::vector<std::string>& entries);

/// Replaces the rows and selects the first one, if any.
void FillList(QListWidget& list, const std::vector<std::string>& rows);
/// The same with a check mark on each row, from the Booleans stored under the names.
void FillCheckedList(QListWidget& list, const host::IHostPropertySet& marks);

/// Text of the selected row; empty if none.
std::string SelectedText(const QListWidget& list);
std::vector<std::string> RowTexts(const QListWidget& list);

enum class Movement { Up, Down, Top, Bottom };

/// Moves the selected row with its check mark and keeps it selected. Has no effect at the target.
void MoveSelectedRow(QListWidget& list, Movement movement);

}  // namespace gazetteer

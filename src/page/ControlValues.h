#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

#include "host/PropertySet.h"

/// What the form's controls and lists show. Filling a list calls no handler.
namespace gazetteer {

inline QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// The control of that name, or the first of its pair of option buttons; must be there.
QWidget& ControlNamed(const QWidget& form, const std::string& name);

/// A check box; or a pair of option buttons, of which the first stands for true.
void ShowFlag(const QWidget& form, const std::string& control, bool value);
bool ShownFlag(const QWidget& form, const std::string& control);

/// A text box, or a drop-down list, which shows no selection for a text that it does not offer and
/// keeps it until one is made.
void ShowText(const QWidget& form, const std::string& control, const std::string& text);
std::string ShownText(const QWidget& form, const std::string& control);

/// Replaces the entries; none is selected.
void FillList(QComboBox& list, const std::vector<std::string>& entries);

/// Replaces the rows and selects the first one, if there is one.
void FillList(QListWidget& list, const std::vector<std::string>& rows);
/// The same with a check mark on each row, from the booleans stored under the names.
void FillCheckedList(QListWidget& list, const host::IHostPropertySet& marks);

/// Text of the selected row; empty without one.
std::string SelectedText(const QListWidget& list);
std::vector<std::string> RowTexts(const QListWidget& list);

/// Where a row goes.
enum class Movement { Up, Down, Top, Bottom };

/// Moves the selected row, with its check mark, and keeps it selected. A row that is there already
/// stays.
void MoveSelectedRow(QListWidget& list, Movement movement);

}  // namespace gazetteer

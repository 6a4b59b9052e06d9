#pragma once

#include <QComboBox>
#include <QListWidget>
#include <string>
#include <vector>

#include "host/PropertySet.h"

/// Filling and rearranging the form's lists. Filling tells no handler.
namespace gazetteer {

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

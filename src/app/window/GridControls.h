#pragma once

#include <QString>

class QFormLayout;
class QLineEdit;
class QScrollArea;
class QSpinBox;
class QWidget;

namespace app {

/// Returns a box for a number of rows or columns; 0 is shown as "none".
QSpinBox* Count(const char* name, int value, QWidget* parent);

/// Returns a line for labels such as "A..H".
QLineEdit* LabelsLine(const char* name, QWidget* parent);

/// Returns the labels of a number of rows or columns that are given none, as "A..H" or "1..10".
QString DefaultLabels(int count, bool areLetters);

/// Adds a row with a number of squares and their labels.
void AddSide(QFormLayout& form, const char* text, QSpinBox* count, QLineEdit* labels);

/// Returns an area that scrolls the controls where the window is low.
QScrollArea* Scrolled(QWidget* controls, QWidget* parent);

}  // namespace app

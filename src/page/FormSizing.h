#pragma once

#include <QWidget>

namespace gazetteer {

/// Gives the form the size of its tab control and a margin beside and below it, and its parts the
/// least sizes at which every text of every tab, also of those that are not on show, stands in
/// full. Works from the fonts and the style in force: call it at load and again when one of them
/// changes. The form grows with its window, but is never smaller than this.
void FitFormToTabs(QWidget& form);

}  // namespace gazetteer

#pragma once

#include <QWidget>

namespace gazetteer {

/// Sets the form's size to its tab control plus margins, and the minimum sizes of its parts, so
/// that all texts on all tabs are shown in full; on a low screen it is wide and dense. Depends on
/// fonts and style: call it at load and after a change of either. The form may grow with its window
/// but is never smaller.
void FitFormToTabs(QWidget& form);

}  // namespace gazetteer

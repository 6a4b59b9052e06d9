#pragma once

#include <QIcon>

namespace app {

/// Returns an icon of the desktop's theme by its standard name. If the theme lacks it, returns one
/// of the program's icons in the colours of the palette.
QIcon ThemeIcon(const QString& name);

QIcon ProgramIcon();

}  // namespace app

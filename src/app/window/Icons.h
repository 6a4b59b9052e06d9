#pragma once

#include <QIcon>

namespace app {

/// Returns an icon of the desktop's theme by its standard name or, where the theme has none, an
/// icon of the program in the colours of the palette.
QIcon ThemeIcon(const QString& name);

/// Returns the icon of the program.
QIcon ProgramIcon();

}  // namespace app

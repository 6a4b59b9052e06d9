#pragma once

#include <QIcon>

namespace app {

/// An icon of the desktop's theme by its standard name; one of our own, in the colours of the
/// palette, where the theme has none.
QIcon ThemeIcon(const QString& name);

/// The program's own icon.
QIcon ProgramIcon();

}  // namespace app

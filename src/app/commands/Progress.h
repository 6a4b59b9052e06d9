#pragma once

#include <string>

#include "desk/session/Application.h"

/// Progress of a run on standard error, only when that is a terminal: the status bar's text on one
/// line, with a turning sign while the progress animation plays.
namespace app {

/// Listeners that show the status bar on the terminal; without one they do nothing.
desk::SessionListeners ProgressListeners();

/// Takes the line of progress away, before something else is written.
void ClearProgress();

}  // namespace app

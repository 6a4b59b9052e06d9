#pragma once

#include <memory>
#include <string>

#include "desk/session/Desk.h"

namespace fuzz {

/// Dialogs that answer Yes and keep nothing. A failure that they are shown must be the host's or
/// the gazetteer's own: one made of another exception ends the process.
host::Ref<host::IHostDialogs> SilentDialogs();

/// The desk that the inputs of a program share, in American English.
const std::shared_ptr<desk::Desk>& SharedDesk();

/// A dBase table with the two fields that a gazetteer wants and one record.
std::string SmallTable();

}  // namespace fuzz

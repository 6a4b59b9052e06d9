#pragma once

#include <memory>
#include <string>

#include "desk/session/Desk.h"

namespace fuzz {

/// Dialogs that answer Yes. A failure shown must come from the desk or the gazetteer: one made from
/// another exception ends the process.
host::Ref<host::IHostDialogs> SilentDialogs();

/// The desk shared by all inputs of a program; its locale is American English.
const std::shared_ptr<desk::Desk>& SharedDesk();

/// Returns a dBase table with the two fields that a gazetteer needs and one record.
std::string SmallTable();

}  // namespace fuzz

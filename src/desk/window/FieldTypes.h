#pragma once

#include <QString>

#include "desk/tables/DbfSchema.h"
#include "host/Tables.h"

namespace desk {

/// The type of a field for the user's eye: "Text (40)", "Number (8.2)", "Date".
QString TypeInWords(const DbfField& field);
QString TypeInWords(const host::IHostField& field);

}  // namespace desk

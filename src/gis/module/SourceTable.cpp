#include "gis/module/SourceTable.h"

#include "host/Failure.h"

namespace gis {

void FailReadOnly(const std::string& path) {
    throw host::Failure(host::kFailureUnspecified, "SourceTable",
                        path + " is a table that is only read here.");
}

}  // namespace gis

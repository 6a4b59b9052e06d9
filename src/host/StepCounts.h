#pragma once

#include <cstdint>

#include "host/Object.h"

namespace host {

/// Optional on a status bar: how far the stage has come whose text is set next.
struct IHostStepCounts : virtual IHostObject {
    /// The step at hand, from 1, of how many; 0: unknown.
    virtual void SetStep(std::int64_t step, std::int64_t steps) = 0;
};

/// Optional on a table: the number of its rows, without reading them. A cursor may skip some.
struct IHostRowCount : virtual IHostObject {
    virtual std::int64_t CountRows() const = 0;
};

}  // namespace host

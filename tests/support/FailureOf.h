#pragma once

#include "host/Failure.h"

namespace support {

/// What an action fails with; a failure without a description where it does not fail.
template <class Action>
host::Failure FailureOf(const Action& action) {
    try {
        action();
    } catch (const host::Failure& failure) {
        return failure;
    }
    return {0, "", ""};
}

}  // namespace support

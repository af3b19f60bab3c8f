#pragma once

#include "base/RuntimeError.h"

namespace testing_support {

// The number of the error that the action raises, or 0.
template <class Action>
int ErrorOf(Action action) {
    try {
        action();
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace testing_support

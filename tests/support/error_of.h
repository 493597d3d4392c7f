#pragma once

#include "platform/base/runtime_error.h"

namespace vandrel::test {

// The number of the RuntimeError that the action raises; 0 when it succeeds.
template <typename Action> int errorOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace vandrel::test

#pragma once

#include "platform/base/runtime_error.h"

namespace vandrel::test {

// The number of the error that the action ends with, 0 when it succeeds.
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

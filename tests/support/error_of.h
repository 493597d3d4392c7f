#pragma once

#include "platform/base/runtime_error.h"

#include <string>

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

// Its description; "no error" when the action succeeds.
template <typename Action> std::wstring errorTextOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.description();
    }
    return L"no error";
}

} // namespace vandrel::test

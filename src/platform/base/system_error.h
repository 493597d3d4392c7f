#pragma once

#include "platform/base/runtime_error.h"

namespace vandrel {

// The run-time error for an error code of the system (GetLastError).
RuntimeError runtimeErrorOf(unsigned long systemError);

// Throws the run-time error for the calling thread's last error.
[[noreturn]] void raiseLastError();

// Stops the system from showing error boxes of its own, such as one that asks for a disk: the program
// reports these errors itself. Applies to the whole process.
void keepSystemBoxesAway();

} // namespace vandrel

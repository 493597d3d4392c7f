#pragma once

#include "platform/base/runtime_error.h"

namespace vandrel {

// The run-time error that stands for an error code of the system (GetLastError).
RuntimeError runtimeErrorOf(unsigned long systemError);

// Throws the run-time error for the calling thread's last error.
[[noreturn]] void raiseLastError();

// Keeps the system from asking in boxes of its own, such as for a disk, what the program tells as an error.
// For the whole process.
void keepSystemBoxesAway();

} // namespace vandrel

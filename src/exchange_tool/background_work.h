#pragma once

#include "exchange_tool/progress.h"

#include <windows.h>

#include <functional>
#include <string>

namespace vandrel {

// Does the work on a thread of its own and returns when that is done. If it takes more than a moment, a box
// with a progress bar says what is being done and lets the user cancel the work, which then raises 32755.
// Throws what the work throws, or RuntimeError (7) if the system has no thread left.
void workWithProgress(HWND owner, const std::wstring& title, const std::wstring& doing,
                      const std::function<void(Progress& progress)>& work);

} // namespace vandrel

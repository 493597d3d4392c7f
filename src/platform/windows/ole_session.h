#pragma once

#include "platform/base/runtime_error.h"

#include <windows.h>
#include <ole2.h>

namespace vandrel {

// OLE for the calling thread, as long as one of these lives.
class OleSession {
  public:
    OleSession()
    {
        if (FAILED(OleInitialize(nullptr))) throw RuntimeError(error_number::outOfMemory);
    }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
    ~OleSession() { OleUninitialize(); }
};

} // namespace vandrel

#pragma once

#include "platform/base/runtime_error.h"

#include <windows.h>
#include <ole2.h>

namespace vandrel {

// Initialises OLE on the calling thread for as long as it lives.
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

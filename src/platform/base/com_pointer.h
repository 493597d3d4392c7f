#pragma once

#include "platform/base/handle.h"

#include <objbase.h>

namespace vandrel {

// Owns one reference to a COM object.
template <typename Interface> void releaseReference(Interface* object) { object->Release(); }
template <typename Interface>
using ComPointer = UniqueHandle<Interface*, releaseReference<Interface>, nullHandle<Interface*>>;

// A new object of a class of the system that is loaded into this process. Empty if there is none, for example
// because COM is not initialised on this thread.
template <typename Interface> ComPointer<Interface> systemObject(REFCLSID classId, REFIID interfaceId)
{
    void* object = nullptr;
    if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object))) return {};
    return ComPointer<Interface>(static_cast<Interface*>(object));
}

} // namespace vandrel

#include "platform/base/system_error.h"

#include <windows.h>

namespace vandrel {

RuntimeError runtimeErrorOf(unsigned long systemError)
{
    namespace e = error_number;
    switch (systemError) {
    case ERROR_FILE_NOT_FOUND: return RuntimeError(e::fileNotFound);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY: return RuntimeError(e::pathNotFound);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE: return RuntimeError(e::permissionDenied);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_CANNOT_MAKE: return RuntimeError(e::pathFileAccess);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return RuntimeError(e::diskFull);
    case ERROR_NOT_READY: return RuntimeError(e::diskNotReady);
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return RuntimeError(e::fileAlreadyExists);
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE: return RuntimeError(e::badFileName);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY: return RuntimeError(e::outOfMemory);
    case ERROR_BAD_EXE_FORMAT: return RuntimeError(e::invalidCall);
    default: return RuntimeError(e::deviceError);
    }
}

void keepSystemBoxesAway() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

void raiseLastError() { throw runtimeErrorOf(GetLastError()); }

} // namespace vandrel

#include "platform/base/delay_loaded.h"

#include "platform/base/system_error.h"

#include <windows.h>

namespace vandrel {

void loadDelayedLibraries()
{
    for (const wchar_t* const name : {VANDREL_DELAY_LOADED}) { // from the list in src/CMakeLists.txt
        if (LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32) == nullptr) raiseLastError();
    }
}

} // namespace vandrel

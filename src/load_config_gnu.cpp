#include <windows.h>

namespace {

constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 systemFolderOnly()
{
    IMAGE_LOAD_CONFIG_DIRECTORY64 config{};
    config.Size = sizeof config;
    config.Reserved1 =
        LOAD_LIBRARY_SEARCH_SYSTEM32; // the flags for dependent DLLs, since Windows 10, version 1607
    return config;
}

} // namespace

// The DLLs that the program is linked with are loaded before its first line runs. Without this the system
// would look for them in the program's folder first, where anything may lie. The linker does not
// enter it in the headers; cmake/enter-load-config does.
extern "C" {
extern const IMAGE_LOAD_CONFIG_DIRECTORY64 _load_config_used;
[[gnu::section(".loadcfg")]] constinit const IMAGE_LOAD_CONFIG_DIRECTORY64 _load_config_used =
    systemFolderOnly();
}

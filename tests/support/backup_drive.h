#pragma once

#include "platform/base/handle.h"
#include "tests/support/wine.h"

#include <windows.h>

#include <winioctl.h>
#include <cstring>
#include <string>
#include <vector>

namespace vandrel::test {

// A drive letter that leads to a folder, for one test.
class FolderDrive {
  public:
    explicit FolderDrive(const std::wstring& folder)
    {
        if (runsUnderWine()) define(fixedDrive, folder);
        else DefineDosDeviceW(0, letter, folder.c_str());
    }
    FolderDrive(const FolderDrive&) = delete;
    FolderDrive& operator=(const FolderDrive&) = delete;
    ~FolderDrive()
    {
        if (runsUnderWine()) define(noDrive, {});
        else DefineDosDeviceW(DDD_REMOVE_DEFINITION, letter, nullptr);
    }

    bool works() const { return GetFileAttributesW(root) != INVALID_FILE_ATTRIBUTES; }

    static constexpr const wchar_t* letter = L"R:";
    static constexpr const wchar_t* root = L"R:\\";

  private:
    static constexpr ULONG noDrive = DRIVE_NO_ROOT_DIR;
    static constexpr ULONG fixedDrive = DRIVE_FIXED;

    // Wine makes its drives through its mount manager, not through the system call.
    struct UnixDrive {
        ULONG size;
        ULONG type;
        ULONG fileSystem;
        DWORD serial;
        ULONGLONG device;
        WCHAR letter;
        USHORT mountPoint;
        USHORT deviceName;
        USHORT label;
    };
    static void define(ULONG type, const std::wstring& folder)
    {
        using UnixName = char*(CDECL*)(const wchar_t*);
        const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
        std::string path;
        if (!folder.empty()) {
            char* const name = unixName(folder.c_str());
            path = name;
            HeapFree(GetProcessHeap(), 0, name);
        }
        UnixDrive drive{};
        drive.size = static_cast<ULONG>(sizeof drive + path.size() + 1);
        drive.type = type;
        drive.letter = letter[0];
        drive.mountPoint = sizeof drive;
        std::vector<char> input(drive.size);
        std::memcpy(input.data(), &drive, sizeof drive);
        std::memcpy(input.data() + sizeof drive, path.data(), path.size());
        const FileHandle manager(CreateFileW(L"\\\\.\\MountPointManager", GENERIC_READ | GENERIC_WRITE,
                                             FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                             nullptr));
        DWORD returned = 0;
        DeviceIoControl(manager.get(),
                        CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS),
                        input.data(), drive.size, nullptr, 0, &returned, nullptr);
    }
};

} // namespace vandrel::test

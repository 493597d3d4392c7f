#pragma once

#include <windows.h>
#include <psapi.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace vandrel::test {

// The system resources that this process holds.
struct Resources {
    std::size_t drawing = 0; // fonts, brushes, bitmaps, device contexts
    std::size_t user = 0;    // windows, menus, icons, cursors, tables of shortcut keys
    std::size_t handles = 0; // files, keys, events, threads
    std::size_t bytes = 0;   // private memory
};

// How much more there may be after thousands of rounds than before. The program leaves nothing behind, so
// this is the system's share: it keeps a device context, a cursor or an event for reuse, and its heaps are
// never packed in quite the same way. One object left behind in every three hundredth of 2,000 rounds
// exceeds the counts, and a kilobyte in each of them exceeds the memory.
inline constexpr Resources tolerance{.drawing = 5, .user = 5, .handles = 5, .bytes = 2U << 20};

namespace counting {

// Wine answers 0 when asked how many there are. There the handles are found one by one, by their places in
// the table.
template <typename Handle> Handle at(std::uintptr_t place) { return reinterpret_cast<Handle>(place); }

inline std::size_t drawingObjects()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); counted != 0)
        return counted;
    std::size_t count = 0;
    for (std::uintptr_t place = 1; place < 0x4000; ++place) {
        if (GetObjectType(at<HGDIOBJ>(place)) != 0) ++count;
    }
    return count;
}

inline BOOL CALLBACK countOne(HWND, LPARAM count)
{
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}
inline BOOL CALLBACK countWithChildren(HWND window, LPARAM count)
{
    EnumChildWindows(window, countOne, count);
    return countOne(window, count);
}

inline std::size_t windows()
{
    std::size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWithChildren, reinterpret_cast<LPARAM>(&count));
    for (HWND hidden = nullptr;
         (hidden = FindWindowExW(HWND_MESSAGE, hidden, nullptr, nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(hidden, nullptr) == GetCurrentThreadId()) ++count;
    }
    return count;
}

inline bool isIcon(HICON icon)
{
    ICONINFO info{};
    if (GetIconInfo(icon, &info) == 0) return false;
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return true;
}

inline std::size_t userObjects()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS); counted != 0)
        return counted;
    std::size_t count = windows();
    for (std::uintptr_t place = 0x20; place < 0x4000; place += 2) {
        if (IsMenu(at<HMENU>(place)) != 0 || isIcon(at<HICON>(place)) ||
            CopyAcceleratorTableW(at<HACCEL>(place), nullptr, 0) != 0) {
            ++count;
        }
    }
    return count;
}

inline std::size_t kernelHandles()
{
    DWORD counted = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &counted) != 0 && counted != 0) return counted;
    std::size_t count = 0;
    DWORD flags = 0;
    for (std::uintptr_t place = 4; place < 0x1000; place += 4) {
        if (GetHandleInformation(at<HANDLE>(place), &flags) != 0) ++count;
    }
    return count;
}

inline std::size_t privateBytes()
{
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    return memory.PagefileUsage;
}

} // namespace counting

inline Resources resourcesInUse()
{
    return {.drawing = counting::drawingObjects(),
            .user = counting::userObjects(),
            .handles = counting::kernelHandles(),
            .bytes = counting::privateBytes()};
}

inline std::string report(const Resources& r)
{
    return std::to_string(r.drawing) + " drawing objects, " + std::to_string(r.user) + " user objects, " +
           std::to_string(r.handles) + " handles, " + std::to_string(r.bytes >> 10) + " KB";
}

inline testing::AssertionResult heldAsBefore(const Resources& before, const Resources& after)
{
    if (after.drawing <= before.drawing + tolerance.drawing && after.user <= before.user + tolerance.user &&
        after.handles <= before.handles + tolerance.handles &&
        after.bytes <= before.bytes + tolerance.bytes) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "before: " << report(before) << "; after: " << report(after);
}

} // namespace vandrel::test

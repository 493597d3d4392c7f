#include "platform/system/clipboard.h"

#include "platform/base/handle.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/base/tick_clock.h"

#include <cstring>

namespace vandrel {
namespace {

constexpr ULONGLONG retryMilliseconds = 500;
constexpr DWORD pauseMilliseconds = 10;

using MemoryHandle = UniqueHandle<HGLOBAL, GlobalFree, nullHandle<HGLOBAL>>;

void openClipboard(HWND owner)
{
    const RetryTime time(retryMilliseconds, pauseMilliseconds);
    while (OpenClipboard(owner) == 0) {
        if (time.isOver()) throw RuntimeError(error_number::clipboardBusy);
        time.pause();
    }
}

MemoryHandle memoryWith(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    MemoryHandle memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    if (!memory) throw RuntimeError(error_number::outOfMemory);
    std::memcpy(GlobalLock(memory.get()), text.c_str(), bytes);
    GlobalUnlock(memory.get());
    return memory;
}

} // namespace

void setClipboardText(HWND owner, const std::wstring& text)
{
    MemoryHandle memory = memoryWith(text);
    openClipboard(owner);
    const ScopeExit close([] { CloseClipboard(); });
    if (EmptyClipboard() == 0 || SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr) {
        throw RuntimeError(error_number::clipboardBusy);
    }
    memory.release(); // owned by the clipboard now
}

} // namespace vandrel

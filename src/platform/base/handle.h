#pragma once

#include <windows.h>

#include <utility>

namespace vandrel {

// Owns one system handle: `Empty` returns the value that means none, `Close` releases the handle. Closing
// preserves the last error, so that a failure can still be reported after the handles in its scope have
// gone.
template <typename T, auto Close, auto Empty> class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(T handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~UniqueHandle() { reset(); }

    T get() const { return handle_; }
    explicit operator bool() const { return handle_ != none(); }
    T release() { return std::exchange(handle_, none()); }
    void reset(T handle = none())
    {
        if (handle_ != none()) {
            const DWORD lastError = GetLastError();
            Close(handle_);
            SetLastError(lastError);
        }
        handle_ = handle;
    }

  private:
    // `Empty` is a function because INVALID_HANDLE_VALUE cannot be a template argument.
    static T none() { return Empty(); }

    T handle_ = none();
};

inline HANDLE noFile() { return INVALID_HANDLE_VALUE; }
template <typename T> T nullHandle() { return nullptr; }

using FileHandle = UniqueHandle<HANDLE, CloseHandle, noFile>;
using FindHandle = UniqueHandle<HANDLE, FindClose, noFile>;
using BrushHandle = UniqueHandle<HBRUSH, DeleteObject, nullHandle<HBRUSH>>;
using FontHandle = UniqueHandle<HFONT, DeleteObject, nullHandle<HFONT>>;
using MenuHandle = UniqueHandle<HMENU, DestroyMenu, nullHandle<HMENU>>;
using AcceleratorHandle = UniqueHandle<HACCEL, DestroyAcceleratorTable, nullHandle<HACCEL>>;
using IconHandle = UniqueHandle<HICON, DestroyIcon, nullHandle<HICON>>;
using RegistryKeyHandle = UniqueHandle<HKEY, RegCloseKey, nullHandle<HKEY>>;

} // namespace vandrel

// Stands in for a program that something is dragged out of:
//   drag_source unicode|ansi|files TEXT X Y FILE
// offers the text in one form, drops it at that point of the screen and then writes to the file what it was
// told: "returned copy". It stays until it is ended, as a browser would: Windows gives the keyboard to
// another program when one ends, and that must not hide that the one under test does not take it.

#include "tests/support/dropped_object.h"

#include <cstdlib> // __argc and __wargv

namespace vandrel::test {
namespace {

constexpr const wchar_t* className = L"VandrelTest.DragSource";
constexpr DWORD everyEffect = DROPEFFECT_COPY | DROPEFFECT_LINK | DROPEFFECT_MOVE;
constexpr UINT_PTR endTimer = 1;
constexpr UINT longestLifeMilliseconds = 60'000;

// Lets go when the mouse has been at the point several times in a row.
class LettingGo final : public IDropSource {
  public:
    explicit LettingGo(POINT point) : point_(point) {}
    LettingGo(const LettingGo&) = delete;
    LettingGo& operator=(const LettingGo&) = delete;
    ~LettingGo() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropSource);
        *object = known ? static_cast<IDropSource*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override { return --references_; }

    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override
    {
        constexpr int enough = 5;
        POINT now{};
        GetCursorPos(&now);
        if (now.x == point_.x && now.y == point_.y) return ++steady_ >= enough ? DRAGDROP_S_DROP : S_OK;
        steady_ = 0;
        SetCursorPos(point_.x, point_.y);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

  private:
    POINT point_;
    int steady_ = 0;
    ULONG references_ = 1;
};

std::string nameOf(DWORD effect)
{
    switch (effect) {
    case DROPEFFECT_NONE: return "none";
    case DROPEFFECT_COPY: return "copy";
    case DROPEFFECT_LINK: return "link";
    case DROPEFFECT_MOVE: return "move";
    default: return std::to_string(effect);
    }
}

bool writeFile(const wchar_t* path, const std::string& bytes)
{
    const HANDLE file = CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL success = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    return success != 0;
}

bool fill(DroppedObject& data, const std::wstring& form, const std::wstring& text)
{
    if (form == L"unicode") {
        data.withUnicode(text);
    } else if (form == L"files") {
        data.withFile(text);
    } else if (form == L"ansi") {
        std::string bytes(text.size() * 2, '\0');
        bytes.resize(static_cast<std::size_t>(
            WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                static_cast<int>(bytes.size()), nullptr, nullptr)));
        data.withAnsi(bytes);
    } else {
        return false;
    }
    return true;
}

// In a corner of the screen, where it covers no drop target.
HWND showWindow()
{
    WNDCLASSW shape{};
    shape.lpfnWndProc = DefWindowProcW;
    shape.hInstance = GetModuleHandleW(nullptr);
    shape.lpszClassName = className;
    RegisterClassW(&shape);
    constexpr int width = 160;
    constexpr int height = 60;
    const HWND window = CreateWindowExW(0, className, L"Drag", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        GetSystemMetrics(SM_CXSCREEN) - width,
                                        GetSystemMetrics(SM_CYSCREEN) - height, width, height, nullptr,
                                        nullptr, shape.hInstance, nullptr);
    SetForegroundWindow(window);
    return window;
}

int run()
{
    if (__argc != 6) return 2;
    const POINT point{_wtoi(__wargv[3]), _wtoi(__wargv[4])};
    DroppedObject data;
    if (!fill(data, __wargv[1], __wargv[2])) return 2;
    if (FAILED(OleInitialize(nullptr))) return 3;
    const HWND window = showWindow();
    SetTimer(window, endTimer, longestLifeMilliseconds, nullptr);
    LettingGo source(point);
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT result = DoDragDrop(&data, &source, everyEffect, &effect);
    const std::string said = result == DRAGDROP_S_DROP ? nameOf(effect) : "error " + std::to_string(result);
    if (!writeFile(__wargv[5], "returned " + said)) return 4;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && message.wParam == endTimer) break;
        DispatchMessageW(&message);
    }
    return 0;
}

} // namespace
} // namespace vandrel::test

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) { return vandrel::test::run(); }

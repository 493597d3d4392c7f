#pragma once

#include "dialogs/frm_about.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

#include <optional>

namespace vandrel::test {

// The About box's controls besides IDOK.
namespace about {
inline constexpr const wchar_t* caption = L"About Vandrel";
inline constexpr int panel = 101;
inline constexpr int info = 102;
inline constexpr int logo = 103;
inline constexpr int email = 104;
inline constexpr int site = 105;
inline constexpr int tabs = 106;
} // namespace about

// The box as the user sees and uses it.
struct AboutBox {
    HWND window;

    HWND panel() const { return GetDlgItem(window, about::panel); }
    HWND info() const { return GetDlgItem(panel(), about::info); }
    HWND part(int id) const
    {
        const HWND inside = GetDlgItem(info(), id);
        return inside != nullptr ? inside : GetDlgItem(window, id);
    }
    // The label with the version, the only one that is not a link.
    HWND lblInfo() const
    {
        for (HWND child = nullptr; (child = FindWindowExW(info(), child, L"Static", nullptr)) != nullptr;) {
            if (GetDlgCtrlID(child) != about::email && GetDlgCtrlID(child) != about::site) return child;
        }
        return nullptr;
    }

    static void moveOver(HWND window) { SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(4, 4)); }
    COLORREF colorOf(int id) const
    {
        const HDC context = CreateCompatibleDC(nullptr);
        SetTextColor(context, RGB(1, 2, 3));
        SendMessageW(info(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(part(id)));
        const COLORREF color = GetTextColor(context);
        DeleteDC(context);
        return color;
    }
    static bool underlined(HWND label) { return fontOf(label).lfUnderline != 0; }
    bool highlighted(int id) const { return colorOf(id) == 0xFF0000 && underlined(part(id)); }
    bool plain(int id) const { return colorOf(id) == 0 && !underlined(part(id)); }
};

// The box over a window of the test's own, shown while the test goes on.
class AboutTest : public testing::Test {
  protected:
    ~AboutTest() override
    {
        loaded.reset();
        pump();
    }
    AboutBox open(const std::wstring& version = L"1.0.3")
    {
        owner.show();
        loaded.emplace(owner.handle(), version);
        loaded->showModeless();
        loaded->DoTab(1);
        pump();
        return {loaded->handle()};
    }

    TestWindow owner;
    std::optional<frmAbout> loaded;
};

} // namespace vandrel::test

#include "tests/support/pixels.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

// What a window shows after its size has changed is what it would show if it were painted anew.
class Repainting : public MainWindowTest {
  protected:
    Repainting()
    {
        setPreference(L"Config", L"Width", L"12000");
        setPreference(L"Config", L"Height", L"6000");
        std::string sites;
        for (int i = 10; i < 60; ++i) {
            const std::string number = std::to_string(i);
            folder.write(L"Category " + std::to_wstring(i) + L".udb", "");
            sites += "Site " + number + "|http://site" + number + ".example/|Description " + number +
                     "|1/1/2001\r\n";
        }
        folder.write(L"Category 58.udb", sites);
    }
    void startScrolled()
    {
        start();
        main->show(SW_SHOWNORMAL);
        clickCategory(L"Category 58");
        lstCategory().ensureVisible(lstCategory().count() - 1);
        lstInfo().ensureVisible(lstInfo().count() - 1);
        pump();
    }
    void expectWhole()
    {
        pump();
        for (ListView* const list : {&lstCategory(), &lstInfo()}) {
            const std::vector<DWORD> seen = pixelsOf(list->handle());
            RedrawWindow(list->handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
            pump();
            EXPECT_EQ(seen == pixelsOf(list->handle()), true)
                << (list == &lstInfo() ? "sites" : "categories");
        }
    }
};

TEST_F(Repainting, AWindowThatBecomesHigher)
{
    startScrolled();
    SetWindowPos(main->handle(), nullptr, 0, 0, 900, 760, SWP_NOMOVE | SWP_NOZORDER);
    expectWhole();
}

TEST_F(Repainting, AWindowThatBecomesWider)
{
    startScrolled();
    SetWindowPos(main->handle(), nullptr, 0, 0, 1100, 420, SWP_NOMOVE | SWP_NOZORDER);
    expectWhole();
}

TEST_F(Repainting, AWindowThatBecomesSmaller)
{
    startScrolled();
    SetWindowPos(main->handle(), nullptr, 0, 0, 1000, 760, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    SetWindowPos(main->handle(), nullptr, 0, 0, 640, 400, SWP_NOMOVE | SWP_NOZORDER);
    expectWhole();
}

TEST_F(Repainting, ASplitterThatIsDraggedBothWays)
{
    startScrolled();
    const HWND bar = splitterBar(*main);
    for (const int by : {120, -60}) {
        SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 30));
        for (int step = 1; step <= 6; ++step) {
            SendMessageW(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2 + by / 6, 30));
            pump();
        }
        SendMessageW(bar, WM_LBUTTONUP, 0, MAKELPARAM(2, 30));
        expectWhole();
    }
}

} // namespace
} // namespace vandrel::test

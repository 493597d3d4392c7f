#include "tests/support/light_on_dark.h"
#include "tests/support/pixels.h"
#include "tests/window/reach/reach_test.h"

#include <array>

namespace vandrel::test {
namespace {

int lightness(COLORREF color)
{
    return (GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color)) / 10;
}

// The colours of a control on the screen: the commonest, and the lightest on top of it.
struct Seen {
    int ground;
    int lightest;
};

Seen seenOf(HWND control)
{
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    std::array<int, 256> counts{};
    for (const DWORD pixel : pixelsOf(control)) {
        const COLORREF color = RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
        ++counts[static_cast<std::size_t>(lightness(color))];
    }
    int lightest = 255;
    while (lightest > 0 && counts[static_cast<std::size_t>(lightest)] == 0) --lightest;
    return {static_cast<int>(std::ranges::max_element(counts) - counts.begin()), lightest};
}

bool showsText(HWND control)
{
    const std::wstring kind = classOf(control);
    if (kind == WC_LISTBOXW) return SendMessageW(control, LB_GETCOUNT, 0, 0) > 0;
    if (kind == WC_LISTVIEWW) return true; // it has at least the captions of its columns
    return !windowText(control).empty();
}

class HighContrast : public ReachTest, public testing::WithParamInterface<Shown> {};

TEST_P(HighContrast, LabelsBoxesAndListsAreLightOnDark)
{
    const LightOnDark colors;
    SendMessageW(main->handle(), WM_SYSCOLORCHANGE, 0, 0); // the system sends it to top-level windows
    lstInfo().select(0);
    in(GetParam(), [](HWND window) {
        pump();
        int seen = 0;
        for (const HWND control : visibleWithin(window)) {
            const std::wstring kind = classOf(control);
            if (windowText(control) != L"Sample" && kind != WC_STATICW && kind != WC_EDITW &&
                kind != WC_LISTBOXW && kind != WC_COMBOBOXW && kind != WC_LISTVIEWW) {
                continue;
            }
            if (IsRectEmpty(std::array{clientOf(control)}.data())) continue;
            const Seen look = seenOf(control);
            const std::string name = testing::PrintToString(kind + L" " + windowText(control)) + " " +
                                     testing::PrintToString(spokenName(control));
            EXPECT_LT(look.ground, 64) << name;
            if (showsText(control)) {
                EXPECT_GT(look.lightest, 160) << name;
            }
            ++seen;
        }
        EXPECT_GT(seen, 0);
    });
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, HighContrast, testing::ValuesIn(allShown));

} // namespace
} // namespace vandrel::test

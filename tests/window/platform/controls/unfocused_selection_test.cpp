#include "platform/controls/list_box.h"
#include "tests/support/light_on_dark.h"
#include "tests/support/list_fixture.h"
#include "tests/support/pixels.h"
#include "tests/support/window_facts.h"

#include <cmath>
#include <map>

namespace vandrel::test {
namespace {

// How light a colour 0x00RRGGBB is, and how far apart two are: from 1, the same, to 21, black on white. By the
// Web Content Accessibility Guidelines.
double luminance(DWORD color)
{
    const auto linear = [](DWORD part) {
        const double share = (part & 0xFF) / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color >> 16) + 0.7152 * linear(color >> 8) + 0.0722 * linear(color);
}

double contrast(DWORD one, DWORD other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

struct RowLook {
    DWORD ground; // the commonest colour
    DWORD text;   // the one that is farthest from it
};

RowLook lookOf(HWND list, const RECT& row)
{
    RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const std::vector<DWORD> pixels = pixelsOf(list);
    const auto width = clientOf(list).right;
    std::map<DWORD, int> counts;
    for (LONG y = row.top + 1; y < row.bottom - 1; ++y) {
        for (LONG x = row.left + 2; x < row.right - 2; ++x) {
            ++counts[pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                            static_cast<std::size_t>(x)]];
        }
    }
    RowLook look{};
    look.ground = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first;
    look.text = std::ranges::max_element(counts, {}, [&](const auto& entry) {
                    return contrast(entry.first, look.ground);
                })->first;
    return look;
}

DWORD systemColor(int element)
{
    const COLORREF color = GetSysColor(element);
    return static_cast<DWORD>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
}

class UnfocusedSelection : public ListTest {
  protected:
    UnfocusedSelection()
    {
        fillNames(sites, {L"Almanac", L"Bulletin", L"Courier", L"Dispatch"});
        fillNames(categories, {L"Home", L"News", L"Work"});
        sites.select(2);
        categories.select(1);
    }
    static RowLook lookOfRow(const ListView& list, std::size_t row)
    {
        RECT label{};
        label.left = LVIR_LABEL;
        SendMessageW(list.handle(), LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&label));
        return lookOf(list.handle(), label);
    }
    static void expectSeen(const ListView& list, std::size_t selected, std::size_t other)
    {
        const RowLook look = lookOfRow(list, selected);
        EXPECT_GE(contrast(look.ground, lookOfRow(list, other).ground), 1.3);
        EXPECT_GE(contrast(look.text, look.ground), 4.5);
    }
};

TEST_F(UnfocusedSelection, CanBeToldFromTheOtherRowsAndRead)
{
    categories.setFocus();
    expectSeen(sites, 2, 1);
    sites.setFocus();
    expectSeen(categories, 1, 2);
}

TEST_F(UnfocusedSelection, IsExplorersGrey)
{
    categories.setFocus();
    EXPECT_EQ(lookOfRow(sites, 2).ground, 0xD9D9D9U);
}

TEST_F(UnfocusedSelection, LooksOtherThanTheOneWithTheKeyboard)
{
    sites.setFocus();
    EXPECT_EQ(lookOfRow(sites, 2).ground, systemColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(lookOfRow(sites, 1).ground, systemColor(COLOR_WINDOW));
}

TEST_F(UnfocusedSelection, CoversEverySelectedRowAndNoOther)
{
    selectRows(sites, {0});
    categories.setFocus();
    expectSeen(sites, 0, 1);
    expectSeen(sites, 2, 3);
    EXPECT_EQ(lookOfRow(sites, 1).ground, systemColor(COLOR_WINDOW));
}

TEST_F(UnfocusedSelection, CanBeReadWhateverTheDisplayColour)
{
    sites.setForeColor(0xE0E0E0);
    categories.setFocus();
    expectSeen(sites, 2, 1);
}

TEST_F(UnfocusedSelection, CanBeToldAndReadInHighContrastToo)
{
    const LightOnDark colors;
    tellSystemColors(window.handle());
    categories.setFocus();
    expectSeen(sites, 2, 1);
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    // Wine 8.0 does not remember that it is on.
    if ((contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) {
        EXPECT_EQ(lookOfRow(sites, 2).ground, systemColor(COLOR_HIGHLIGHT));
    }
}

TEST_F(UnfocusedSelection, OfAListBoxCanBeToldFromTheOtherEntriesToo)
{
    ListBox box(window.handle(), 3);
    box.place(610, 0, 150, 200);
    box.fill({L"Arial", L"Courier", L"Tahoma"});
    box.select(1);
    sites.setFocus();
    const auto lookOfEntry = [&](WPARAM entry) {
        RECT area{};
        SendMessageW(box.handle(), LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
        return lookOf(box.handle(), area);
    };
    EXPECT_GE(contrast(lookOfEntry(1).ground, lookOfEntry(0).ground), 1.3);
    EXPECT_EQ(lookOfEntry(1).ground, systemColor(COLOR_HIGHLIGHT)) << "the system's own";
}

} // namespace
} // namespace vandrel::test

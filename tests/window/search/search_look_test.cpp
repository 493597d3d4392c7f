#include "platform/controls/font.h"
#include "search/search_layout.h"
#include "shared/apply_font.h"
#include "tests/support/look.h"
#include "tests/support/search_test.h"
#include "tests/support/window_facts.h"

namespace vandrel::test {
namespace {

struct Part {
    HWND window;
    std::wstring kind;
    std::wstring text;
    RECT area; // in the dialog
};

std::vector<Part> partsOf(HWND dialog)
{
    std::vector<Part> parts;
    for (const HWND child : childrenOf(dialog)) {
        const auto type = GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK;
        std::wstring name = classOf(child);
        const bool button = name == L"Button";
        if (button && type == BS_GROUPBOX) name = L"Frame";
        if (button && (type == BS_AUTORADIOBUTTON || type == BS_AUTOCHECKBOX || type == BS_RADIOBUTTON ||
                       type == BS_CHECKBOX))
            name = L"Mark";
        parts.push_back({child, name, windowText(child), placeOf(child)});
    }
    return parts;
}

class SearchLookTest : public SearchTest {
  protected:
    void openWith(const DisplayFont& font)
    {
        start();
        workspace().options.font = font;
        open();
    }
    void resize(int width, int height)
    {
        SetWindowPos(dialog(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        pump();
    }
    SIZE smallest()
    {
        MINMAXINFO limits{};
        SendMessageW(dialog(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        return {limits.ptMinTrackSize.x, limits.ptMinTrackSize.y};
    }
    // The frame around the results, the lower of the two without text.
    RECT resultsFrame()
    {
        RECT lowest{};
        for (const Part& part : partsOf(dialog())) {
            if (part.kind == L"Frame" && part.area.top >= lowest.top) lowest = part.area;
        }
        return lowest;
    }
    static std::string nameOf(const Part& part)
    {
        return testing::PrintToString(part.text) + " (" + testing::PrintToString(part.kind) + ")";
    }
};

class SearchLook : public SearchLookTest, public testing::WithParamInterface<Look> {
  protected:
    SearchLook()
    {
        folder.write(L"News.udb", manySites("daily", 100));
        openWith(font);
    }

    const DisplayFont font{.name = L"Arial",
                           .color = 0x0000C0,
                           .size = GetParam().size,
                           .bold = GetParam().bold,
                           .italic = GetParam().italic};
};

TEST_P(SearchLook, EveryControlHasTheDisplayFont)
{
    for (const Part& part : partsOf(dialog())) {
        LOGFONTW used{};
        ASSERT_NE(GetObjectW(fontHandleOf(part.window), sizeof used, &used), 0) << nameOf(part);
        EXPECT_EQ(std::wstring(used.lfFaceName), font.name);
        EXPECT_EQ(used.lfHeight, -MulDiv(font.size, static_cast<int>(search().dpi()), 72)) << nameOf(part);
        EXPECT_EQ(used.lfItalic != 0, font.italic);
        EXPECT_EQ(used.lfWeight, font.bold ? FW_BOLD : FW_NORMAL);
    }
    EXPECT_EQ(search().results().foreColor(), font.color);
}

TEST_P(SearchLook, NothingOverlapsOrReachesOutOfTheWindowAtAnySize)
{
    for (const SIZE size : {SIZE{0, 0}, SIZE{600, 440}, SIZE{1000, 800}}) {
        if (size.cx != 0) resize(size.cx, size.cy);
        if (size.cx == 600) resize(1, 1);
        const RECT client = clientOf(dialog());
        const std::vector<Part> all = partsOf(dialog());
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(isWithin(all[i].area, client)) << nameOf(all[i]) << " at " << client.right;
            EXPECT_FALSE(IsRectEmpty(&all[i].area)) << nameOf(all[i]) << " at " << client.right;
            for (std::size_t other = 0; other < i; ++other) {
                RECT both{};
                if (all[i].kind == L"Frame" || all[other].kind == L"Frame") continue;
                EXPECT_FALSE(IntersectRect(&both, &all[i].area, &all[other].area))
                    << nameOf(all[i]) << " over " << nameOf(all[other]) << " at " << client.right;
            }
        }
        const RECT bar = placeOf(FindWindowExW(dialog(), nullptr, STATUSCLASSNAMEW, nullptr));
        const RECT frame = resultsFrame();
        EXPECT_TRUE(isWithin(placeOf(part(parts::results)), frame));
        EXPECT_TRUE(isWithin(placeOf(childWithText(dialog(), L"Search Results")), frame));
        EXPECT_LE(frame.bottom, bar.top) << "at " << client.right;
        for (int i = 0; i < 4; ++i) {
            EXPECT_TRUE(isWithin(placeOf(part(parts::section + i)), placeOf(this->frame(L"Search Section"))));
        }
        EXPECT_LE(placeOf(part(parts::caseSensitive)).bottom, frame.top);
        EXPECT_LE(placeOf(part(IDCANCEL)).bottom, frame.top);
    }
}

TEST_P(SearchLook, NoTextIsClipped)
{
    resize(1, 1);
    for (const Part& part : partsOf(dialog())) {
        const SIZE text = textSize(fontHandleOf(part.window), part.text.empty() ? L"Ag" : part.text);
        const int width = widthOf(part.area);
        const int height = heightOf(part.area);
        if (part.kind == L"Static") {
            EXPECT_GE(width, text.cx) << nameOf(part);
            EXPECT_GE(height, text.cy) << nameOf(part);
        } else if (part.kind == L"Mark") {
            EXPECT_GE(width, text.cx + GetSystemMetrics(SM_CXMENUCHECK)) << nameOf(part);
            EXPECT_GE(height, text.cy) << nameOf(part);
        } else if (part.kind == L"Button") {
            EXPECT_GE(width, text.cx + 4 * GetSystemMetrics(SM_CXEDGE)) << nameOf(part);
            EXPECT_GE(height, text.cy + 2 * GetSystemMetrics(SM_CYEDGE)) << nameOf(part);
        } else if (part.kind == L"Edit") {
            EXPECT_GE(width, 100) << nameOf(part);
            EXPECT_GE(height, text.cy) << nameOf(part);
        } else if (part.kind == STATUSCLASSNAMEW) {
            EXPECT_GE(height, text.cy) << nameOf(part);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fonts, SearchLook,
                         testing::Values(Look{"Small", 8, false, false}, Look{"Large", 18, false, false},
                                         Look{"Larger", 24, false, false},
                                         Look{"LargeSlanted", 18, true, true},
                                         Look{"Slanted", 10, false, true}));

// On the screen of the tests, at these fonts.
TEST_P(SearchLook, OpensWithTenRowsInViewAsHighAsThoseOfTheMainWindow)
{
    ApplyFont(*main, font);
    find(L"daily");
    ASSERT_EQ(found().size(), 100U);
    const auto rowHeight = [](const ListView& list) {
        RECT row{};
        row.left = LVIR_BOUNDS;
        SendMessageW(list.handle(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
        return heightOf(row);
    };
    EXPECT_EQ(rowHeight(search().results()), rowHeight(lstInfo()));
    EXPECT_GE(SendMessageW(part(parts::results), LVM_GETCOUNTPERPAGE, 0, 0), 10);
}

TEST_P(SearchLook, ThePanelsOfTheStatusBarHoldTheirTexts)
{
    resize(1, 1);
    const HWND bar = FindWindowExW(dialog(), nullptr, STATUSCLASSNAMEW, nullptr);
    const std::wstring texts[] = {L"1000000 site(s) found", L"1000000 site(s) searched"};
    for (WPARAM number = 0; number < 2; ++number) {
        RECT area{};
        SendMessageW(bar, SB_GETRECT, number, reinterpret_cast<LPARAM>(&area));
        EXPECT_GE(widthOf(area), textSize(fontHandleOf(bar), texts[number]).cx) << number;
    }
}

TEST_P(SearchLook, OpensBesideTheMainWindowAndWhollyOnTheScreen)
{
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_TRUE(isWithin(outerPlace(dialog()), work));
    if (widthOf(outerPlace(main->handle())) + widthOf(outerPlace(dialog())) > widthOf(work)) return;
    RECT both{};
    const RECT own = outerPlace(dialog());
    const RECT owner = outerPlace(main->handle());
    EXPECT_FALSE(IntersectRect(&both, &own, &owner));
}

class SearchPlace : public SearchLookTest {
  protected:
    void openBy(const RECT& mainWindow)
    {
        start();
        SetWindowPos(main->handle(), nullptr, mainWindow.left, mainWindow.top, widthOf(mainWindow),
                     heightOf(mainWindow), SWP_NOZORDER);
        open();
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        own = outerPlace(dialog());
        owner = outerPlace(main->handle());
    }
    RECT work{};
    RECT own{};
    RECT owner{};
};

TEST_F(SearchPlace, IsToTheRightOfTheMainWindow)
{
    openBy({10, 20, 620, 420});
    EXPECT_EQ(own.left, owner.right);
    EXPECT_EQ(own.top, owner.top);
}

TEST_F(SearchPlace, IsToTheLeftWhereThatHasTheRoom)
{
    openBy({650, 20, 1270, 420});
    EXPECT_EQ(own.right, owner.left);
    EXPECT_EQ(own.top, owner.top);
}

TEST_F(SearchPlace, IsBelowWhereThatHasTheRoom)
{
    openBy({200, 20, 1000, 420});
    EXPECT_EQ(own.top, owner.bottom);
    EXPECT_EQ(own.left, owner.left);
}

TEST_F(SearchPlace, IsTheCornerOfTheScreenThatLeavesTheCategoriesInViewWhereThereIsNoRoom)
{
    openBy({0, 0, 1280, 1000});
    EXPECT_EQ(own.right, work.right);
    EXPECT_EQ(own.bottom, work.bottom);
}

class SearchSize : public SearchLookTest {
  protected:
    SearchSize() { openWith({.name = L"Arial", .color = 0, .size = 8, .bold = false, .italic = false}); }

    int px(double twips) { return test::px(*main, twips); }
    int columns(int count)
    {
        int width = 0;
        for (int column = 0; column < count; ++column) width += columnPixels(search().results(), column);
        return width;
    }
};

TEST_F(SearchSize, TheSmallestIs7200To4755Twips)
{
    EXPECT_EQ(smallest().cx, px(7200));
    EXPECT_EQ(smallest().cy, px(4755));
    resize(1, 1);
    EXPECT_EQ(widthOf(outerPlace(dialog())), px(7200));
    EXPECT_EQ(heightOf(outerPlace(dialog())), px(4755));
}

TEST_F(SearchSize, OneDirectionCanBeSmallAlone)
{
    resize(1, 700);
    EXPECT_EQ(widthOf(outerPlace(dialog())), px(7200));
    EXPECT_EQ(heightOf(outerPlace(dialog())), 700);
    resize(800, 1);
    EXPECT_EQ(widthOf(outerPlace(dialog())), 800);
    EXPECT_EQ(heightOf(outerPlace(dialog())), px(4755));
}

TEST_F(SearchSize, AnyLargerSizeIsTheUsersChoice)
{
    resize(px(7200) + 1, px(4755) + 1);
    EXPECT_EQ(widthOf(outerPlace(dialog())), px(7200) + 1);
    EXPECT_EQ(heightOf(outerPlace(dialog())), px(4755) + 1);
}

// Rounding to pixels may put it off by one.
TEST_F(SearchSize, TheResultsTakeTheHeightThatIsLeft)
{
    for (const SIZE size : {SIZE{600, 400}, SIZE{700, 611}, SIZE{1100, 850}}) {
        resize(size.cx, size.cy);
        const int frame = heightOf(resultsFrame());
        EXPECT_NEAR(frame, clientOf(dialog()).bottom - px(2150), 1);
        EXPECT_NEAR(heightOf(placeOf(part(parts::results))), frame - px(390), 1);
    }
}

TEST_F(SearchSize, TheLastColumnTakesTheWidthThatIsLeft)
{
    for (const int width : {560, 700, 1100}) {
        resize(width, 500);
        const int list = widthOf(placeOf(part(parts::results)));
        EXPECT_NEAR(columnPixels(search().results(), 3), list - (columns(3) + px(270)), 1);
    }
}

TEST_F(SearchSize, TheLastColumnMakesRoomForColumnsThatTheUserWidened)
{
    resize(900, 500);
    SendMessageW(part(parts::results), LVM_SETCOLUMNWIDTH, 0, 210);
    resize(1000, 500);
    EXPECT_EQ(columnPixels(search().results(), 0), 210);
    const int list = widthOf(placeOf(part(parts::results)));
    EXPECT_NEAR(columnPixels(search().results(), 3), list - (columns(3) + px(270)), 1);
}

TEST_F(SearchSize, ManyWideColumnsLeaveTheLastOneNothing)
{
    SendMessageW(part(parts::results), LVM_SETCOLUMNWIDTH, 1, 2000);
    resize(700, 500);
    EXPECT_EQ(columnPixels(search().results(), 3), 0);
}

} // namespace
} // namespace vandrel::test

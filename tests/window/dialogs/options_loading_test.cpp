#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

class OptionsLoading : public OptionsTest {
  protected:
    // The first visible line of a list must be its selected entry, unless the list cannot scroll that far.
    static void expectFirstLine(const OptionsDialog& dialog, int list)
    {
        const HWND box = dialog.part(list);
        const LRESULT top = SendMessageW(box, LB_GETTOPINDEX, 0, 0);
        const LRESULT selected = SendMessageW(box, LB_GETCURSEL, 0, 0);
        SendMessageW(box, LB_SETTOPINDEX, static_cast<WPARAM>(SendMessageW(box, LB_GETCOUNT, 0, 0) - 1), 0);
        const LRESULT last = SendMessageW(box, LB_GETTOPINDEX, 0, 0);
        EXPECT_EQ(top, std::min(selected, last)) << list;
    }
    static bool isShown(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0; }
};

TEST_F(OptionsLoading, BothListsHoldEveryScreenFontInTheSystemsOrder)
{
    const OptionsDialog dialog = open();
    const std::vector<std::wstring> all = screenFonts();
    ASSERT_GT(all.size(), 3U);
    EXPECT_EQ(dialog.entries(options::fonts), all);
    EXPECT_EQ(dialog.entries(options::htmlFonts), all);
}

TEST_F(OptionsLoading, TheFontsOfTheOptionsAreSelectedAndTheFirstThatAreSeen)
{
    const std::vector<std::wstring> all = screenFonts();
    for (const std::size_t entry : {std::size_t{0}, std::size_t{1}, all.size() / 2, all.size() - 1}) {
        state.font.name = all[entry];
        state.htmlFont = all[all.size() - 1 - entry];
        const OptionsDialog dialog = open();
        EXPECT_EQ(dialog.selected(options::fonts), state.font.name);
        EXPECT_EQ(dialog.selected(options::htmlFonts), state.htmlFont);
        EXPECT_EQ(windowText(dialog.fontName()), state.font.name);
        expectFirstLine(dialog, options::fonts);
        expectFirstLine(dialog, options::htmlFonts);
        loaded.reset();
    }
}

TEST_F(OptionsLoading, AFontInTheMiddleOfTheListIsScrolledToTheTop)
{
    const std::vector<std::wstring> all = screenFonts();
    state.font.name = all[2];
    state.htmlFont = all[2];
    const OptionsDialog dialog = open();
    for (const int list : {options::fonts, options::htmlFonts}) {
        RECT area{};
        GetClientRect(dialog.part(list), &area);
        const LRESULT line = SendMessageW(dialog.part(list), LB_GETITEMHEIGHT, 0, 0);
        if (static_cast<LRESULT>(all.size() - 2) * line < area.bottom) continue; // no list to scroll
        EXPECT_EQ(SendMessageW(dialog.part(list), LB_GETTOPINDEX, 0, 0), 2) << list;
    }
}

TEST_F(OptionsLoading, AFontThatIsNotInstalledIsNotSelectedButStillNamed)
{
    state.font.name = L"No Such Face";
    state.htmlFont = L"Nor This One";
    const OptionsDialog dialog = open();
    EXPECT_EQ(dialog.selected(options::fonts), std::nullopt);
    EXPECT_EQ(dialog.selected(options::htmlFonts), std::nullopt);
    EXPECT_EQ(windowText(dialog.fontName()), L"No Such Face");
    EXPECT_EQ(SendMessageW(dialog.part(options::fonts), LB_GETTOPINDEX, 0, 0), 0);
}

TEST_F(OptionsLoading, EveryControlShowsItsOption)
{
    state = {.font = {.name = L"Arial", .color = 0x0000C0FF, .size = 11, .bold = true, .italic = false},
             .htmlFont = L"Arial",
             .htmlTableWidth = L"640",
             .htmlBorder = 7,
             .generateEmpty = true};
    const OptionsDialog dialog = open();
    EXPECT_EQ(dialog.text(options::fontSize), L"11");
    EXPECT_TRUE(dialog.checked(options::bold));
    EXPECT_FALSE(dialog.checked(options::italic));
    EXPECT_EQ(dialog.text(options::border), L"7");
    EXPECT_EQ(dialog.text(options::width), L"640");
    EXPECT_TRUE(dialog.checked(options::empty));
    const HDC screen = GetDC(dialog.part(options::color));
    EXPECT_EQ(GetPixel(screen, 5, 5), 0x0000C0FFU);
    ReleaseDC(dialog.part(options::color), screen);
}

TEST_F(OptionsLoading, TheOtherValuesShowAsWell)
{
    state = {.font = {.name = L"Arial", .color = 0x00FF8001, .size = 18, .bold = false, .italic = true},
             .htmlFont = L"Arial",
             .htmlTableWidth = L"100%",
             .htmlBorder = -2,
             .generateEmpty = false};
    const OptionsDialog dialog = open();
    EXPECT_EQ(dialog.text(options::fontSize), L"18");
    EXPECT_FALSE(dialog.checked(options::bold));
    EXPECT_TRUE(dialog.checked(options::italic));
    EXPECT_EQ(dialog.text(options::border), L"-2");
    EXPECT_EQ(dialog.text(options::width), L"100%");
    EXPECT_FALSE(dialog.checked(options::empty));
    const HDC screen = GetDC(dialog.part(options::color));
    EXPECT_EQ(GetPixel(screen, 5, 5), 0x00FF8001U);
    ReleaseDC(dialog.part(options::color), screen);
}

TEST_F(OptionsLoading, BeginsWithTheFirstPageAndTheFontList)
{
    const OptionsDialog dialog = open();
    EXPECT_TRUE(isShown(dialog.page(options::appearancePage)));
    EXPECT_FALSE(isShown(dialog.page(options::htmlPage)));
    EXPECT_EQ(SendMessageW(dialog.part(options::tabs), TCM_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(GetFocus(), dialog.part(options::fonts));
}

TEST_F(OptionsLoading, ASizeThatNoFontHasDoesNotKeepTheDialogFromOpening)
{
    // OK accepts this text, so the dialog must be able to show it again.
    state.font.size = 0;
    EXPECT_NO_THROW(open());
}

} // namespace
} // namespace vandrel::test

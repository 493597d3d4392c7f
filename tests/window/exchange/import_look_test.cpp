#include "tests/support/look.h"
#include "tests/support/window_facts.h"
#include "tests/window/exchange/import_dialog_test.h"

namespace vandrel::test {
namespace {

class ImportDialogLook : public ImportDialogTest, public testing::WithParamInterface<Look> {
  protected:
    void startInTheFont()
    {
        startEmpty();
        workspace().options.font = {.name = L"Arial",
                                    .color = 0x0000C0,
                                    .size = GetParam().size,
                                    .bold = GetParam().bold,
                                    .italic = GetParam().italic};
        makeSubfolder(
            L"A folder whose name is so long that no list is as wide as it at any size of the font");
    }
};

TEST_P(ImportDialogLook, EveryControlHasTheDisplayFont)
{
    startInTheFont();
    look([&](const ImportDialog& dialog) {
        const auto controls = childrenOf(dialog.window);
        EXPECT_EQ(controls.size(), 11U);
        for (const HWND control : controls) {
            if (classOf(control) == PROGRESS_CLASSW) continue;
            LOGFONTW used{};
            ASSERT_NE(GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)),
                                 sizeof used, &used),
                      0);
            EXPECT_EQ(used.lfHeight,
                      -MulDiv(GetParam().size, static_cast<int>(GetDpiForWindow(control)), 72));
            EXPECT_EQ(used.lfItalic != 0, GetParam().italic);
            EXPECT_EQ(used.lfWeight, GetParam().bold ? FW_BOLD : FW_NORMAL);
        }
    });
}

TEST_P(ImportDialogLook, NoControlOverlapsAnotherAndAllLieInTheWindow)
{
    startInTheFont();
    look([](const ImportDialog& dialog) {
        RECT client{};
        GetClientRect(dialog.window, &client);
        const auto controls = childrenOf(dialog.window);
        for (std::size_t i = 0; i < controls.size(); ++i) {
            // The progress bar takes the place of the path, and only one of the two is visible.
            if (controls[i] == dialog.progressBar()) continue;
            const RECT area = placeOf(controls[i]);
            RECT both{};
            UnionRect(&both, &client, &area);
            EXPECT_TRUE(EqualRect(&both, &client)) << testing::PrintToString(windowText(controls[i]));
            EXPECT_FALSE(IsRectEmpty(&area));
            for (std::size_t other = 0; other < i; ++other) {
                if (controls[other] == dialog.progressBar()) continue;
                const RECT otherArea = placeOf(controls[other]);
                EXPECT_FALSE(IntersectRect(&both, &area, &otherArea))
                    << testing::PrintToString(windowText(controls[i])) << " over "
                    << testing::PrintToString(windowText(controls[other]));
            }
        }
    });
}

TEST_P(ImportDialogLook, TheProgressBarIsAsLargeAsThePathThatItReplaces)
{
    startInTheFont();
    look([&](const ImportDialog& dialog) {
        const RECT bar = placeOf(dialog.progressBar());
        const RECT path = placeOf(childWithText(dialog.window, favorites.path()));
        EXPECT_TRUE(EqualRect(&bar, &path));
        EXPECT_FALSE(IsRectEmpty(&bar));
    });
}

TEST_P(ImportDialogLook, TheButtonsHoldTheirTexts)
{
    startInTheFont();
    look([](const ImportDialog& dialog) {
        for (const int id : {IDOK, importer::importAll, IDCANCEL}) {
            const HWND button = dialog.control(id);
            RECT room{};
            GetClientRect(button, &room);
            std::wstring text = windowText(button);
            std::erase(text, L'&');
            const SIZE size = textSize(reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0)), text);
            EXPECT_GE(room.right, size.cx + 2 * GetSystemMetrics(SM_CXEDGE));
            EXPECT_GE(room.bottom, size.cy + 2 * GetSystemMetrics(SM_CYEDGE));
        }
    });
}

TEST_P(ImportDialogLook, AnEntryIsAsHighAsItsTextAndALongOneCanBeScrolledTo)
{
    startInTheFont();
    look([](const ImportDialog& dialog) {
        const auto font = reinterpret_cast<HFONT>(SendMessageW(dialog.folders(), WM_GETFONT, 0, 0));
        for (const HWND list : {dialog.folders(), dialog.files()}) {
            EXPECT_GE(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0), textSize(font, L"X").cy);
        }
        EXPECT_GE(SendMessageW(dialog.folders(), LB_GETHORIZONTALEXTENT, 0, 0),
                  textSize(font, entriesOf(dialog.folders()).back()).cx);
    });
}

TEST_P(ImportDialogLook, ItOpensWhollyOnTheScreen)
{
    startInTheFont();
    look([](const ImportDialog& dialog) {
        RECT window{};
        GetWindowRect(dialog.window, &window);
        RECT work{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        RECT both{};
        UnionRect(&both, &work, &window);
        EXPECT_TRUE(EqualRect(&both, &work));
    });
}

INSTANTIATE_TEST_SUITE_P(Fonts, ImportDialogLook,
                         testing::Values(Look{"Default", 8, false, false}, Look{"Italic", 8, false, true},
                                         Look{"Large", 18, false, false},
                                         Look{"LargeBoldItalic", 18, true, true}),
                         [](const auto& look) { return std::string(look.param.name); });

} // namespace
} // namespace vandrel::test

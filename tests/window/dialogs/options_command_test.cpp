#include "platform/windows/topmost.h"
#include "tests/support/window_parts.h"
#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

class OptionsCommand : public MainWindowTest {
  protected:
    void startWithSites()
    {
        folder.write(L"Work.udb", threeSites);
        start();
    }
    // Opens the dialog from the menu; `act` must close it.
    void open(const std::function<void(const OptionsDialog&)>& act)
    {
        Answers answers;
        answers.expect(options::caption, [&](HWND window) { act({window}); });
        SendMessageW(main->handle(), WM_COMMAND, mnuOptions, 0);
        EXPECT_ANSWERED(answers);
    }
    void take(const std::wstring& size, bool boldItalic = false, const std::wstring& name = sansFace())
    {
        open([&](const OptionsDialog& dialog) {
            dialog.clickFont(options::fonts, name);
            dialog.type(options::fontSize, size);
            if (boldItalic) {
                dialog.click(options::bold);
                dialog.click(options::italic);
            }
            press(dialog.window, IDOK);
        });
    }
    void expectNothingClipped(const std::string& at)
    {
        const int line = textSize(fontHandleOf(lstInfo().handle()), L"Ágjpqy").cy;
        RECT panel{};
        SendMessageW(main->workspace().StatusBar1.handle(), SB_GETRECT, 1, reinterpret_cast<LPARAM>(&panel));
        EXPECT_GE(heightOf(panel), line) << "status bar at " << at;
        const HWND box = main->searchPanel().cmbSearch.handle();
        EXPECT_GE(heightOf(clientOf(FindWindowExW(box, nullptr, L"Edit", nullptr))), line) << at;
        EXPECT_GE(placeOf(box).top, 0) << at;
        EXPECT_LE(placeOf(box).bottom, clientOf(main->searchPanel().handle()).bottom) << at;
        for (ListView* const list : {&lstCategory(), &lstInfo()}) {
            RECT row{};
            row.left = LVIR_BOUNDS;
            SendMessageW(list->handle(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
            EXPECT_GE(heightOf(row), line) << "row at " << at;
            const HWND header = reinterpret_cast<HWND>(SendMessageW(list->handle(), LVM_GETHEADER, 0, 0));
            EXPECT_GE(heightOf(outerPlace(header)), line) << "header at " << at;
        }
        EXPECT_LE(placeOf(main->searchPanel().handle()).bottom, placeOf(lstInfo().handle()).top) << at;
        EXPECT_LE(placeOf(lstInfo().handle()).bottom, placeOf(main->workspace().StatusBar1.handle()).top)
            << at;
    }
};

TEST_F(OptionsCommand, OkPutsTheFontOnTheMainWindowAtOnceAtEverySize)
{
    startWithSites();
    for (const int size : {18, 8, 10, 12, 14, 16, 11}) {
        take(std::to_wstring(size));
        for (const HWND window : windowsWithTexts(*main))
            EXPECT_EQ(fontOf(window).lfHeight, -MulDiv(size, static_cast<int>(main->dpi()), 72)) << size;
        expectNothingClipped(std::to_string(size));
    }
}

TEST_F(OptionsCommand, TheLargestSizeInBoldAndItalicClipsNothing)
{
    startWithSites();
    take(L"18", true, monoFace());
    for (const HWND window : windowsWithTexts(*main)) {
        EXPECT_EQ(std::wstring(fontOf(window).lfFaceName), monoFace());
        EXPECT_EQ(fontOf(window).lfWeight, FW_BOLD);
        EXPECT_NE(fontOf(window).lfItalic, 0);
    }
    expectNothingClipped("18 bold italic");
    take(L"8", true);
    for (const HWND window : windowsWithTexts(*main)) {
        EXPECT_EQ(fontOf(window).lfWeight, FW_NORMAL);
        EXPECT_EQ(fontOf(window).lfItalic, 0);
    }
    expectNothingClipped("8 again");
}

TEST_F(OptionsCommand, OkColoursTheListsAtOnce)
{
    startWithSites();
    main->workspace().options.font.color = 0x2010C0;
    open([](const OptionsDialog& dialog) { press(dialog.window, IDOK); });
    for (ListView* const list : {&lstCategory(), &lstInfo()})
        EXPECT_EQ(SendMessageW(list->handle(), LVM_GETTEXTCOLOR, 0, 0), 0x2010C0);
}

TEST_F(OptionsCommand, WhatIsShownAndSelectedStays)
{
    startWithSites();
    lstInfo().select(1);
    const auto rows = column(lstInfo());
    take(L"16");
    EXPECT_EQ(column(lstInfo()), rows);
    EXPECT_TRUE(lstInfo().isSelected(1));
    EXPECT_EQ(main->caption(), L"Vandrel - Work");
}

TEST_F(OptionsCommand, AnOpenSearchWindowKeepsItsFontAndTheNextOneHasTheNew)
{
    startWithSites();
    main->run(mnuFind);
    const HWND search = main->searchWindow()->handle();
    take(L"14");
    for (HWND child = GetWindow(search, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        EXPECT_EQ(fontOf(child).lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
    SendMessageW(search, WM_CLOSE, 0, 0);
    main->run(mnuFind);
    ASSERT_NE(main->searchWindow(), nullptr);
    EXPECT_EQ(fontOf(GetWindow(main->searchWindow()->handle(), GW_CHILD)).lfHeight,
              -MulDiv(14, static_cast<int>(main->dpi()), 72));
}

TEST_F(OptionsCommand, CancelLeavesTheMainWindowAsItIs)
{
    startWithSites();
    const OptionsState before = main->workspace().options;
    open([](const OptionsDialog& dialog) {
        dialog.clickFont(options::fonts, monoFace());
        dialog.choose(options::fontSize, L"18");
        press(dialog.window, IDCANCEL);
    });
    EXPECT_EQ(main->workspace().options, before);
    EXPECT_EQ(fontOf(lstInfo().handle()).lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
}

TEST_F(OptionsCommand, AnErrorKeepsTheDialogOpenOverTheMainWindow)
{
    startWithSites();
    Answers answers;
    answers.expect(options::caption, [](HWND window) {
        OptionsDialog{window}.type(options::fontSize, L"huge");
        PostMessageW(window, WM_COMMAND, IDOK, 0);
    });
    answers.expectBox(L"Vandrel", options::mismatch, IDOK, MB_ICONHAND);
    answers.expect(options::caption, [&](HWND window) {
        EXPECT_EQ(OptionsDialog{window}.text(options::fontSize), L"huge");
        EXPECT_FALSE(IsWindowEnabled(main->handle()));
        press(window, IDCANCEL);
    });
    SendMessageW(main->handle(), WM_COMMAND, mnuOptions, 0);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(fontOf(lstInfo().handle()).lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(OptionsCommand, TheMainWindowTakesNoInputMeanwhile)
{
    start();
    open([&](const OptionsDialog& dialog) {
        EXPECT_EQ(GetWindow(dialog.window, GW_OWNER), main->handle());
        EXPECT_FALSE(IsWindowEnabled(main->handle()));
        press(dialog.window, IDCANCEL);
    });
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(OptionsCommand, AnOpenAboutBoxTakesNoInputMeanwhileAndKeepsItsFont)
{
    start();
    main->run(mnuAbout);
    const HWND about = main->aboutBox()->handle();
    open([&](const OptionsDialog& dialog) {
        EXPECT_FALSE(IsWindowEnabled(about));
        dialog.type(options::fontSize, L"18");
        press(dialog.window, IDOK);
    });
    EXPECT_TRUE(IsWindowEnabled(about));
    EXPECT_EQ(fontOf(GetDlgItem(about, IDOK)).lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
}

TEST_F(OptionsCommand, AWindowKeptOnTopIsNotTopmostMeanwhile)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    ASSERT_TRUE(isTopmost(main->handle()));
    for (const int button : {IDOK, IDCANCEL}) {
        open([&](const OptionsDialog& dialog) {
            EXPECT_FALSE(isTopmost(main->handle()));
            press(dialog.window, button);
        });
        EXPECT_TRUE(isTopmost(main->handle()));
    }
}

TEST_F(OptionsCommand, AWindowNotKeptOnTopStaysNormal)
{
    start();
    open([](const OptionsDialog& dialog) { press(dialog.window, IDOK); });
    EXPECT_FALSE(isTopmost(main->handle()));
}

TEST_F(OptionsCommand, TheValuesReachThePreferencesWhenTheMainWindowCloses)
{
    startWithSites();
    open([](const OptionsDialog& dialog) {
        dialog.clickFont(options::fonts, monoFace());
        dialog.choose(options::fontSize, L"12");
        dialog.click(options::bold);
        dialog.clickFont(options::htmlFonts, serifFace());
        dialog.choose(options::border, L"5");
        dialog.type(options::width, L"55");
        dialog.click(options::empty);
        press(dialog.window, IDOK);
    });
    for (const wchar_t* const key : {L"FontName", L"FontSize", L"HTMLFont", L"HTMLTWidth", L"GenEmpty"})
        EXPECT_EQ(preference(L"Options", key), L"") << testing::PrintToString(std::wstring(key));
    stop();
    const std::pair<const wchar_t*, std::wstring> written[] = {
        {L"FontName", monoFace()}, {L"FontColor", L"0"},   {L"FontSize", L"12"},
        {L"FontBold", L"1"},       {L"FontItalic", L"0"},  {L"HTMLFont", serifFace()},
        {L"HTMLBorder", L"5"},     {L"HTMLTWidth", L"55"}, {L"GenEmpty", L"1"}};
    for (const auto& [key, text] : written)
        EXPECT_EQ(preference(L"Options", key), text) << testing::PrintToString(std::wstring(key));
}

TEST_F(OptionsCommand, AnImpossibleFontSizeCanBeCorrectedInTheSameRun)
{
    startWithSites();
    take(L"0");
    EXPECT_EQ(main->workspace().options.font.size, 0);
    Answers answers;
    bool opened = false;
    answers.expect(options::caption, [&](HWND window) {
        opened = true;
        OptionsDialog{window}.type(options::fontSize, L"10");
        press(window, IDOK);
    });
    SendMessageW(main->handle(), WM_COMMAND, mnuOptions, 0);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(opened);
    EXPECT_EQ(main->workspace().options.font.size, 10);
}

} // namespace
} // namespace vandrel::test

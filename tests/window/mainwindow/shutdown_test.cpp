#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class Shutdown : public MainWindowTest {
  protected:
    std::wstring config(const std::wstring& key) const { return preference(L"Config", key); }
    std::wstring option(const std::wstring& key) const { return preference(L"Options", key); }
};

TEST_F(Shutdown, WritesEveryOption)
{
    start();
    main->workspace().options = {{L"Tahoma", 0x123456, 10, true, true}, L"Courier", L"500", 3, true};
    stop();
    EXPECT_EQ(option(L"FontName"), L"Tahoma");
    EXPECT_EQ(option(L"FontColor"), L"1193046");
    EXPECT_EQ(option(L"FontSize"), L"10");
    EXPECT_EQ(option(L"FontBold"), L"1");
    EXPECT_EQ(option(L"FontItalic"), L"1");
    EXPECT_EQ(option(L"HTMLFont"), L"Courier");
    EXPECT_EQ(option(L"HTMLTWidth"), L"500");
    EXPECT_EQ(option(L"HTMLBorder"), L"3");
    EXPECT_EQ(option(L"GenEmpty"), L"1");
}

TEST_F(Shutdown, WritesTheDefaultsOfAFirstRunToo)
{
    start();
    stop();
    EXPECT_EQ(option(L"FontName"), L"Arial");
    EXPECT_EQ(option(L"FontColor"), L"0");
    EXPECT_EQ(option(L"FontSize"), L"8");
    EXPECT_EQ(option(L"FontBold"), L"0");
    EXPECT_EQ(option(L"FontItalic"), L"0");
    EXPECT_EQ(option(L"HTMLFont"), L"Arial");
    EXPECT_EQ(option(L"HTMLTWidth"), L"75%");
    EXPECT_EQ(option(L"HTMLBorder"), L"0");
    EXPECT_EQ(option(L"GenEmpty"), L"0");
    EXPECT_EQ(config(L"Left"), L"0");
    EXPECT_EQ(config(L"Top"), L"0");
    EXPECT_EQ(config(L"Width"), L"9135");
    EXPECT_EQ(config(L"Height"), L"5685");
    EXPECT_EQ(config(L"Col1"), L"2160");
    EXPECT_EQ(config(L"Col2"), L"2880");
    EXPECT_EQ(config(L"Col4"), L"0");
    EXPECT_EQ(config(L"GridLines"), L"0");
    EXPECT_EQ(config(L"HoverSel"), L"0");
    EXPECT_EQ(config(L"KeepTop"), L"");
}

TEST_F(Shutdown, TheOptionsAreNotWrittenEarlier)
{
    start();
    main->workspace().options.font.size = 12;
    EXPECT_EQ(option(L"FontSize"), L"");
    stop();
    EXPECT_EQ(option(L"FontSize"), L"12");
}

TEST_F(Shutdown, WritesTheCurrentPlaceOfTheWindow)
{
    start();
    SetWindowPos(main->handle(), nullptr, 50, 40, 900, 500, SWP_NOZORDER);
    pump();
    stop();
    EXPECT_EQ(config(L"Left"), L"750");
    EXPECT_EQ(config(L"Top"), L"600");
    EXPECT_EQ(config(L"Width"), L"13500");
    EXPECT_EQ(config(L"Height"), L"7500");
}

TEST_F(Shutdown, WritesTheCurrentColumnsOfTheList)
{
    start();
    const int pixels[] = {101, 77, 33, 20};
    for (WPARAM i = 0; i < 4; ++i) SendMessageW(lstInfo().handle(), LVM_SETCOLUMNWIDTH, i, pixels[i]);
    stop();
    EXPECT_EQ(config(L"Col1"), L"1515");
    EXPECT_EQ(config(L"Col2"), L"1155");
    EXPECT_EQ(config(L"Col3"), L"495");
    EXPECT_EQ(config(L"Col4"), L"300");
}

TEST_F(Shutdown, AColumnThatWasNotDraggedKeepsItsFraction)
{
    setPreference(L"Config", L"Col1", L"2160.5");
    start();
    stop();
    EXPECT_EQ(config(L"Col1"), L"2160.5");
}

TEST_F(Shutdown, WhileMinimisedLeftAndTopAreZero)
{
    setPreference(L"Config", L"Left", L"1500");
    setPreference(L"Config", L"Top", L"1500");
    start();
    ShowWindow(main->handle(), SW_MINIMIZE);
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(main->handle()) != 0; }));
    const RECT minimised = outerPlace(main->handle());
    const unsigned dpi = main->dpi();
    stop();
    EXPECT_EQ(config(L"Left"), L"0");
    EXPECT_EQ(config(L"Top"), L"0");
    EXPECT_EQ(config(L"Width"), std::to_wstring(std::lround(widthOf(minimised) * 1440.0 / dpi)));
    EXPECT_EQ(config(L"Height"), std::to_wstring(std::lround(heightOf(minimised) * 1440.0 / dpi)));
}

TEST_F(Shutdown, AfterShutdownWhileMinimisedTheWindowComesBackInTheSmallestSize)
{
    start();
    ShowWindow(main->handle(), SW_MINIMIZE);
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(main->handle()) != 0; }));
    stop();
    pump();
    start();
    EXPECT_EQ(widthOf(outerPlace(main->handle())), px(*main, 9135));
    EXPECT_EQ(heightOf(outerPlace(main->handle())), px(*main, 5685));
    EXPECT_FALSE(IsIconic(main->handle()));
}

TEST_F(Shutdown, WhatIsWrittenIsWhatTheNextStartShows)
{
    setPreference(L"Config", L"Left", L"600");
    setPreference(L"Config", L"Top", L"450");
    setPreference(L"Config", L"Width", L"12000");
    setPreference(L"Config", L"Height", L"9000");
    setPreference(L"Config", L"Col4", L"1200");
    setPreference(L"Options", L"FontColor", L"255");
    start();
    main->run(mnuGridlines);
    main->run(mnuHoverSelect);
    const RECT place = outerPlace(main->handle());
    const OptionsState options = main->workspace().options;
    std::vector<int> columns;
    for (int i = 0; i < 4; ++i) columns.push_back(columnPixels(lstInfo(), i));
    stop();
    pump();
    start();
    const RECT again = outerPlace(main->handle());
    EXPECT_TRUE(EqualRect(&place, &again));
    EXPECT_EQ(main->workspace().options, options);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(columnPixels(lstInfo(), i), columns[static_cast<std::size_t>(i)]) << i;
    EXPECT_TRUE(lstInfo().gridLines());
    EXPECT_TRUE(lstInfo().hoverSelection());
}

TEST_F(Shutdown, AsksNothingAndEndsTheProgram)
{
    folder.write(L"Work.udb", threeSites);
    start();
    siteRows().setText(0, 0, L"changed and never saved");
    const HWND window = main->handle();
    Answers none;
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(MessageLoop::current().dispatchPending()) << "the loop is asked to end";
    EXPECT_ANSWERED(none);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
}

TEST_F(Shutdown, AFailingStoreIsReportedAndTheWindowClosesAllTheSame)
{
    store = SettingsStore(std::wstring(300, L'x')); // longer than a key's name can be
    start();
    const HWND window = main->handle();
    std::wstring told;
    Answers answers;
    answers.expect(L"Vandrel", [&](HWND box) {
        told = windowText(GetDlgItem(box, 0xFFFF));
        press(box, IDOK);
    });
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(told.rfind(L"Run-time error '", 0), 0U) << testing::PrintToString(told);
}

TEST_F(Shutdown, AViewSettingThatCannotBeSavedIsReportedAndStillTakesEffect)
{
    store = SettingsStore(std::wstring(300, L'x'));
    start();
    Answers answers;
    answers.expect(L"Vandrel", [](HWND box) { press(box, IDOK); });
    SendMessageW(main->handle(), WM_COMMAND, mnuGridlines, 0);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(lstInfo().gridLines());
}

TEST_F(Shutdown, WhileADialogIsOpenEndsItAndSavesNothingOfIt)
{
    folder.write(L"Work.udb", threeSites);
    const std::pair<int, const wchar_t*> dialogs[] = {
        {mnuAddWebsite, L"Add Site..."},    {mnuEditSel, L"Edit selected site..."},
        {mnuAddCategory, L"Category Name"}, {mnuRemoveWebsite, L"Remove site(s)"},
        {mnuRemoveCategory, L"Vandrel"},
    };
    for (const auto& [entry, caption] : dialogs) {
        start();
        lstInfo().select(0);
        const HWND window = main->handle();
        Answers answers;
        answers.expect(caption, [&](HWND) { SendMessageW(window, WM_CLOSE, 0, 0); });
        main->run(entry);
        EXPECT_ANSWERED(answers) << entry;
        EXPECT_FALSE(IsWindow(window)) << entry;
        EXPECT_EQ(folder.read(L"Work.udb"), threeSites) << entry;
        EXPECT_EQ(config(L"Col1"), L"2160");
        main.reset();
        pump();
    }
}

TEST_F(Shutdown, WritesThePreferencesWhenTheSessionEnds)
{
    start();
    main->run(mnuHoverSelect);
    SendMessageW(main->handle(), WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(config(L"HoverSel"), L"");
    EXPECT_EQ(SendMessageW(main->handle(), WM_QUERYENDSESSION, 0, 0), TRUE);
    SendMessageW(main->handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(config(L"HoverSel"), L"1");
}

} // namespace
} // namespace vandrel::test

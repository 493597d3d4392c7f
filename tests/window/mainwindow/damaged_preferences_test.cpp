#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class DamagedPreferences : public MainWindowTest {
  protected:
    DamagedPreferences() { store = SettingsStore(application_); }
    ~DamagedPreferences() override
    {
        main.reset();
        RegDeleteTreeW(HKEY_CURRENT_USER, (root + application_).c_str());
    }
    void setRaw(const std::wstring& section, const wchar_t* name, DWORD type, const void* data,
                DWORD size) const
    {
        RegSetKeyValueW(HKEY_CURRENT_USER, (root + application_ + L"\\" + section).c_str(), name, type, data,
                        size);
    }

  private:
    const std::wstring root = L"Software\\VB and VBA Program Settings\\";
    std::wstring application_ = L"VandrelTest-damaged-" + std::to_wstring(GetCurrentProcessId());
};

TEST_F(DamagedPreferences, ValuesOfAnotherTypeCountAsMissing)
{
    folder.write(L"Work.udb", threeSites);
    const DWORD one = 1;
    const DWORD wide = 12000;
    for (const wchar_t* const name : {L"GridLines", L"HoverSel", L"KeepTop"}) {
        setRaw(L"Config", name, REG_DWORD, &one, sizeof one);
    }
    for (const wchar_t* const name : {L"Left", L"Top", L"Width", L"Height", L"Col1", L"Col2", L"Col4"}) {
        setRaw(L"Config", name, REG_DWORD, &wide, sizeof wide);
    }
    setRaw(L"Options", L"FontName", REG_BINARY, L"Tahoma", 14);
    setRaw(L"Options", L"FontSize", REG_DWORD, &one, sizeof one);
    setRaw(L"Options", L"HTMLTWidth", REG_MULTI_SZ, L"50%\0", 10);
    start();
    EXPECT_EQ(widthOf(outerPlace(main->handle())), px(*main, 9135));
    EXPECT_EQ(outerPlace(main->handle()).left, 0);
    EXPECT_EQ(columnPixels(lstInfo(), 0), px(*main, 2160));
    EXPECT_EQ(columnPixels(lstInfo(), 3), 0);
    EXPECT_FALSE(lstInfo().gridLines());
    EXPECT_FALSE(lstInfo().hoverSelection());
    EXPECT_EQ(main->workspace().keepOnTop.flag, 0);
    EXPECT_EQ(main->workspace().options.font, (DisplayFont{L"Arial", 0, 8, false, false}));
    EXPECT_EQ(main->workspace().options.htmlTableWidth, L"75%");
}

TEST_F(DamagedPreferences, AValueOfAnotherTypeIsReplacedByATextAtShutdown)
{
    const DWORD wide = 12000;
    setRaw(L"Config", L"Col1", REG_DWORD, &wide, sizeof wide);
    start();
    stop();
    EXPECT_EQ(preference(L"Config", L"Col1"), L"2160");
}

TEST_F(DamagedPreferences, ATextWithoutAFinalNulIsReadToItsLastLetter)
{
    setRaw(L"Options", L"FontName", REG_SZ, L"Tahoma", 12);
    start();
    EXPECT_EQ(main->workspace().options.font.name, L"Tahoma");
}

TEST_F(DamagedPreferences, AFontSizeBelowZeroGivesALegibleFont)
{
    setPreference(L"Options", L"FontSize", L"-3");
    start();
    EXPECT_EQ(main->workspace().options.font.size, 8);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(lstInfo().handle(), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
}

TEST_F(DamagedPreferences, AnUnknownFontNameStillShowsTexts)
{
    setPreference(L"Options", L"FontName", std::wstring(500, L'x'));
    start();
    EXPECT_NE(SendMessageW(lstInfo().handle(), WM_GETFONT, 0, 0), 0);
    stop();
    EXPECT_EQ(preference(L"Options", L"FontName"), std::wstring(500, L'x'));
}

TEST_F(DamagedPreferences, AColumnWidthThatIsNotANumberGivesTheFallback)
{
    for (const wchar_t* const key : {L"Col1", L"Col2", L"Col3", L"Col4"})
        setPreference(L"Config", key, L"abc");
    start();
    EXPECT_EQ(columnPixels(lstInfo(), 0), px(*main, 2160));
    EXPECT_EQ(columnPixels(lstInfo(), 1), px(*main, 2880));
    EXPECT_EQ(columnPixels(lstInfo(), 3), 0);
}

TEST_F(DamagedPreferences, ColumnsOfAbsurdWidthsLeaveTheListUsable)
{
    setPreference(L"Config", L"Col1", L"-500");
    setPreference(L"Config", L"Col2", L"1000000");
    setPreference(L"Config", L"Col4", L"1e38");
    folder.write(L"Work.udb", threeSites);
    start();
    EXPECT_EQ(columnPixels(lstInfo(), 0), px(*main, 2160));
    EXPECT_EQ(columnPixels(lstInfo(), 2), 0);
    EXPECT_EQ(lstInfo().count(), 3U);
    stop();
    EXPECT_EQ(preference(L"Config", L"Col3"), L"0");
}

} // namespace
} // namespace vandrel::test

#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class ViewSettings : public MainWindowTest {
  protected:
    bool isChecked(int entry) { return itemWithId(GetMenu(main->handle()), entry).value().checked(); }
    bool listHas(DWORD style)
    {
        return (static_cast<DWORD>(SendMessageW(lstInfo().handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0)) &
                style) != 0;
    }
};

TEST_F(ViewSettings, AreOffOnAFirstRun)
{
    start();
    for (const int entry : {mnuGridlines, mnuHoverSelect, mnuKeepTop}) EXPECT_FALSE(isChecked(entry));
    EXPECT_FALSE(listHas(LVS_EX_GRIDLINES));
    EXPECT_FALSE(listHas(LVS_EX_TRACKSELECT));
}

TEST_F(ViewSettings, GridlinesTakesEffectAndIsSavedAtOnce)
{
    start();
    main->run(mnuGridlines);
    EXPECT_TRUE(isChecked(mnuGridlines));
    EXPECT_TRUE(listHas(LVS_EX_GRIDLINES));
    EXPECT_EQ(preference(L"Config", L"GridLines"), L"1");
    main->run(mnuGridlines);
    EXPECT_FALSE(isChecked(mnuGridlines));
    EXPECT_FALSE(listHas(LVS_EX_GRIDLINES));
    EXPECT_EQ(preference(L"Config", L"GridLines"), L"0");
}

TEST_F(ViewSettings, GridlinesIsWrittenAtShutdownToo)
{
    setPreference(L"Config", L"GridLines", L"1");
    start();
    setPreference(L"Config", L"GridLines", L"7");
    stop();
    EXPECT_EQ(preference(L"Config", L"GridLines"), L"1");
}

TEST_F(ViewSettings, HoverSelectTakesEffectAtOnceAndIsSavedOnlyAtShutdown)
{
    start();
    main->run(mnuHoverSelect);
    EXPECT_TRUE(isChecked(mnuHoverSelect));
    EXPECT_TRUE(listHas(LVS_EX_TRACKSELECT));
    EXPECT_EQ(preference(L"Config", L"HoverSel"), L"");
    stop();
    EXPECT_EQ(preference(L"Config", L"HoverSel"), L"1");
}

TEST_F(ViewSettings, HoverSelectTwiceLeavesItOffAtShutdown)
{
    setPreference(L"Config", L"HoverSel", L"1");
    start();
    EXPECT_TRUE(isChecked(mnuHoverSelect));
    main->run(mnuHoverSelect);
    EXPECT_FALSE(listHas(LVS_EX_TRACKSELECT));
    EXPECT_EQ(preference(L"Config", L"HoverSel"), L"1");
    stop();
    EXPECT_EQ(preference(L"Config", L"HoverSel"), L"0");
}

TEST_F(ViewSettings, AnEndWithoutShutdownLosesHoverSelectButNotGridlines)
{
    start();
    main->run(mnuHoverSelect);
    main->run(mnuGridlines);
    main.reset(); // nothing asks the window to close
    EXPECT_EQ(preference(L"Config", L"HoverSel"), L"");
    EXPECT_EQ(preference(L"Config", L"GridLines"), L"1");
}

TEST_F(ViewSettings, StoredOnesAreRestored)
{
    setPreference(L"Config", L"GridLines", L"1");
    setPreference(L"Config", L"HoverSel", L"1");
    start();
    EXPECT_TRUE(isChecked(mnuGridlines));
    EXPECT_TRUE(isChecked(mnuHoverSelect));
    EXPECT_TRUE(listHas(LVS_EX_GRIDLINES));
    EXPECT_TRUE(listHas(LVS_EX_TRACKSELECT));
}

TEST_F(ViewSettings, OnlyOneMeansOn)
{
    for (const wchar_t* const key : {L"GridLines", L"HoverSel", L"KeepTop"})
        setPreference(L"Config", key, L"2");
    start();
    for (const int entry : {mnuGridlines, mnuHoverSelect, mnuKeepTop})
        EXPECT_FALSE(isChecked(entry)) << entry;
}

TEST_F(ViewSettings, AStoredOneIsSwitchedOffByItsEntry)
{
    setPreference(L"Config", L"GridLines", L"1");
    start();
    main->run(mnuGridlines);
    EXPECT_FALSE(isChecked(mnuGridlines));
    EXPECT_FALSE(listHas(LVS_EX_GRIDLINES));
    EXPECT_EQ(preference(L"Config", L"GridLines"), L"0");
}

TEST_F(ViewSettings, OnlyTheSiteListHasGridLinesAndHoverSelection)
{
    setPreference(L"Config", L"GridLines", L"1");
    setPreference(L"Config", L"HoverSel", L"1");
    start();
    EXPECT_FALSE(lstCategory().gridLines());
    EXPECT_FALSE(lstCategory().hoverSelection());
}

} // namespace
} // namespace vandrel::test

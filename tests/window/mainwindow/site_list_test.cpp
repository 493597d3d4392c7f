#include "tests/support/input.h"
#include "tests/support/list_clicks.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

using Texts = std::vector<std::wstring>;

class SiteList : public MainWindowTest {
  protected:
    void startWithSites()
    {
        folder.write(L"Work.udb", threeSites);
        start();
    }
    std::wstring panel(int number) { return main->workspace().StatusBar1.panelText(number); }
    Texts names() { return column(lstInfo()); }
};

TEST_F(SiteList, HasItsFourColumns)
{
    start();
    const wchar_t* const captions[] = {L"Site Name", L"URL", L"Description", L"Date"};
    for (WPARAM i = 0; i < 4; ++i) {
        wchar_t caption[40]{};
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = caption;
        column.cchTextMax = 40;
        EXPECT_TRUE(SendMessageW(lstInfo().handle(), LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column)));
        EXPECT_STREQ(caption, captions[i]);
    }
    const HWND header = reinterpret_cast<HWND>(SendMessageW(lstInfo().handle(), LVM_GETHEADER, 0, 0));
    EXPECT_EQ(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0), 4);
}

TEST_F(SiteList, ShowsTheFourFieldsWithTheSiteImage)
{
    startWithSites();
    EXPECT_EQ(names(), (Texts{L"Beta", L"Alpha", L"Gamma"}));
    EXPECT_EQ(column(lstInfo(), 1),
              (Texts{L"http://b.example/", L"http://c.example/", L"http://a.example/"}));
    EXPECT_EQ(column(lstInfo(), 2), (Texts{L"second", L"first", L"third"}));
    EXPECT_EQ(column(lstInfo(), 3), (Texts{L"9/30/2002", L"10/1/2002", L"1/15/2003"}));
    for (std::size_t row = 0; row < 3; ++row) EXPECT_EQ(siteRows().image(row), 1);
}

TEST_F(SiteList, AClickShowsNameAndUrlEachFollowedByTwoBlanks)
{
    startWithSites();
    clickRow(lstInfo(), 1);
    EXPECT_EQ(panel(2), L"Name: Alpha  ");
    EXPECT_EQ(panel(3), L"URL: http://c.example/  ");
}

TEST_F(SiteList, AnArrowKeyShowsTheSiteToo)
{
    startWithSites();
    clickRow(lstInfo(), 1);
    pressKey(VK_DOWN);
    EXPECT_EQ(panel(2), L"Name: Gamma  ");
}

TEST_F(SiteList, WithSeveralSelectedTheFirstOneIsShown)
{
    startWithSites();
    clickRow(lstInfo(), 1);
    {
        const HeldKeys held({VK_CONTROL});
        clickRow(lstInfo(), 2, MK_CONTROL);
    }
    EXPECT_EQ(lstInfo().selectedCount(), 2U);
    EXPECT_EQ(panel(2), L"Name: Alpha  ");
    EXPECT_EQ(panel(3), L"URL: http://c.example/  ");
}

TEST_F(SiteList, AClickOnEmptySpaceLeavesTheStatusBar)
{
    startWithSites();
    clickRow(lstInfo(), 1);
    const RECT area = clientOf(lstInfo().handle());
    clickAt(lstInfo().handle(), {area.right - 20, area.bottom - 30});
    EXPECT_EQ(lstInfo().selectedCount(), 0U);
    EXPECT_EQ(panel(2), L"Name: Alpha  ");
    EXPECT_EQ(panel(3), L"URL: http://c.example/  ");
}

TEST_F(SiteList, ALongTextIsShownInFull)
{
    const std::string longName(600, 'n');
    folder.write(L"Work.udb", longName + "|http://x/||\r\n");
    start();
    clickRow(lstInfo(), 0);
    EXPECT_EQ(panel(2), L"Name: " + std::wstring(600, L'n') + L"  ");
}

class SiteListColumns : public SiteList, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Shown, SiteListColumns, testing::Values(0, 1, 2));

TEST_P(SiteListColumns, TheFirstClickSortsThatColumnDescending)
{
    startWithSites();
    clickHeader(lstInfo(), GetParam());
    const Texts sorted = column(lstInfo(), static_cast<std::size_t>(GetParam()));
    EXPECT_TRUE(std::ranges::is_sorted(sorted, std::ranges::greater()));
}

TEST_F(SiteList, EveryClickReversesTheOrderWhicheverTheColumn)
{
    startWithSites();
    clickHeader(lstInfo(), 0);
    EXPECT_EQ(names(), (Texts{L"Gamma", L"Beta", L"Alpha"}));
    clickHeader(lstInfo(), 1);
    EXPECT_EQ(names(), (Texts{L"Gamma", L"Beta", L"Alpha"})) << "by URL, ascending";
    clickHeader(lstInfo(), 1);
    EXPECT_EQ(names(), (Texts{L"Alpha", L"Beta", L"Gamma"})) << "by URL, descending";
    clickHeader(lstInfo(), 0);
    EXPECT_EQ(names(), (Texts{L"Alpha", L"Beta", L"Gamma"})) << "by name, ascending";
    clickHeader(lstInfo(), 0);
    EXPECT_EQ(names(), (Texts{L"Gamma", L"Beta", L"Alpha"})) << "by name, descending";
}

TEST_F(SiteList, DatesSortAsTexts)
{
    setPreference(L"Config", L"Col4", L"1200");
    setPreference(L"Config", L"Width", L"15000");
    startWithSites();
    clickHeader(lstInfo(), 3);
    clickHeader(lstInfo(), 3);
    EXPECT_EQ(column(lstInfo(), 3), (Texts{L"1/15/2003", L"10/1/2002", L"9/30/2002"}));
}

TEST_F(SiteList, TheNextSaveWritesTheSortedOrder)
{
    startWithSites();
    clickHeader(lstInfo(), 0);
    clickRow(lstInfo(), 1);
    Answers answers;
    answers.expect(L"Edit selected site...", [](HWND dialog) { press(dialog, IDOK); });
    main->run(mnuEditSel);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "Gamma|http://a.example/|third|1/15/2003\r\n"
                                        "Beta|http://b.example/|second|11/16/2002\r\n"
                                        "Alpha|http://c.example/|first|10/1/2002\r\n");
}

TEST_F(SiteList, LoadingACategorySortsNothingAndKeepsTheOrderForTheNextClick)
{
    startWithSites();
    clickHeader(lstInfo(), 0);
    clickRow(lstCategory(), 0);
    EXPECT_EQ(names(), (Texts{L"Beta", L"Alpha", L"Gamma"}));
    clickHeader(lstInfo(), 0);
    EXPECT_EQ(names(), (Texts{L"Alpha", L"Beta", L"Gamma"}));
}

TEST_F(SiteList, SortingKeepsTheSelectedSiteSelected)
{
    startWithSites();
    clickRow(lstInfo(), 1);
    clickHeader(lstInfo(), 0);
    ASSERT_TRUE(lstInfo().currentRow());
    EXPECT_EQ(lstInfo().text(*lstInfo().currentRow()), L"Alpha");
    EXPECT_EQ(lstInfo().selectedCount(), 1U);
}

TEST_F(SiteList, ADeadMarkIsGoneWhenTheCategoryIsLoadedAgain)
{
    startWithSites();
    siteRows().setImage(1, deadSiteImage);
    clickRow(lstCategory(), 0);
    EXPECT_EQ(siteRows().image(1), siteImage);
}

} // namespace
} // namespace vandrel::test

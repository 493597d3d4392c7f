#include "tests/support/link_test.h"

namespace vandrel::test {
namespace {

class OpeningASite : public LinkTest {
  protected:
    int topRow() { return static_cast<int>(SendMessageW(lstInfo().handle(), LVM_GETTOPINDEX, 0, 0)); }
};

TEST_F(OpeningASite, HandsItsAddressToTheShell)
{
    startWithSites();
    choose(mnuOpenURL);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://c.example/")});
}

TEST_F(OpeningASite, HandsTheAddressOverUnchanged)
{
    const std::wstring address = L"http://c.example/a b%20c?q=1&r=%41#part";
    folder.write(L"Work.udb", "A|" + std::string(address.begin(), address.end()) + "||\r\n");
    start();
    lstInfo().select(0);
    choose(mnuOpenURL);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(address)});
}

TEST_F(OpeningASite, DatesItTodayAndSavesAtOnce)
{
    startWithSites();
    choose(mnuOpenURL);
    EXPECT_EQ(lstInfo().text(1, 3), L"11/16/2002");
    EXPECT_EQ(folder.read(L"Work.udb"), threeSitesWithTheSecondOpened());
}

TEST_F(OpeningASite, AsksForTheDateEachTime)
{
    startWithSites();
    choose(mnuOpenURL);
    today = L"12/24/2002";
    choose(mnuOpenURL);
    EXPECT_EQ(lstInfo().text(1, 3), L"12/24/2002");
    EXPECT_NE(folder.read(L"Work.udb").find("Alpha|http://c.example/|first|12/24/2002\r\n"),
              std::string::npos);
}

TEST_F(OpeningASite, ThatNothingCanOpenDatesItWithoutAMessage)
{
    for (const std::string address : {"nobody-knows-this://x", "", "word", "C:\\no\\such\\file.txt"}) {
        folder.write(L"Work.udb", "A|" + address + "|x|1/1/2001\r\n");
        start();
        lstInfo().select(0);
        Answers none;
        choose(mnuOpenURL);
        EXPECT_ANSWERED(none);
        EXPECT_EQ(folder.read(L"Work.udb"), "A|" + address + "|x|11/16/2002\r\n");
        stop();
    }
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(OpeningASite, WorksForOneWithoutAName)
{
    folder.write(L"Work.udb", "|http://a/|x|\r\n");
    start();
    lstInfo().select(0);
    choose(mnuOpenURL);
    EXPECT_EQ(folder.read(L"Work.udb"), "|http://a/|x|11/16/2002\r\n");
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://a/")});
}

TEST_F(OpeningASite, KeepsTheSelectionAndThePlaceInTheList)
{
    std::string file;
    for (int site = 100; site < 400; ++site) {
        file += "Site " + std::to_string(site) + "|http://" + std::to_string(site) + "/||1/1/2001\r\n";
    }
    folder.write(L"Work.udb", file);
    start();
    lstInfo().select(200);
    lstInfo().ensureVisible(200);
    const int top = topRow();
    ASSERT_GT(top, 0);
    choose(mnuOpenURL);
    EXPECT_EQ(topRow(), top);
    EXPECT_EQ(lstInfo().currentRow(), 200U);
    EXPECT_EQ(lstInfo().selectedCount(), 1U);
    EXPECT_EQ(lstInfo().text(200, 3), L"11/16/2002");
    EXPECT_EQ(lstInfo().count(), 300U);
}

TEST_F(OpeningASite, OfSeveralSelectedOnesOpensOnlyTheCurrent)
{
    startWithSites();
    selectSites({0, 2, 1});
    choose(mnuOpenURL);
    EXPECT_EQ(folder.read(L"Work.udb"), threeSitesWithTheSecondOpened());
    EXPECT_EQ(lstInfo().selectedCount(), 3U);
    shellOpen(nullptr, L"http://last.example/");
    EXPECT_EQ(recorder.linesOf(2),
              (Lines{recorder.opening(L"http://c.example/"), recorder.opening(L"http://last.example/")}));
}

TEST_F(OpeningASite, InAListSortedByDateKeepsItSelected)
{
    startWithSites();
    siteRows().sortBy(3, SortOrder::descending);
    const auto row = lstInfo().currentRow();
    ASSERT_TRUE(row);
    ASSERT_EQ(lstInfo().text(*row), L"Alpha");
    choose(mnuOpenURL);
    ASSERT_TRUE(lstInfo().currentRow());
    EXPECT_EQ(lstInfo().text(*lstInfo().currentRow()), L"Alpha");
    EXPECT_EQ(lstInfo().text(*lstInfo().currentRow(), 3), L"11/16/2002");
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://c.example/")});
}

TEST_F(OpeningASite, DoesNothingInAnEmptyListOrWithNoneSelected)
{
    folder.write(L"Empty.udb", "");
    folder.write(L"Work.udb", threeSites);
    start();
    Answers none;
    clickCategory(L"Empty");
    main->run(mnuOpenURL);
    main->toolBar().ButtonClick(9);
    lstInfo().DblClick();
    clickCategory(L"Work");
    lstInfo().clearSelection();
    main->run(mnuOpenURL);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(folder.read(L"Empty.udb"), "");
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(OpeningASite, WithoutAnyCategoryDoesNothing)
{
    start();
    Answers none;
    main->run(mnuOpenURL);
    main->toolBar().ButtonClick(9);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(folder.names(), Lines{});
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(OpeningASite, WhoseDateCannotBeSavedShowsItAndRaisesTheError)
{
    startWithSites();
    makeReadOnly(L"Work.udb");
    Answers answers;
    answers.expect(L"Vandrel", [](HWND box) {
        EXPECT_EQ(windowText(GetDlgItem(box, 0xFFFF)).find(L"Run-time error '"), 0U);
        press(box, IDOK);
    });
    choose(mnuOpenURL);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://c.example/")});
}

} // namespace
} // namespace vandrel::test

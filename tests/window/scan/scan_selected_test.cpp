#include "platform/controls/simple_controls.h"
#include "platform/system/internet_transfer.h"
#include "tests/support/all_images.h"
#include "tests/support/scan_test.h"

namespace vandrel::test {
namespace {

class ScanSelected : public ScanTest {
  protected:
    // Four sites, of which the second is dead.
    void beginWithFour()
    {
        begin({{L"A", at(L"/ok?1")}, {L"B", dead}, {L"C", at(L"/ok?3")}, {L"D", at(L"/ok?4")}});
    }
};

TEST_F(ScanSelected, AsksForTheSelectedSitesAlone)
{
    beginWithFour();
    selectSites({3, 0});
    scanSelected();
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/ok?1", "/ok?4"})) << "in the order of the list";
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")) + success(L"D", at(L"/ok?4")));
}

TEST_F(ScanSelected, OneSiteGetsItsMark)
{
    beginWithFour();
    lstInfo().select(1);
    scanSelected();
    EXPECT_EQ(images(), (Images{1, 5, 1, 1}));
    EXPECT_EQ(log(), failed(L"B", dead));
}

TEST_F(ScanSelected, OneSiteLosesItsMark)
{
    beginWithFour();
    setAllImages(siteRows(), deadSiteImage);
    lstInfo().select(2);
    scanSelected();
    EXPECT_EQ(images(), (Images{5, 5, 1, 5}));
}

TEST_F(ScanSelected, TheMarkOfAnEarlierScanStaysDuringTheCheck)
{
    begin({{L"A", at(L"/held")}});
    siteRows().setImage(0, deadSiteImage);
    Meanwhile meanwhile(isHeld(), [&] {
        EXPECT_EQ(images(), Images{5});
        server.letGo();
    });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), Images{1});
}

// Of several, the current one alone shows a result: that of the last.

TEST_F(ScanSelected, OfSeveralTheCurrentOneShowsTheLastResult)
{
    beginWithFour();
    selectSites({1, 2, 0}); // the first is the current one, the third is checked last
    scanSelected();
    EXPECT_EQ(images(), (Images{1, 1, 1, 1})) << "the second failed and is not marked";
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")) + failed(L"B", dead) + success(L"C", at(L"/ok?3")));
}

TEST_F(ScanSelected, OfSeveralTheCurrentOneShowsItAlsoWhenReachableItself)
{
    beginWithFour();
    selectSites({1, 0});
    scanSelected();
    EXPECT_EQ(images(), (Images{5, 1, 1, 1})) << "the first is the current, the second failed";
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")) + failed(L"B", dead));
}

TEST_F(ScanSelected, OfSeveralTheCurrentOneShowsEachResultInTurn)
{
    begin({{L"A", dead}, {L"B", at(L"/held")}, {L"C", at(L"/ok")}});
    selectSites({0, 1, 2});
    // The second may be asked before the first has its result.
    const auto firstIsMarked = [&, held = isHeld()] { return held() && images() != Images{1, 1, 1}; };
    Meanwhile meanwhile(firstIsMarked, [&] {
        EXPECT_EQ(images(), (Images{1, 1, 5}));
        server.letGo();
    });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), (Images{1, 1, 1}));
}

TEST_F(ScanSelected, WithNothingSelectedTheLogIsOpenedAndNothingElseHappens)
{
    beginWithFour();
    setAllImages(siteRows(), deadSiteImage);
    lstInfo().clearSelection();
    scanSelected();
    EXPECT_EQ(log(), "");
    EXPECT_EQ(images(), (Images{5, 5, 5, 5}));
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_FALSE(PB().visible());
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(ScanSelected, AnEmptyCategoryIsComplete)
{
    begin({});
    scanSelected();
    EXPECT_EQ(log(), "");
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_FALSE(PB().visible());
}

TEST_F(ScanSelected, ShowsNoMessageWhenAllOfThemFail)
{
    begin({{L"A", dead}, {L"B", L"http://"}});
    lstInfo().selectAll();
    scanSelected();
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(log(), failed(L"A", dead) + failed(L"B", L"http://"));
}

TEST_F(ScanSelected, LeavesTheOtherPanelsAlone)
{
    begin({{L"A", at(L"/held")}});
    workspace().StatusBar1.setPanelText(1, L"one");
    workspace().StatusBar1.setPanelText(2, L"two");
    workspace().StatusBar1.setPanelText(3, L"three");
    Meanwhile meanwhile(isHeld(), [&] {
        EXPECT_EQ(panel(1), L"one");
        EXPECT_EQ(panel(2), L"two");
        EXPECT_EQ(panel(3), L"three");
        server.letGo();
    });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"two");
    EXPECT_EQ(panel(3), L"three");
}

TEST_F(ScanSelected, TheBarShowsTheRowAmongAllRows)
{
    begin({{L"A", at(L"/ok")}, {L"B", at(L"/ok")}, {L"C", at(L"/held")}, {L"D", at(L"/ok")}});
    selectSites({2});
    EXPECT_FALSE(PB().visible());
    Meanwhile meanwhile(isHeld(), [&] {
        EXPECT_TRUE(PB().visible());
        EXPECT_EQ(PB().maximum(), 4U);
        EXPECT_EQ(PB().value(), 3U);
        server.letGo();
    });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(PB().value(), 4U);
}

TEST_F(ScanSelected, HidesTheBarThatAnEarlierScanLeft)
{
    begin({{L"A", dead}});
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    ASSERT_TRUE(PB().visible());
    scanSelected();
    EXPECT_FALSE(PB().visible());
}

TEST_F(ScanSelected, ATimeOutAfterTheConnectionIsASuccess)
{
    begin({{L"A", at(L"/silent")}, {L"B", at(L"/ok")}});
    workspace().inetScan.setRequestTimeout(200);
    lstInfo().selectAll();
    scanSelected();
    EXPECT_EQ(log(), success(L"A", at(L"/silent")) + success(L"B", at(L"/ok")));
}

TEST_F(ScanSelected, EachRowsSelectionIsReadWhenItsTurnComes)
{
    begin({{L"A", at(L"/held")}, {L"B", at(L"/ok?b")}, {L"C", at(L"/ok?c")}});
    selectSites({0, 1});
    Meanwhile meanwhile(isHeld(), [&] {
        selectSites({2});
        server.letGo();
    });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(log(), success(L"A", at(L"/held")) + success(L"C", at(L"/ok?c")));
}

TEST_F(ScanSelected, TheCategoryFileIsNotTouched)
{
    beginWithFour();
    lstInfo().selectAll();
    {
        const HeldFile held(folder.file(L"Links.udb"));
        scanSelected();
    }
    EXPECT_EQ(folder.names(), (Lines{L"Links.udb", L"scanned.log"}));
    clickCategory(L"Links");
    EXPECT_EQ(images(), (Images{1, 1, 1, 1}));
}

TEST_F(ScanSelected, IsChosenFromBothMenusAndTheToolBar)
{
    begin({{L"A", at(L"/ok")}, {L"B", at(L"/missing")}});
    choose(mnuScanSelected);
    EXPECT_EQ(server.requests().size(), 1U);
    choose(mnuPScanSel);
    EXPECT_EQ(server.requests().size(), 2U);
    main->toolBar().ButtonClick(10);
    EXPECT_EQ(server.requests().size(), 3U);
    main->toolBar().ButtonMenuClick(L"selected");
    EXPECT_EQ(server.requests(), std::vector<std::string>(4, "/ok"));
}

} // namespace
} // namespace vandrel::test

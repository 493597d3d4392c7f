#include "platform/controls/simple_controls.h"
#include "platform/system/internet_transfer.h"
#include "tests/support/all_images.h"
#include "tests/support/menus_seen.h"
#include "tests/support/scan_test.h"

namespace vandrel::test {
namespace {

class ScanAll : public ScanTest {};

TEST_F(ScanAll, AsksForEverySiteInItsOrder)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}, {L"C", at(L"/ok?3")}});
    scanAll();
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/ok?1", "/ok?2", "/ok?3"}));
}

TEST_F(ScanAll, ASiteThatAnswersIsReachableWhateverItSays)
{
    begin({{L"A", at(L"/ok")},
           {L"B", at(L"/missing")},
           {L"C", at(L"/broken")},
           {L"D", at(L"/moved")},
           {L"E", at(L"/ok?again")}});
    scanAll();
    EXPECT_EQ(images(), (Images{1, 1, 1, 1, 1}));
    EXPECT_EQ(log(), success(L"A", at(L"/ok")) + success(L"B", at(L"/missing")) +
                         success(L"C", at(L"/broken")) + success(L"D", at(L"/moved")) +
                         success(L"E", at(L"/ok?again")));
}

TEST_F(ScanAll, ASiteThatCannotBeOpenedIsNotReachable)
{
    const std::wstring refused = server.refusedAddress();
    begin({{L"A", at(L"/ok")},
           {L"B", dead},
           {L"C", refused},
           {L"D", L"not a url"},
           {L"E", L""},
           {L"F", L"mailto:a@b.example"},
           {L"G", at(L"/ok?2")}});
    Answers answers;
    answers.expect(L"Unavailable Sites", [](HWND box) { press(box, IDOK); });
    main->run(mnuScanAllURLs);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(images(), (Images{1, 5, 5, 5, 5, 5, 1}));
    EXPECT_EQ(log(), success(L"A", at(L"/ok")) + failed(L"B", dead) + failed(L"C", refused) +
                         failed(L"D", L"not a url") + failed(L"E", L"") +
                         failed(L"F", L"mailto:a@b.example") + success(L"G", at(L"/ok?2")));
}

TEST_F(ScanAll, ASiteThatConnectsButTakesTooLongIsReachable)
{
    begin({{L"A", at(L"/silent")}, {L"B", at(L"/trickle")}, {L"C", at(L"/ok")}});
    workspace().inetScan.setRequestTimeout(200);
    scanAll();
    EXPECT_EQ(images(), (Images{1, 1, 1}));
    EXPECT_EQ(log(),
              success(L"A", at(L"/silent")) + success(L"B", at(L"/trickle")) + success(L"C", at(L"/ok")));
}

TEST_F(ScanAll, ASiteThatWantsItsCookieBackIsReachable)
{
    begin({{L"A", at(L"/cookie")}, {L"B", at(L"/cookie?2")}});
    scanAll();
    EXPECT_EQ(images(), (Images{1, 1}));
    EXPECT_EQ(server.cookies(), (std::vector<std::string>{"", "seen=1", "", "seen=1"}));
}

TEST_F(ScanAll, ASiteThatRedirectsInCirclesIsReachable)
{
    begin({{L"A", at(L"/loop")}, {L"B", at(L"/ok")}});
    scanAll();
    EXPECT_EQ(images(), (Images{1, 1}));
    EXPECT_EQ(log(), success(L"A", at(L"/loop")) + success(L"B", at(L"/ok")));
}

TEST_F(ScanAll, ASiteThatRedirectsToAnUnknownHostIsNotReachable)
{
    server.redirect("/away", narrow(dead));
    begin({{L"A", at(L"/away")}, {L"B", at(L"/ok")}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(images(), (Images{5, 1}));
}

TEST_F(ScanAll, ASiteThatRedirectsToAHostWhoseLookUpTakesTooLongIsNotReachable)
{
    server.redirect("/away", narrow(server.addressByName(L"/silent")));
    begin({{L"A", at(L"/away")}, {L"B", at(L"/ok")}});
    workspace().inetScan.setRequestTimeout(500);
    const auto told = workspace().inetScan.StateChanged;
    int connections = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (state == 3 && ++connections == 2) return; // as if the name were still being looked up
        told(state);
    };
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(images(), (Images{5, 1}));
}

TEST_F(ScanAll, ASiteThatRedirectsToASlowHostIsReachable)
{
    server.redirect("/away", narrow(server.addressByName(L"/silent")));
    begin({{L"A", at(L"/away")}, {L"B", at(L"/ok")}});
    workspace().inetScan.setRequestTimeout(500);
    scanAll();
    EXPECT_EQ(images(), (Images{1, 1}));
}

// What the state events said is the judgement, and nothing else is.

TEST_F(ScanAll, WithoutAConnectionAnAnswerIsAFailure)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}});
    const auto told = workspace().inetScan.StateChanged;
    int connections = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (state == 3 && ++connections == 2) return;
        told(state);
    };
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(images(), (Images{1, 5}));
}

TEST_F(ScanAll, OtherStatesChangeNothing)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}});
    const auto told = workspace().inetScan.StateChanged;
    int connections = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        const bool second = state == 3 && ++connections == 2;
        if (!second) told(state);
        for (const int other : {0, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, -1}) told(static_cast<short>(other));
    };
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(images(), (Images{1, 5}));
}

TEST_F(ScanAll, ASuccessDoesNotCountForTheNextSite)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}});
    const auto told = workspace().inetScan.StateChanged;
    int states = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (++states <= 2) told(state); // no state is reported for the second site
    };
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")) + failed(L"B", at(L"/ok?2")));
}

TEST_F(ScanAll, AConnectionThatEndedInAnErrorIsNotForgotten)
{
    const std::wstring refused = server.refusedAddress();
    begin({{L"A", refused}, {L"B", at(L"/ok")}, {L"C", at(L"/ok?2")}});
    const auto told = workspace().inetScan.StateChanged;
    int states = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (++states <= 2) told(state);
    };
    scanAllAndTold(L"Unavailable Sites", twoUnavailable);
    EXPECT_EQ(log(), failed(L"A", refused) + success(L"B", at(L"/ok")) + failed(L"C", at(L"/ok?2")));
}

TEST_F(ScanAll, ResolvingANameForgetsIt)
{
    const std::wstring refused = server.refusedAddress();
    begin({{L"A", refused}, {L"B", at(L"/ok")}, {L"C", at(L"/ok?2")}});
    const auto told = workspace().inetScan.StateChanged;
    int states = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (++states != 4) told(state); // for the second site only that its name is looked up
    };
    scanAllAndTold(L"Unavailable Sites", twoUnavailable);
    EXPECT_EQ(log(), failed(L"A", refused) + failed(L"B", at(L"/ok")) + success(L"C", at(L"/ok?2")));
}

// ---- the messages

TEST_F(ScanAll, OneOfTwoIsReportedInTheSingular)
{
    begin({{L"A", dead}, {L"B", at(L"/ok")}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(images(), (Images{5, 1}));
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(panel(1), L"Scan complete.");
}

TEST_F(ScanAll, TwoOfThreeAreReportedInThePlural)
{
    begin({{L"A", dead}, {L"B", at(L"/ok")}, {L"C", dead}});
    scanAllAndTold(L"Unavailable Sites", twoUnavailable);
    EXPECT_EQ(images(), (Images{5, 1, 5}));
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(panel(1), L"Scan complete.");
}

TEST_F(ScanAll, WhenAllFailTheBarStaysAndItIsNotSaidToBeComplete)
{
    begin({{L"A", dead}, {L"B", L"http://"}});
    workspace().StatusBar1.setPanelText(1, L"before");
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    EXPECT_EQ(images(), (Images{5, 5}));
    EXPECT_TRUE(PB().visible());
    EXPECT_EQ(panel(1), L"before");
    EXPECT_EQ(panel(2), L"B");
    EXPECT_EQ(panel(3), L"http://");
    EXPECT_EQ(log(), failed(L"A", dead) + failed(L"B", L"http://"));
}

TEST_F(ScanAll, ASingleSiteThatFailsCountsAsAllOfThem)
{
    begin({{L"A", dead}});
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    EXPECT_TRUE(PB().visible());
    EXPECT_EQ(panel(2), L"A");
}

TEST_F(ScanAll, ABarThatStayedIsHiddenByTheNextScan)
{
    begin({{L"A", dead}});
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    siteRows().setText(0, 1, at(L"/ok"));
    scanAll();
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(images(), Images{1});
}

TEST_F(ScanAll, TheMessageHasOnlyAnOkButtonAndBelongsToTheMainWindow)
{
    begin({{L"A", dead}, {L"B", at(L"/ok")}});
    Answers answers;
    answers.expect(L"Unavailable Site", [&](HWND box) {
        EXPECT_EQ(buttonsOf(box), std::vector<int>{IDOK});
        EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
        EXPECT_TRUE(PB().visible()) << "it is hidden after the message";
        EXPECT_NE(panel(1), L"Scan complete.");
        press(box, IDOK);
    });
    main->run(mnuScanAllURLs);
    EXPECT_ANSWERED(answers);
}

TEST_F(ScanAll, WhenAllAnswerThereIsNoMessage)
{
    begin({{L"A", at(L"/ok")}});
    scanAll();
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_FALSE(PB().visible());
}

// ---- what the window shows

TEST_F(ScanAll, ShowsNameAddressAndProgressOfTheSiteThatIsChecked)
{
    begin({{L"A", at(L"/ok")}, {L"B", at(L"/held")}, {L"C", at(L"/ok?2")}});
    EXPECT_FALSE(PB().visible());
    workspace().StatusBar1.setPanelText(1, L"before");
    Meanwhile meanwhile(isHeld(), [&] {
        EXPECT_TRUE(PB().visible());
        EXPECT_EQ(PB().maximum(), 3U);
        EXPECT_EQ(PB().value(), 2U);
        EXPECT_EQ(panel(1), L"before");
        EXPECT_EQ(panel(2), L"B");
        EXPECT_EQ(panel(3), at(L"/held"));
        server.letGo();
    });
    scanAll();
    EXPECT_TRUE(meanwhile.happened());
}

TEST_F(ScanAll, EndsWithTheCurrentSiteInTheStatusBar)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}, {L"C", at(L"/ok?3")}});
    lstInfo().select(1);
    scanAll();
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"Name: B  ");
    EXPECT_EQ(panel(3), L"URL: " + at(L"/ok?2") + L"  ");
}

TEST_F(ScanAll, WithoutACurrentSiteTheLastOneStays)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/ok?2")}});
    lstInfo().clearSelection();
    scanAll();
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"B");
    EXPECT_EQ(panel(3), at(L"/ok?2"));
}

TEST_F(ScanAll, AnEmptyCategoryIsComplete)
{
    begin({});
    workspace().StatusBar1.setPanelText(2, L"two");
    workspace().StatusBar1.setPanelText(3, L"three");
    scanAll();
    EXPECT_EQ(log(), "") << "it is opened, and nothing is written";
    EXPECT_FALSE(PB().visible());
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"two");
    EXPECT_EQ(panel(3), L"three");
}

TEST_F(ScanAll, ARedXFromAnEarlierScanIsRemovedJustBeforeTheCheck)
{
    begin({{L"A", at(L"/held?1")}, {L"B", at(L"/held?2")}});
    setAllImages(siteRows(), deadSiteImage);
    Meanwhile first([&] { return server.held() == 1 && server.requests().size() == 1; },
                    [&] {
                        EXPECT_EQ(images(), (Images{1, 5}));
                        server.letGo();
                    });
    Meanwhile second([&] { return server.held() == 1 && server.requests().size() == 2; },
                     [&] {
                         EXPECT_EQ(images(), (Images{1, 1}));
                         server.letGo();
                     });
    scanAll();
    EXPECT_TRUE(first.happened() && second.happened());
    EXPECT_EQ(images(), (Images{1, 1}));
}

TEST_F(ScanAll, TheMarksGoWhenTheCategoryIsSelectedAgain)
{
    begin({{L"A", dead}, {L"B", at(L"/ok")}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    ASSERT_EQ(images(), (Images{5, 1}));
    clickCategory(L"Links");
    EXPECT_EQ(images(), (Images{1, 1}));
}

TEST_F(ScanAll, TheCategoryFileIsNotTouched)
{
    begin({{L"A", dead}, {L"B", at(L"/ok")}});
    const std::string before = folder.read(L"Links.udb");
    const HeldFile held(folder.file(L"Links.udb"));
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(folder.names(), (Lines{L"Links.udb", L"scanned.log"}));
    EXPECT_EQ(sites()[0], L"A|http://nowhere.invalid/|about it|1/2/2003");
    EXPECT_FALSE(before.empty());
}

TEST_F(ScanAll, ChecksTheShownCategoryAlone)
{
    category(L"Other", {{L"O", at(L"/other")}});
    begin({{L"A", at(L"/ok")}});
    scanAll();
    EXPECT_EQ(server.requests(), std::vector<std::string>{"/ok"});
    EXPECT_EQ(log(), success(L"A", at(L"/ok")));
}

TEST_F(ScanAll, TheSelectionIsLeftAlone)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", dead}, {L"C", at(L"/ok?3")}});
    selectSites({0, 2});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(lstInfo().isSelected(0) && !lstInfo().isSelected(1) && lstInfo().isSelected(2));
    EXPECT_EQ(panel(2), L"Name: C  ");
}

TEST_F(ScanAll, IsChosenFromTheMenuAndTheToolBar)
{
    begin({{L"A", at(L"/ok")}});
    choose(mnuScanAllURLs);
    EXPECT_EQ(server.requests().size(), 1U);
    main->toolBar().ButtonMenuClick(L"allurls");
    EXPECT_EQ(server.requests().size(), 2U);
    main->toolBar().ButtonMenuClick(L"nothing");
    EXPECT_EQ(server.requests().size(), 2U);
}

} // namespace
} // namespace vandrel::test

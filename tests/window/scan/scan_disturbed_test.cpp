#include "platform/controls/simple_controls.h"
#include "platform/system/internet_transfer.h"
#include "store/site_operations.h"
#include "tests/support/all_images.h"
#include "tests/support/scan_test.h"
#include "update/update_check.h"

namespace vandrel::test {
namespace {

// What the user may do while a site is being checked.
class ScanDisturbed : public ScanTest {
  protected:
    // Four sites; the server holds its answer to the second.
    void beginWithFour()
    {
        begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", at(L"/ok?3")}, {L"D", at(L"/ok?4")}});
    }
    void scanAllAnd(const std::function<void()>& action)
    {
        Meanwhile meanwhile(isHeld(), [&] {
            action();
            server.letGo();
        });
        scanAll();
        EXPECT_TRUE(meanwhile.happened());
    }
    void scanSelectedAnd(const std::function<void()>& action)
    {
        Meanwhile meanwhile(isHeld(), [&] {
            action();
            server.letGo();
        });
        scanSelected();
        EXPECT_TRUE(meanwhile.happened());
    }
    // The third is dead.
    void beginWithADeadOne()
    {
        begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    }
    void scanAllOfADeadOneAnd(const std::function<void()>& action)
    {
        Meanwhile meanwhile(isHeld(), [&] {
            action();
            server.letGo();
        });
        scanAllAndTold(L"Unavailable Site", oneUnavailable);
        EXPECT_TRUE(meanwhile.happened());
        EXPECT_EQ(log(), firstTwo() + failed(L"C", dead) + success(L"D", at(L"/ok?4")));
    }
    std::string firstTwo() const { return success(L"A", at(L"/ok?1")) + success(L"B", at(L"/held")); }
    std::string lastTwo() const { return success(L"C", at(L"/ok?3")) + success(L"D", at(L"/ok?4")); }
};

TEST_F(ScanDisturbed, ASiteThatIsRemovedIsCheckedAndMarksNoOther)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/held?4")}, {L"C", dead}});
    Meanwhile first([&] { return server.held() == 1 && server.requests().size() == 2; },
                    [&] {
                        siteRows().remove(2);
                        server.letGo();
                    });
    Meanwhile second([&] { return server.held() == 1 && server.requests().size() == 3; },
                     [&] {
                         EXPECT_EQ(images(), (Images{1, 1, 1, 1})) << "one that has its texts is another";
                         siteRows().setText(3, 1, at(L"/ok?5"));
                         server.letGo();
                     });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(first.happened() && second.happened());
    EXPECT_EQ(log(),
              firstTwo() + failed(L"C", dead) + success(L"D", at(L"/held?4")) + success(L"C", at(L"/ok?5")));
    EXPECT_EQ(panel(1), L"Scan complete.");
}

TEST_F(ScanDisturbed, TheOneThatIsCheckedAndRemovedIsLoggedAndMarksNoOther)
{
    begin({{L"A", at(L"/ok")}, {L"B", at(L"/held")}, {L"C", dead}});
    siteRows().setImage(2, deadSiteImage);
    Meanwhile meanwhile(isHeld(), [&] {
        siteRows().remove(1);
        EXPECT_EQ(images(), (Images{1, 5}));
        server.letGo();
    });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), (Images{1, 5}));
    EXPECT_EQ(log(), success(L"A", at(L"/ok")) + success(L"B", at(L"/held")) + failed(L"C", dead));
}

TEST_F(ScanDisturbed, OneThatFailsAfterItWasRemovedMarksNoOther)
{
    beginWithFour();
    const auto told = workspace().inetScan.StateChanged;
    int connections = 0;
    workspace().inetScan.StateChanged = [&](short state) {
        if (state == 3 && ++connections == 2) return; // the second site fails
        told(state);
    };
    Meanwhile meanwhile(isHeld(), [&] {
        siteRows().remove(1);
        server.letGo();
    });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), (Images{1, 1, 1}));
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")) + failed(L"B", at(L"/held")) + lastTwo());
}

TEST_F(ScanDisturbed, AllSitesMayBeRemoved)
{
    beginWithFour();
    scanAllAnd([&] { siteRows().clear(); });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"D");
    EXPECT_FALSE(PB().visible());
}

TEST_F(ScanDisturbed, OneThatIsEditedIsLoggedAsItWasWhenItsCheckBegan)
{
    beginWithFour();
    scanAllAnd([&] {
        siteRows().setText(1, 0, L"Other");
        siteRows().setText(1, 1, dead);
        siteRows().setText(2, 0, L"Changed");
    });
    EXPECT_EQ(log(), firstTwo() + success(L"Changed", at(L"/ok?3")) + success(L"D", at(L"/ok?4")));
    EXPECT_EQ(images(), (Images{1, 1, 1, 1}));
}

TEST_F(ScanDisturbed, ASiteThatIsAddedIsNotChecked)
{
    beginWithFour();
    scanAllAnd([&] {
        siteRows().insert(0, {L"New", dead, L"", L""}, siteImage);
        siteRows().add({L"Last", dead, L"", L""}, siteImage);
    });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_EQ(images(), (Images{1, 1, 1, 1, 1, 1}));
}

TEST_F(ScanDisturbed, OneThatIsAddedInPlaceOfOneThatIsGoneIsNotTakenForIt)
{
    beginWithFour();
    scanAllAnd([&] {
        siteRows().remove(2);
        siteRows().insert(2, {L"New", dead, L"", L""}, deadSiteImage);
    });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_EQ(images(), (Images{1, 1, 5, 1}));
}

TEST_F(ScanDisturbed, InASortedListEverySiteIsCheckedOnceAndGetsItsOwnMark)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    Meanwhile meanwhile(isHeld(), [&] {
        lstInfo().ColumnClick(0);
        EXPECT_EQ(column(lstInfo()), (Lines{L"D", L"C", L"B", L"A"}));
        server.letGo();
    });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), (Images{1, 5, 1, 1}));
    EXPECT_EQ(log(), firstTwo() + failed(L"C", dead) + success(L"D", at(L"/ok?4")));
}

// ---- the list loaded again

TEST_F(ScanDisturbed, WithAnotherCategoryEverySiteIsCheckedAndNoneOfTheOthersIsMarked)
{
    category(L"Other", {{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        clickCategory(L"Other");
        siteRows().setImage(0, deadSiteImage);
        siteRows().setImage(3, deadSiteImage);
    });
    EXPECT_EQ(images(), (Images{5, 1, 1, 5})) << "sites of the same texts, in another category";
    EXPECT_EQ(panel(1), L"Scan complete.");
    EXPECT_EQ(panel(2), L"D");
    EXPECT_FALSE(PB().visible());
}

TEST_F(ScanDisturbed, TheSameCategoryReadAgainHasItsSitesAndTheirMarks)
{
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        clickCategory(L"Links");
        siteRows().setImage(3, deadSiteImage); // which a check takes away
    });
    EXPECT_EQ(images(), (Images{1, 1, 5, 1}));
}

TEST_F(ScanDisturbed, ACategoryToWhichTheUserReturnsHasItsSitesAndTheirMarks)
{
    category(L"Other", {{L"C", dead}});
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        clickCategory(L"Other");
        clickCategory(L"Links");
    });
    EXPECT_EQ(images(), (Images{1, 1, 5, 1}));
}

TEST_F(ScanDisturbed, InAListReadAgainAMarkGoesByNameAddressAndDescription)
{
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        const std::string url = narrow(dead);
        folder.write(L"Links.udb", "C|" + url + "|about it|opened today\r\nX|" + url +
                                       "|about it|1/2/2003\r\n" + "C|" + url + "/|about it|1/2/2003\r\nC|" +
                                       url + "|other|1/2/2003\r\nC|" + url + "|about it|1/2/2003\r\n");
        clickCategory(L"Links");
    });
    EXPECT_EQ(images(), (Images{5, 1, 1, 1, 5}));
}

TEST_F(ScanDisturbed, OfACategoryThatWasRenamedTheSitesAreStillTheSame)
{
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        MoveFileW(folder.file(L"Links.udb").c_str(), folder.file(L"Renamed.udb").c_str());
        categoryRows().setText(0, 0, L"Renamed");
        clickCategory(L"Renamed");
    });
    EXPECT_EQ(images(), (Images{1, 1, 5, 1}));
}

TEST_F(ScanDisturbed, ASearchOfAllCategoriesDoesNotEndIt)
{
    category(L"Other", {{L"C", dead}});
    beginWithADeadOne();
    scanAllOfADeadOneAnd([&] {
        for (std::size_t row = 0; row < lstCategory().count(); ++row) selectCategory(workspace(), row);
        selectCategory(workspace(), 0);
    });
    EXPECT_EQ(images(), (Images{1, 1, 5, 1}));
}

TEST_F(ScanDisturbed, TheBarGoesOnAsLongAsTheListWasAtItsBeginning)
{
    begin({{L"A", at(L"/held?1")}, {L"B", at(L"/ok")}, {L"C", at(L"/held?2")}});
    Meanwhile first([&] { return server.held() == 1 && server.requests().size() == 1; },
                    [&] {
                        folder.write(L"Links.udb", "");
                        clickCategory(L"Links");
                        server.letGo();
                    });
    Meanwhile second([&] { return server.held() == 1 && server.requests().size() == 3; },
                     [&] {
                         EXPECT_EQ(PB().maximum(), 3U);
                         EXPECT_EQ(PB().value(), 3U);
                         EXPECT_EQ(panel(2), L"C");
                         EXPECT_EQ(panel(3), at(L"/held?2"));
                         server.letGo();
                     });
    scanAll();
    EXPECT_TRUE(first.happened() && second.happened());
    EXPECT_EQ(images(), Images{});
    EXPECT_FALSE(PB().visible());
}

TEST_F(ScanDisturbed, NoSecondScanBegins)
{
    beginWithFour();
    scanAllAnd([&] {
        const std::string before = log();
        main->run(mnuScanAllURLs);
        main->run(mnuScanSelected);
        choose(mnuScanAllURLs);
        EXPECT_EQ(log(), before);
        EXPECT_TRUE(PB().visible());
        EXPECT_NE(panel(1), L"Scan complete.");
    });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_EQ(server.requests().size(), 4U);
    siteRows().setText(1, 1, at(L"/ok?2"));
    scanAll();
    EXPECT_EQ(server.requests().size(), 8U) << "afterwards one does";
}

TEST_F(ScanDisturbed, NoSecondScanBeginsDuringAScanOfTheSelectedOnes)
{
    beginWithFour();
    lstInfo().selectAll();
    scanSelectedAnd([&] {
        main->run(mnuScanAllURLs);
        main->run(mnuScanSelected);
    });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_EQ(server.requests().size(), 4U);
}

TEST_F(ScanDisturbed, AfterAFailureAScanCanBegin)
{
    begin({{L"A", at(L"/ok")}});
    makeFolder(L"scanned.log");
    EXPECT_EQ(errorOf([&] { main->run(mnuScanAllURLs); }), 75);
    EXPECT_EQ(errorOf([&] { main->run(mnuScanSelected); }), 75);
    RemoveDirectoryW(folder.file(L"scanned.log").c_str());
    scanAll();
    EXPECT_EQ(log(), success(L"A", at(L"/ok")));
}

TEST_F(ScanDisturbed, AnUpdateCheckIsRefusedAndDoesNotDisturbTheScan)
{
    beginWithFour();
    scanAllAnd([&] {
        std::vector<bool> told;
        EXPECT_EQ(errorOf([&] {
                      CheckUpdates(workspace(), server.root(), [&](bool on) { told.push_back(on); });
                  }),
                  35764);
        EXPECT_EQ(told, (std::vector<bool>{false, true}));
    });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
}

TEST_F(ScanDisturbed, DuringAnUpdateCheckNoScanBegins)
{
    begin({{L"A", at(L"/ok")}, {L"B", dead}});
    siteRows().setImage(0, deadSiteImage);
    std::vector<int> errors;
    Meanwhile meanwhile(isHeld(), [&] {
        for (const int entry : {mnuScanAllURLs, mnuScanSelected})
            errors.push_back(errorOf([&] { main->run(entry); }));
        EXPECT_FALSE(PB().visible());
        server.letGo();
    });
    Answers answers;
    answers.expect(L"New Version Available", [](HWND box) { press(box, IDNO); });
    answers.expect(L"Failed to update", [](HWND box) { press(box, IDOK); });
    CheckUpdates(workspace(), at(L"/held?"), [](bool) {});
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(errors, (std::vector<int>{35764, 35764}));
    EXPECT_EQ(images(), (Images{5, 1})) << "no site was checked";
    EXPECT_EQ(log(), "(none)");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(ScanDisturbed, ADialogThatIsOpenedMeanwhileKeepsTheScanUntilItCloses)
{
    beginWithFour();
    bool waited = false;
    Meanwhile meanwhile(isHeld(), [&] { main->run(mnuAddWebsite); });
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        server.letGo();
        waited = pumpUntil([&] { return server.held() == 0; });
        EXPECT_EQ(log(), success(L"A", at(L"/ok?1")));
        press(dialog, IDCANCEL);
    });
    main->run(mnuScanAllURLs);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(waited);
    EXPECT_EQ(log(), firstTwo() + lastTwo());
}

TEST_F(ScanDisturbed, ASaveMeanwhileSavesTheListAsItIs)
{
    beginWithFour();
    const std::string before = folder.read(L"Links.udb");
    scanAllAnd([&] {
        siteRows().remove(3);
        SaveItems(workspace());
    });
    EXPECT_EQ(folder.read(L"Links.udb"), before.substr(0, before.find("D|")));
}

// ---- selected sites

TEST_F(ScanDisturbed, OfTheSelectedTheOnesThatAreGoneAreCheckedAndMarkNoOther)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    selectSites({1, 2});
    scanSelectedAnd([&] { siteRows().remove(2); });
    EXPECT_EQ(log(), success(L"B", at(L"/held")) + failed(L"C", dead));
    EXPECT_EQ(images(), (Images{1, 1, 1}));
}

TEST_F(ScanDisturbed, WithAnotherCategoryTheSelectedAreCheckedAndNoneOfTheOthersIsMarked)
{
    category(L"Other", {{L"O", dead}, {L"P", dead}, {L"Q", dead}, {L"D", at(L"/ok?4")}});
    beginWithFour();
    selectSites({1, 3});
    scanSelectedAnd([&] {
        clickCategory(L"Other");
        setAllImages(siteRows(), deadSiteImage);
        lstInfo().selectAll();
    });
    EXPECT_EQ(log(), success(L"B", at(L"/held")) + success(L"D", at(L"/ok?4")));
    EXPECT_EQ(images(), (Images{5, 5, 5, 5}));
    EXPECT_EQ(panel(1), L"Scan complete.");
}

TEST_F(ScanDisturbed, InTheSameCategoryReadAgainTheSelectedAreChecked)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    selectSites({2, 1}); // the second is the current one
    scanSelectedAnd([&] { clickCategory(L"Links"); });
    EXPECT_EQ(log(), success(L"B", at(L"/held")) + failed(L"C", dead));
    EXPECT_EQ(images(), (Images{1, 5, 1, 1})) << "the one that was the current one shows the last result";
}

TEST_F(ScanDisturbed, InTheSameCategoryReadAgainTheNewCurrentSiteShowsTheResult)
{
    begin({{L"A", at(L"/ok?1")}, {L"B", at(L"/held")}, {L"C", dead}, {L"D", at(L"/ok?4")}});
    selectSites({1, 2});
    scanSelectedAnd([&] {
        clickCategory(L"Links");
        lstInfo().select(3);
    });
    EXPECT_EQ(log(), success(L"B", at(L"/held")) + failed(L"C", dead));
    EXPECT_EQ(images(), (Images{1, 1, 1, 5}));
}

TEST_F(ScanDisturbed, ACheckWhoseCategoryIsGoneMarksNoSiteOfTheNext)
{
    category(L"Other", {{L"O", dead}});
    begin({{L"A", at(L"/held")}});
    scanSelectedAnd([&] {
        clickCategory(L"Other");
        siteRows().setImage(0, deadSiteImage);
        lstInfo().select(0);
    });
    EXPECT_EQ(log(), success(L"A", at(L"/held")));
    EXPECT_EQ(images(), Images{5}) << "it is not known what becomes of that one";
}

TEST_F(ScanDisturbed, InASortedListEverySelectedSiteIsCheckedOnce)
{
    beginWithFour();
    lstInfo().selectAll();
    scanSelectedAnd([&] { lstInfo().ColumnClick(0); });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
}

TEST_F(ScanDisturbed, WithoutSitesAnyMoreNothingIsMarked)
{
    beginWithFour();
    lstInfo().selectAll();
    scanSelectedAnd([&] { siteRows().clear(); });
    EXPECT_EQ(log(), firstTwo() + lastTwo());
    EXPECT_FALSE(PB().visible());
}

// ---- the end of the program

class ScanAtTheEnd : public ScanDisturbed {
  protected:
    void closeDuring(int entry)
    {
        beginWithFour();
        lstInfo().selectAll();
        const HWND window = main->handle();
        Meanwhile meanwhile(isHeld(), [&] { SendMessageW(window, WM_CLOSE, 0, 0); });
        Answers none;
        const ULONGLONG start = GetTickCount64();
        main->run(entry);
        EXPECT_LT(GetTickCount64() - start, 3000U);
        EXPECT_ANSWERED(none);
        EXPECT_TRUE(meanwhile.happened());
        EXPECT_FALSE(IsWindow(window));
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            << "the loop outside must end, too";
        EXPECT_EQ(log(), success(L"A", at(L"/ok?1"))) << "the one that was under way is not logged";
        EXPECT_EQ(server.requests().size(), 2U);
        {
            const HeldFile closed(folder.file(L"scanned.log"));
        }
        EXPECT_EQ(preference(L"Config", L"Left"), L"0") << "the preferences are written";
    }
};

TEST_F(ScanAtTheEnd, TheWindowMayBeClosedDuringAScanOfAll) { closeDuring(mnuScanAllURLs); }

TEST_F(ScanAtTheEnd, TheWindowMayBeClosedDuringAScanOfTheSelected) { closeDuring(mnuScanSelected); }

TEST_F(ScanAtTheEnd, TheProgramMayBeQuit)
{
    beginWithFour();
    Meanwhile meanwhile(isHeld(), [&] { main->run(mnuQuit); });
    main->run(mnuScanAllURLs);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(main->handle(), nullptr);
    EXPECT_EQ(log(), success(L"A", at(L"/ok?1")));
}

TEST_F(ScanAtTheEnd, TheWindowMayBeClosedWhileTheSummaryIsShown)
{
    begin({{L"A", at(L"/ok")}, {L"B", dead}});
    const HWND window = main->handle();
    Answers answers;
    answers.expect(L"Unavailable Site", [&](HWND) { SendMessageW(window, WM_CLOSE, 0, 0); });
    main->run(mnuScanAllURLs);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(log(), success(L"A", at(L"/ok")) + failed(L"B", dead));
}

} // namespace
} // namespace vandrel::test

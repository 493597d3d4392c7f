#include "platform/controls/simple_controls.h"
#include "platform/system/internet_transfer.h"
#include "tests/support/scan_test.h"

namespace vandrel::test {
namespace {

class ScanLog : public ScanTest {
  protected:
    // The command must end in this run-time error and leave nothing behind.
    void expectItFails(int entry, int number, const wchar_t* description)
    {
        Answers answers;
        expectErrorBox(answers, number, description);
        choose(entry);
        EXPECT_ANSWERED(answers);
        EXPECT_FALSE(PB().visible());
        EXPECT_NE(panel(1), L"Scan complete.");
        EXPECT_TRUE(server.requests().empty());
    }
};

TEST_F(ScanLog, HasNothingButALineForEachSite)
{
    begin({{L"News", at(L"/ok")}, {L"Old", dead}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(log(),
              "News - " + narrow(at(L"/ok")) + " - Success\r\nOld - http://nowhere.invalid/ - Failed\r\n");
}

TEST_F(ScanLog, GrowsFromScanToScanAndFromRunToRun)
{
    begin({{L"A", at(L"/ok")}});
    scanAll();
    scanAll();
    scanSelected();
    stop();
    pump();
    start();
    lstInfo().select(0);
    scanSelected();
    scanAll();
    std::string expected;
    for (int i = 0; i < 5; ++i) expected += success(L"A", at(L"/ok"));
    EXPECT_EQ(log(), expected);
}

TEST_F(ScanLog, KeepsWhatItHoldsAlready)
{
    folder.write(L"scanned.log", "not ended");
    begin({{L"A", at(L"/ok")}});
    scanAll();
    EXPECT_EQ(log(), "not ended" + success(L"A", at(L"/ok")));
}

TEST_F(ScanLog, IsClosedAfterEveryScan)
{
    begin({{L"A", at(L"/ok")}, {L"B", dead}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    {
        const HeldFile alone(folder.file(L"scanned.log"));
    }
    scanSelected();
    {
        const HeldFile alone(folder.file(L"scanned.log"));
    }
    siteRows().setText(0, 1, dead);
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    EXPECT_NE(DeleteFileW(folder.file(L"scanned.log").c_str()), 0);
}

TEST_F(ScanLog, HasEachLineAsSoonAsItsSiteIsChecked)
{
    begin({{L"A", at(L"/ok")}, {L"B", at(L"/held")}});
    Meanwhile meanwhile(isHeld(), [&] {
        EXPECT_EQ(log(), success(L"A", at(L"/ok"))) << "others may read it meanwhile";
        server.letGo();
    });
    scanAll();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(log(), success(L"A", at(L"/ok")) + success(L"B", at(L"/held")));
}

TEST_F(ScanLog, IsWrittenInTheAnsiCodePage)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the bytes below are of code page 1252";
    folder.write(L"Links.udb",
                 "Caf\xE9 \x80|http://nowhere.invalid/\xFC||\r\nB|" + narrow(at(L"/ok")) + "||\r\n");
    start();
    siteRows().setText(1, 0, L"B \u65E5");
    Answers answers;
    answers.expectBox(L"Unavailable Site", oneUnavailable, IDOK, MB_ICONASTERISK);
    main->run(mnuScanAllURLs);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(log(), "Caf\xE9 \x80 - http://nowhere.invalid/\xFC - Failed\r\nB ? - " + narrow(at(L"/ok")) +
                         " - Success\r\n");
}

TEST_F(ScanLog, HasNamesAndAddressesUnchanged)
{
    begin({{L"a - b - Failed", at(L"/ok? - ")}, {L"", L""}, {L" ", at(L"/ok?1")}});
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(log(), "a - b - Failed - " + narrow(at(L"/ok? - ")) + " - Success\r\n -  - Failed\r\n  - " +
                         narrow(at(L"/ok?1")) + " - Success\r\n");
}

TEST_F(ScanLog, IsInTheFolderOfTheCategories)
{
    const TempFolder elsewhere;
    const CurrentFolder current(elsewhere.path());
    begin({{L"A", at(L"/ok")}});
    scanAll();
    EXPECT_TRUE(folder.has(L"scanned.log"));
    EXPECT_TRUE(elsewhere.names().empty());
}

TEST_F(ScanLog, IsNotACategory)
{
    begin({{L"A", at(L"/ok")}});
    scanAll();
    stop();
    pump();
    start();
    EXPECT_EQ(titles(), Lines{L"Links"});
}

TEST_F(ScanLog, ThatIsAFolderEndsEitherCommandBeforeItBegins)
{
    begin({{L"A", at(L"/ok")}});
    siteRows().setImage(0, deadSiteImage);
    makeFolder(L"scanned.log");
    expectItFails(mnuScanAllURLs, 75, L"Path/File access error");
    expectItFails(mnuScanSelected, 75, L"Path/File access error");
    EXPECT_EQ(images(), Images{5});
    RemoveDirectoryW(folder.file(L"scanned.log").c_str());
}

TEST_F(ScanLog, ThatAnotherProgramHoldsEndsEitherCommandBeforeItBegins)
{
    folder.write(L"scanned.log", "before\r\n");
    begin({{L"A", at(L"/ok")}});
    siteRows().setImage(0, deadSiteImage);
    HeldFile held(folder.file(L"scanned.log"));
    expectItFails(mnuScanAllURLs, 70, L"Permission denied");
    expectItFails(mnuScanSelected, 70, L"Permission denied");
    EXPECT_EQ(images(), Images{5});
    held.release();
    scanAll();
    EXPECT_EQ(log(), "before\r\n" + success(L"A", at(L"/ok")));
}

TEST_F(ScanLog, InAFolderThatIsGoneEndsTheCommand)
{
    begin({{L"A", at(L"/ok")}});
    workspace().dataFolder = folder.file(L"gone");
    expectItFails(mnuScanAllURLs, 76, L"Path not found");
}

TEST_F(ScanLog, AFailureHidesTheBarThatAnEarlierScanLeft)
{
    begin({{L"A", dead}});
    scanAllAndTold(L"Check Internet Connection", allUnavailable);
    ASSERT_TRUE(PB().visible());
    const HeldFile held(folder.file(L"scanned.log"));
    expectItFails(mnuScanSelected, 70, L"Permission denied");
}

} // namespace
} // namespace vandrel::test

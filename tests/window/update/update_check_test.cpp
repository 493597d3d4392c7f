#include "update/update_check.h"

#include "platform/system/internet_transfer.h"
#include "shared/vendor.h"
#include "tests/support/link_test.h"
#include "tests/support/meanwhile.h"
#include "tests/support/test_server.h"
#include "update/version_report.h"

namespace vandrel::test {
namespace {

constexpr const char* versionPath = "/update/VDVer.txt";

class UpdateCheck : public LinkTest {
  protected:
    UpdateCheck()
    {
        start();
        workspace().inetScan.setRequestTimeout(5000);
    }
    // Checks for an update at the test's server, through the menu entry.
    void check()
    {
        CheckUpdates(workspace(), server.root(), [this](bool on) {
            enabled.push_back(on);
            main->menus().setEnabled(mnuCheckUpdates, on);
        });
    }
    static std::string bytes(const std::wstring& text) { return {text.begin(), text.end()}; }
    static std::wstring question(const std::wstring& latest)
    {
        return L"There is an update to this program.\r\nYou are running version " + runningVersion() +
               L". The latest version is " + latest + L"\r\n\r\nWould you like to download the update?";
    }
    static void decline(Answers& answers, const std::wstring& latest)
    {
        answers.expectBox(L"New Version Available", question(latest), IDNO, MB_ICONQUESTION);
        answers.expectBox(L"Failed to update",
                          L"You have chosen not to update this program. Just choose Check For Updates\r\n"
                          L"from the Help menu if you ever need to update in the future.",
                          IDOK, MB_ICONASTERISK);
    }
    // This answer announces another version, which the user declines.
    void expectQuestionFor(const std::string& answer, const std::wstring& shown)
    {
        server.put(versionPath, answer);
        Answers answers;
        decline(answers, shown);
        check();
        EXPECT_ANSWERED(answers) << testing::PrintToString(answer);
    }
    void expectEntryWasDisabledOnce()
    {
        EXPECT_EQ(enabled, (std::vector<bool>{false, true}));
        EXPECT_TRUE(main->menus().enabled(mnuCheckUpdates));
    }

    TestServer server;
    std::vector<bool> enabled;
};

TEST_F(UpdateCheck, TheRunningVersionIsTheOneOfTheProgramFile)
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    ASSERT_NE(found, nullptr);
    const auto* const data = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, found)));
    const BYTE* const end = data + SizeofResource(nullptr, found);
    constexpr DWORD signature = VS_FFI_SIGNATURE;
    const auto* const at = std::search(data, end, reinterpret_cast<const BYTE*>(&signature),
                                       reinterpret_cast<const BYTE*>(&signature) + sizeof signature);
    ASSERT_NE(at, end);
    VS_FIXEDFILEINFO info{};
    std::copy_n(at, sizeof info, reinterpret_cast<BYTE*>(&info));
    EXPECT_EQ(runningVersion(), std::to_wstring(HIWORD(info.dwFileVersionMS)) + L"." +
                                    std::to_wstring(LOWORD(info.dwFileVersionMS)) + L"." +
                                    std::to_wstring(HIWORD(info.dwFileVersionLS)));
}

TEST_F(UpdateCheck, TheSameVersionNeedsNoUpdate)
{
    server.put(versionPath, bytes(runningVersion()));
    Answers answers;
    answers.expectBox(L"No update available",
                      L"You have the current version of Vandrel, which is " + runningVersion() +
                          L". No update is necessary.",
                      IDOK, MB_ICONASTERISK);
    check();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(server.requests(), std::vector<std::string>{versionPath});
    expectEntryWasDisabledOnce();
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(UpdateCheck, EveryOtherAnswerIsAnotherVersion)
{
    const std::wstring own = runningVersion();
    expectQuestionFor("99.0.0", L"99.0.0");
    expectQuestionFor("0.0.1", L"0.0.1");
    expectQuestionFor(bytes(own) + "\r\n", own + L"\r\n");
    expectQuestionFor(" " + bytes(own), L" " + own);
    expectQuestionFor(bytes(own) + ".0", own + L".0");
    expectQuestionFor("", L"");
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(UpdateCheck, AMissingPageIsAnotherVersionToo)
{
    Answers answers;
    decline(answers, L"no such page");
    check();
    EXPECT_ANSWERED(answers);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, AnAnswerOfAMegabyteCanBeDeclined)
{
    server.put(versionPath, std::string(2'000'000, 'x'));
    const ULONGLONG start = GetTickCount64();
    Answers answers;
    answers.expect(L"New Version Available", [](HWND box) { press(box, IDNO); });
    answers.expect(L"Failed to update", [](HWND box) { press(box, IDOK); });
    check();
    EXPECT_ANSWERED(answers);
    EXPECT_LT(GetTickCount64() - start, 5000U);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, TheQuestionHasYesAndNoAndBelongsToTheMainWindow)
{
    server.put(versionPath, "99.0.0");
    Answers answers;
    answers.expect(L"New Version Available", [&](HWND box) {
        EXPECT_EQ(buttonsOf(box), (std::vector<int>{IDYES, IDNO}));
        EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
        EXPECT_FALSE(main->menus().enabled(mnuCheckUpdates)) << "until the end of the command";
        press(box, IDNO);
    });
    answers.expect(L"Failed to update", [&](HWND box) {
        EXPECT_EQ(buttonsOf(box), std::vector<int>{IDOK});
        EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
        EXPECT_FALSE(main->menus().enabled(mnuCheckUpdates));
        press(box, IDOK);
    });
    check();
    EXPECT_ANSWERED(answers);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, NoLeavesTheProgramAsItIs)
{
    server.put(versionPath, "99.0.0");
    Answers answers;
    decline(answers, L"99.0.0");
    check();
    pump();
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindow(main->handle()));
    EXPECT_TRUE(recorder.nothingWasStarted());
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, YesHandsTheInstallersAddressToTheBrowserAndEndsTheProgram)
{
    server.put(versionPath, "99.0.0");
    const HWND window = main->handle();
    Answers answers;
    answers.expectBox(L"New Version Available", question(L"99.0.0"), IDYES, MB_ICONQUESTION);
    check();
    EXPECT_ANSWERED(answers);
    expectEntryWasDisabledOnce();
    EXPECT_FALSE(MessageLoop::current().dispatchPending()) << "the loop is asked to end";
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(server.address(L"/files/VDUpdate.exe"))});
    EXPECT_EQ(preference(L"Config", L"Left"), L"0") << "the preferences are written";
    EXPECT_EQ(server.requests(), std::vector<std::string>{versionPath}) << "the installer is the browser's";
}

TEST_F(UpdateCheck, TheEntryIsDisabledWhileItWaitsAndMessagesRun)
{
    server.put(versionPath, bytes(runningVersion()));
    bool disabled = false;
    const auto told = workspace().inetScan.StateChanged;
    workspace().inetScan.StateChanged = [&](short state) {
        disabled = !main->menus().enabled(mnuCheckUpdates);
        told(state);
    };
    Answers answers;
    answers.expect(L"No update available", [](HWND box) { press(box, IDOK); });
    EXPECT_TRUE(main->menus().enabled(mnuCheckUpdates));
    check();
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(disabled);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, ASiteThatCannotBeReachedIsAnError)
{
    Answers none;
    EXPECT_EQ(errorOf([&] {
                  CheckUpdates(workspace(), server.refusedAddress(L"http", L""),
                               [this](bool on) { enabled.push_back(on); });
              }),
              35754);
    EXPECT_ANSWERED(none);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, ASiteThatDoesNotAnswerInTimeIsAnError)
{
    workspace().inetScan.setRequestTimeout(200);
    EXPECT_EQ(errorOf([&] {
                  CheckUpdates(workspace(), server.address(L"/silent?"),
                               [this](bool on) { enabled.push_back(on); });
              }),
              35761);
    expectEntryWasDisabledOnce();
}

TEST_F(UpdateCheck, TheMenusCommandAsksTheMakersSite)
{
    ASSERT_EQ(makersSite, L"https://www.brisan.example") << "a name that nobody has, asked in secret";
    Answers answers;
    expectErrorBox(answers, 35754, L"Unable to connect to remote host");
    choose(mnuCheckUpdates);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(main->menus().enabled(mnuCheckUpdates));
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(UpdateCheck, ClosingTheWindowMeanwhileEndsItWithoutAMessage)
{
    const HWND window = main->handle();
    Meanwhile meanwhile([&] { return server.held() == 1; }, [&] { SendMessageW(window, WM_CLOSE, 0, 0); });
    Answers none;
    CheckUpdates(workspace(), server.address(L"/held?"), [this](bool on) { enabled.push_back(on); });
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_ANSWERED(none);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(enabled, (std::vector<bool>{false, true}));
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(UpdateCheck, MarksAndLogsNothing)
{
    server.put(versionPath, bytes(runningVersion()));
    siteRows().add({L"A", L"http://a.example/", L"", L""}, deadSiteImage);
    Answers answers;
    answers.expect(L"No update available", [](HWND box) { press(box, IDOK); });
    check();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(siteRows().image(0), deadSiteImage);
    EXPECT_FALSE(folder.has(L"scanned.log"));
}

} // namespace
} // namespace vandrel::test

#include "platform/internet_transfer.h"

#include "tests/support/answers.h"
#include "tests/support/error_of.h"
#include "tests/support/meanwhile.h"
#include "tests/support/test_server.h"

#include <windows.h>
#include <psapi.h>
#include <tlhelp32.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

using Body = InternetTransfer::Body;
using States = std::vector<short>;

const States both{1, 3};
const States resolvingAlone{1};
const States none;

class InternetTransfers : public testing::Test {
  protected:
    InternetTransfers() { watch(transfer); }

    void watch(InternetTransfer& watched)
    {
        watched.setRequestTimeout(5000);
        watched.StateChanged = [this](short state) { states.push_back(state); };
    }
    std::wstring open(const std::wstring& path) { return transfer.OpenURL(server.address(path)); }
    int errorFor(const std::wstring& url)
    {
        states.clear();
        return errorOf([&] { transfer.OpenURL(url); });
    }
    // Waits for an answer that does not come, and gives the error.
    int errorAfter(unsigned milliseconds, const std::wstring& path)
    {
        transfer.setRequestTimeout(milliseconds);
        const int error = errorFor(server.address(path));
        transfer.setRequestTimeout(5000);
        return error;
    }
    static void takeQuitMessage()
    {
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            << "the loop outside must end, too";
    }

    TestServer server;
    InternetTransfer transfer;
    States states;
};

// ---- states

TEST_F(InternetTransfers, AFirstRequestResolvesAndConnectsOnceEachInThisOrder)
{
    EXPECT_EQ(open(L"/ok"), L"fine");
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, SoDoesEveryFurtherOneAlthoughTheConnectionIsKept)
{
    for (int i = 0; i < 3; ++i) {
        states.clear();
        EXPECT_EQ(open(L"/ok"), L"fine");
        EXPECT_EQ(states, both) << i;
    }
    EXPECT_EQ(server.connections(), 1U) << "otherwise this says nothing about a kept connection";
}

TEST_F(InternetTransfers, SoDoesOneWhoseBodyIsNotWanted)
{
    for (int i = 0; i < 3; ++i) {
        states.clear();
        EXPECT_EQ(transfer.OpenURL(server.address(L"/ok"), Body::none), L"");
        EXPECT_EQ(states, both) << i;
    }
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/ok", "/ok", "/ok"}));
}

TEST_F(InternetTransfers, TheyAreToldOnTheThreadThatAskedAndBeforeTheAnswerIsThere)
{
    const DWORD own = GetCurrentThreadId();
    int told = 0;
    transfer.StateChanged = [&](short) {
        EXPECT_EQ(GetCurrentThreadId(), own);
        ++told;
    };
    Meanwhile meanwhile([&] { return server.held() == 1 && told == 2; }, [&] { server.letGo(); });
    EXPECT_EQ(open(L"/held"), L"fine");
    EXPECT_TRUE(meanwhile.happened());
}

TEST_F(InternetTransfers, NobodyNeedsToListen)
{
    transfer.StateChanged = nullptr;
    EXPECT_EQ(open(L"/ok"), L"fine");
}

// ---- answers

TEST_F(InternetTransfers, TheTextIsTheAnswersWhateverItsStatus)
{
    server.put("/gone", "it was here", 410);
    EXPECT_EQ(open(L"/ok"), L"fine");
    EXPECT_EQ(open(L"/missing"), L"no such page");
    EXPECT_EQ(open(L"/broken"), L"out of order");
    EXPECT_EQ(open(L"/gone"), L"it was here");
}

TEST_F(InternetTransfers, AnEmptyAnswerIsAnEmptyText)
{
    server.put("/nothing", "");
    EXPECT_EQ(open(L"/nothing"), L"");
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, TheTextIsExactlyWhatWasSent)
{
    server.put("/exact", " 1.2\r\n\t\n ");
    EXPECT_EQ(open(L"/exact"), L" 1.2\r\n\t\n ");
}

TEST_F(InternetTransfers, TheTextIsReadInTheAnsiCodePage)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the bytes below are of code page 1252";
    server.put("/accents", "caf\xE9 \x80 \xDF");
    EXPECT_EQ(open(L"/accents"), L"caf\u00E9 \u20AC \u00DF");
}

TEST_F(InternetTransfers, EveryTimeItIsAskedForAnew)
{
    server.put("/changing", "first");
    EXPECT_EQ(open(L"/changing"), L"first");
    server.put("/changing", "second");
    EXPECT_EQ(open(L"/changing"), L"second");
}

TEST_F(InternetTransfers, FollowsARedirectionWithoutTellingTheStatesAgain)
{
    EXPECT_EQ(open(L"/moved"), L"fine");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/moved", "/ok"}));
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, FollowsTenRedirectionsAndNoMore)
{
    for (int i = 1; i < 12; ++i) server.redirect("/hop" + std::to_string(i), "/hop" + std::to_string(i + 1));
    server.put("/hop12", "at last");
    EXPECT_EQ(open(L"/hop2"), L"at last");
    EXPECT_EQ(server.requests().size(), 11U);
    EXPECT_EQ(errorFor(server.address(L"/hop1")), 35756);
    EXPECT_EQ(server.requests().size(), 22U);
}

TEST_F(InternetTransfers, ARedirectionMayBeRelativeOrToAnotherServer)
{
    const TestServer other;
    const std::wstring there = other.address(L"/missing");
    server.redirect("/folder/page", "other?x=1#part");
    server.put("/folder/other", "beside it");
    server.redirect("/away", std::string(there.begin(), there.end()));
    EXPECT_EQ(open(L"/folder/page"), L"beside it");
    EXPECT_EQ(open(L"/away"), L"no such page");
    EXPECT_EQ(other.requests(), std::vector<std::string>{"/missing"});
}

TEST_F(InternetTransfers, EveryKindOfRedirectionIsFollowed)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        server.redirect("/kind", "/ok", status);
        EXPECT_EQ(open(L"/kind"), L"fine") << status;
    }
}

TEST_F(InternetTransfers, ARedirectionToNoAddressIsAnAnswerOrAnErrorAndHarmless)
{
    for (const char* const location :
         {"", "mailto:a@b.example", "xyz:", "http://", "file:///c:/windows/win.ini", "javascript:x"}) {
        server.redirect("/odd", location);
        const int error = errorFor(server.address(L"/odd"));
        EXPECT_TRUE(error == 0 || error == 35752 || error == 35753 || error == 35756)
            << location << " " << error;
        EXPECT_EQ(states, both) << location;
        EXPECT_EQ(open(L"/ok"), L"fine") << location;
    }
}

TEST_F(InternetTransfers, ARedirectionWithoutEndEnds)
{
    const int error = errorAfter(300, L"/loop");
    EXPECT_TRUE(error == 35756 || error == 35761) << error;
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, OneThatIsNotWaitedForAnyMoreIsNotFollowedAnyFurther)
{
    errorAfter(300, L"/loop");
    std::size_t last = 0;
    ULONGLONG since = GetTickCount64();
    EXPECT_TRUE(pumpUntil(
        [&] {
            const std::size_t count = server.requests().size();
            if (count != std::exchange(last, count)) since = GetTickCount64();
            return GetTickCount64() - since > 200;
        },
        1500))
        << "it was asked " << last << " times, and it goes on";
}

TEST_F(InternetTransfers, ARedirectionToNowhereIsAnErrorAfterAConnection)
{
    EXPECT_EQ(errorFor(server.address(L"/astray")), 35754);
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, AConnectionThatIsClosedWithoutAnAnswerHasBeenMade)
{
    const int error = errorFor(server.address(L"/closed"));
    EXPECT_TRUE(error == 35756 || error == 0) << error; // Wine takes it for an empty answer
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, SoHasOneThatIsReset)
{
    const int error = errorFor(server.address(L"/reset"));
    EXPECT_TRUE(error == 35756 || error == 0) << error;
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, HalfAnAnswerIsNone) { EXPECT_EQ(errorFor(server.address(L"/cut")), 35756); }

TEST_F(InternetTransfers, AfterEachOfTheseTheNextRequestWorks)
{
    for (const wchar_t* const path : {L"/closed", L"/reset", L"/cut", L"/loop", L"/astray", L"/missing"}) {
        errorAfter(300, path);
        EXPECT_EQ(open(L"/ok"), L"fine") << testing::PrintToString(std::wstring(path));
    }
}

// ---- what is no answer

TEST_F(InternetTransfers, ARefusedConnectionWasBegun)
{
    EXPECT_EQ(errorFor(server.refusedAddress()), 35754);
    EXPECT_EQ(states, both);
    EXPECT_EQ(errorFor(server.refusedAddress()), 35754);
    EXPECT_EQ(states, both) << "a second time";
}

TEST_F(InternetTransfers, ARefusedFtpConnectionWasBegun)
{
    EXPECT_EQ(errorFor(server.refusedAddress(L"ftp")), 35754);
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, ANameThatDoesNotResolveIsNotConnectedTo)
{
    EXPECT_EQ(errorFor(L"http://nowhere.invalid/"), 35754);
    EXPECT_EQ(states, resolvingAlone);
    EXPECT_EQ(errorFor(L"ftp://nowhere.invalid/"), 35754);
    EXPECT_EQ(states, resolvingAlone);
    EXPECT_EQ(errorFor(L"https://nowhere.invalid/"), 35754);
    EXPECT_EQ(states, resolvingAlone);
}

TEST_F(InternetTransfers, WhatIsNoAddressIsNeitherResolvedNorConnectedTo)
{
    for (const wchar_t* const url : {L"", L"http://", L"http:///page"}) {
        EXPECT_EQ(errorFor(url), 35752) << testing::PrintToString(std::wstring(url));
        EXPECT_EQ(states, none);
    }
    for (const wchar_t* const url : {L"not a url", L"www.example.com", L"|", L" ", L"\u65E5\u672C"}) {
        const int error = errorFor(url);
        EXPECT_TRUE(error == 35752 || error == 35753) << error << testing::PrintToString(std::wstring(url));
        EXPECT_EQ(states, none);
    }
}

TEST_F(InternetTransfers, AHostWithABlankIsNotConnectedTo)
{
    const int error = errorFor(L"http://bad host/");
    EXPECT_TRUE(error == 35752 || error == 35754) << error;
    EXPECT_EQ(std::ranges::count(states, 3), 0);
}

TEST_F(InternetTransfers, OtherProtocolsAreNotSupported)
{
    for (const wchar_t* const url : {L"javascript:alert(1)", L"mailto:a@b.example", L"file:///c:/x.txt",
                                     L"xyz://127.0.0.1/", L"about:blank"}) {
        EXPECT_EQ(errorFor(url), 35753) << testing::PrintToString(std::wstring(url));
        EXPECT_EQ(states, none);
    }
}

TEST_F(InternetTransfers, AnAddressOfTenThousandLettersDoesNoHarm)
{
    const std::wstring path = L"/missing?" + std::wstring(10'000, L'x');
    errorFor(server.address(path));
    EXPECT_EQ(open(L"/ok"), L"fine");
}

// ---- time

TEST_F(InternetTransfers, TheUsualTimeOutIs30Seconds) { EXPECT_EQ(InternetTransfer::usualSeconds, 30U); }

TEST_F(InternetTransfers, WhoeverDoesNotAnswerInTimeIsNotWaitedFor)
{
    for (const wchar_t* const path : {L"/silent", L"/trickle", L"/held"}) {
        const ULONGLONG start = GetTickCount64();
        EXPECT_EQ(errorAfter(300, path), 35761);
        const ULONGLONG taken = GetTickCount64() - start;
        EXPECT_GE(taken, 280U) << testing::PrintToString(std::wstring(path));
        EXPECT_LT(taken, 1300U) << testing::PrintToString(std::wstring(path));
        EXPECT_EQ(states, both);
    }
}

TEST_F(InternetTransfers, NorIsASecureConnectionThatNeverComesAbout)
{
    transfer.setRequestTimeout(300);
    std::wstring secure = server.address(L"/");
    secure.replace(0, 4, L"https");
    EXPECT_EQ(errorFor(secure), 35761);
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, AfterATimeOutTheNextRequestsWork)
{
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(errorAfter(100, L"/silent"), 35761);
        EXPECT_FALSE(transfer.StillExecuting());
        states.clear();
        EXPECT_EQ(open(L"/ok"), L"fine") << i;
        EXPECT_EQ(states, both);
    }
}

TEST_F(InternetTransfers, WhatComesAfterTheTimeOutIsNobodysAnswer)
{
    EXPECT_EQ(errorAfter(100, L"/held"), 35761);
    server.put("/other", "the other's own");
    server.letGo();
    states.clear();
    EXPECT_EQ(open(L"/other"), L"the other's own");
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, MessagesRunWhileItWaits)
{
    int seen = 0;
    Meanwhile meanwhile([&] { return server.held() == 1 && ++seen == 20; }, [&] { server.letGo(); });
    EXPECT_EQ(open(L"/held"), L"fine");
    EXPECT_TRUE(meanwhile.happened());
}

TEST_F(InternetTransfers, MessagesWithoutEndDoNotKeepTheTimeOutAway)
{
    Meanwhile posting([] { return PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0) == 0; }, [] {});
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(errorAfter(300, L"/silent"), 35761);
    EXPECT_LT(GetTickCount64() - start, 1300U);
    EXPECT_GT(posting.ticks(), 5);
}

// ---- one at a time

TEST_F(InternetTransfers, ASecondOneMeanwhileIsRefusedAndTheFirstIsNotDisturbed)
{
    EXPECT_FALSE(transfer.StillExecuting());
    int error = 0;
    Meanwhile meanwhile([&] { return server.held() == 1; },
                        [&] {
                            EXPECT_TRUE(transfer.StillExecuting());
                            error = errorOf([&] { open(L"/ok"); });
                            EXPECT_TRUE(transfer.StillExecuting());
                            server.letGo();
                        });
    EXPECT_EQ(open(L"/held"), L"fine");
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(error, 35764);
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/held"}));
    EXPECT_FALSE(transfer.StillExecuting());
}

TEST_F(InternetTransfers, AfterAnErrorItIsFreeAgain)
{
    EXPECT_NE(errorFor(L"not a url"), 0);
    EXPECT_FALSE(transfer.StillExecuting());
    EXPECT_EQ(open(L"/ok"), L"fine");
}

TEST_F(InternetTransfers, TwoOfThemDoNotDisturbEachOther)
{
    InternetTransfer other;
    other.setRequestTimeout(5000);
    std::wstring second;
    Meanwhile meanwhile([&] { return server.held() == 1; },
                        [&] {
                            second = other.OpenURL(server.address(L"/missing"));
                            server.letGo();
                        });
    EXPECT_EQ(open(L"/held"), L"fine");
    EXPECT_EQ(second, L"no such page");
    EXPECT_EQ(states, both);
}

// ---- the end of the program

TEST_F(InternetTransfers, ARequestToQuitEndsTheWait)
{
    Meanwhile meanwhile([&] { return server.held() == 1; }, [] { PostQuitMessage(0); });
    const ULONGLONG start = GetTickCount64();
    EXPECT_FALSE(transfer.quitting());
    EXPECT_EQ(errorFor(server.address(L"/held")), 35756);
    EXPECT_LT(GetTickCount64() - start, 2000U);
    EXPECT_TRUE(transfer.quitting());
    takeQuitMessage();
}

TEST_F(InternetTransfers, AfterItNothingIsAskedForAnyMore)
{
    PostQuitMessage(0);
    EXPECT_EQ(errorFor(server.address(L"/silent")), 35756);
    takeQuitMessage();
    const std::size_t before = server.requests().size();
    EXPECT_EQ(errorFor(server.address(L"/ok")), 35756);
    EXPECT_LE(server.requests().size(), before + 1) << "the first may still be on its way";
    EXPECT_EQ(std::ranges::count(server.requests(), "/ok"), 0);
}

TEST_F(InternetTransfers, ItsOwnerMayGoWhileTheAnswerIsStillMissing)
{
    for (int i = 0; i < 3; ++i) {
        InternetTransfer shortLived;
        shortLived.setRequestTimeout(50);
        EXPECT_EQ(errorOf([&] { shortLived.OpenURL(server.address(L"/held")); }), 35761);
    }
    server.letGo();
    EXPECT_TRUE(pumpUntil([&] { return server.held() == 0; }));
    EXPECT_EQ(open(L"/ok"), L"fine");
}

std::size_t threadsOfThisProcess()
{
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    std::size_t count = 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(all, &entry); more; more = Thread32Next(all, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    CloseHandle(all);
    return count;
}

TEST_F(InternetTransfers, WhatHungLeavesNoThreadBehindWhenItIsAnswered)
{
    open(L"/ok"); // what the system starts once
    const std::size_t before = threadsOfThisProcess();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(errorAfter(50, L"/held"), 35761);
    EXPECT_GE(threadsOfThisProcess(), before + 5) << "five of the server's at least";
    // What was given up is answered when it comes at last, too.
    EXPECT_TRUE(pumpUntil([&] {
        server.letGo();
        return server.held() == 0;
    }));
    {
        TestServer another; // whose threads are its own
        EXPECT_EQ(transfer.OpenURL(another.address(L"/ok")), L"fine");
    }
    // The server's threads stay with their connections: one each, at most.
    EXPECT_TRUE(pumpUntil([&] { return threadsOfThisProcess() <= before + server.connections(); }))
        << threadsOfThisProcess() << " threads, before " << before << ", connections "
        << server.connections();
}

// ---- large answers

double megabytesInUse()
{
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize) / 1e6;
}

TEST_F(InternetTransfers, OfABodyThatIsNotWantedHardlyAnythingIsFetched)
{
    transfer.OpenURL(server.address(L"/huge"), Body::none);
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 1; })) << "the connection is given up";
    const double before = megabytesInUse();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(transfer.OpenURL(server.address(L"/huge"), Body::none), L"");
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 6; }));
    EXPECT_LT(static_cast<double>(server.bytesSent()) / 6 / 1e6, 15)
        << "megabytes, most of them the system's";
    EXPECT_LT(megabytesInUse() - before, 10);
    EXPECT_EQ(open(L"/ok"), L"fine");
}

TEST_F(InternetTransfers, OfATextAMegabyteIsTaken)
{
    const double before = megabytesInUse();
    const std::wstring text = open(L"/huge");
    EXPECT_EQ(text.size(), std::size_t{1} << 20);
    EXPECT_EQ(text.find_first_not_of(L'x'), std::wstring::npos);
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 1; }));
    EXPECT_LT(static_cast<double>(server.bytesSent()) / 1e6, 20);
    EXPECT_LT(megabytesInUse() - before, 20);
    EXPECT_EQ(open(L"/ok"), L"fine");
}

} // namespace
} // namespace vandrel::test

#include "tests/window/platform/system/internet_transfer_test.h"

#include <tlhelp32.h>

#include <algorithm>

namespace vandrel::test {
namespace {

class InternetWaiting : public InternetTransfers {};

// ---- time

TEST_F(InternetWaiting, TheUsualTimeOutIs30Seconds) { EXPECT_EQ(InternetTransfer::usualSeconds, 30U); }

TEST_F(InternetWaiting, AServerThatDoesNotAnswerInTimeIsGivenUp)
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

TEST_F(InternetWaiting, ASecureConnectionThatIsNeverMadeIsGivenUp)
{
    transfer.setRequestTimeout(300);
    std::wstring secure = server.address(L"/");
    secure.replace(0, 4, L"https");
    EXPECT_EQ(errorFor(secure), 35761);
    EXPECT_EQ(states, both);
}

TEST_F(InternetWaiting, AfterATimeOutTheNextRequestsWork)
{
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(errorAfter(100, L"/silent"), 35761);
        EXPECT_FALSE(transfer.StillExecuting());
        states.clear();
        EXPECT_EQ(open(L"/ok"), L"fine") << i;
        EXPECT_EQ(states, both);
    }
}

TEST_F(InternetWaiting, WhatComesAfterTheTimeOutIsIgnored)
{
    EXPECT_EQ(errorAfter(100, L"/held"), 35761);
    server.put("/other", "the other's own");
    server.letGo();
    states.clear();
    EXPECT_EQ(open(L"/other"), L"the other's own");
    EXPECT_EQ(states, both);
}

TEST_F(InternetWaiting, MessagesRunWhileItWaits)
{
    int seen = 0;
    Meanwhile meanwhile([&] { return server.held() == 1 && ++seen == 20; }, [&] { server.letGo(); });
    EXPECT_EQ(open(L"/held"), L"fine");
    EXPECT_TRUE(meanwhile.happened());
}

TEST_F(InternetWaiting, EndlessMessagesDoNotPreventTheTimeOut)
{
    Meanwhile posting([] { return PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0) == 0; }, [] {});
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(errorAfter(300, L"/silent"), 35761);
    EXPECT_LT(GetTickCount64() - start, 1300U);
    EXPECT_GT(posting.ticks(), 5);
}

// ---- one at a time

TEST_F(InternetWaiting, ASecondOneMeanwhileIsRefusedAndTheFirstIsNotDisturbed)
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

TEST_F(InternetWaiting, AfterAnErrorItIsFreeAgain)
{
    EXPECT_NE(errorFor(L"not a url"), 0);
    EXPECT_FALSE(transfer.StillExecuting());
    EXPECT_EQ(open(L"/ok"), L"fine");
}

TEST_F(InternetWaiting, TwoOfThemDoNotDisturbEachOther)
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

TEST_F(InternetWaiting, ARequestToQuitEndsTheWait)
{
    Meanwhile meanwhile([&] { return server.held() == 1; }, [] { PostQuitMessage(0); });
    const ULONGLONG start = GetTickCount64();
    EXPECT_FALSE(transfer.quitting());
    EXPECT_EQ(errorFor(server.address(L"/held")), 35756);
    EXPECT_LT(GetTickCount64() - start, 2000U);
    EXPECT_TRUE(transfer.quitting());
    takeQuitMessage();
}

TEST_F(InternetWaiting, AfterARequestToQuitNothingMoreIsRequested)
{
    PostQuitMessage(0);
    EXPECT_EQ(errorFor(server.address(L"/silent")), 35756);
    takeQuitMessage();
    const std::size_t before = server.requests().size();
    EXPECT_EQ(errorFor(server.address(L"/ok")), 35756);
    EXPECT_LE(server.requests().size(), before + 1) << "the first may still be on its way";
    EXPECT_EQ(std::ranges::count(server.requests(), "/ok"), 0);
}

TEST_F(InternetWaiting, ItsOwnerMayBeDestroyedBeforeTheAnswerComes)
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

TEST_F(InternetWaiting, ARequestThatHungLeavesNoThreadOnceItIsAnswered)
{
    open(L"/ok"); // starts what the system starts only once
    const std::size_t before = threadsOfThisProcess();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(errorAfter(50, L"/held"), 35761);
    EXPECT_GE(threadsOfThisProcess(), before + 5) << "five of the server's at least";
    // A request that was given up gets its answer in the end all the same.
    EXPECT_TRUE(pumpUntil([&] {
        server.letGo();
        return server.held() == 0;
    }));
    {
        TestServer another; // with threads of its own
        EXPECT_EQ(transfer.OpenURL(another.address(L"/ok")), L"fine");
    }
    // The server keeps at most one thread per connection.
    EXPECT_TRUE(pumpUntil([&] { return threadsOfThisProcess() <= before + server.connections(); }))
        << threadsOfThisProcess() << " threads, before " << before << ", connections "
        << server.connections();
}

} // namespace
} // namespace vandrel::test

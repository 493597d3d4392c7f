#include "tests/window/platform/system/internet_transfer_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

// ---- states

TEST_F(InternetTransfers, AFirstRequestResolvesAndConnectsOnceEachInThisOrder)
{
    EXPECT_EQ(open(L"/ok"), L"fine");
    EXPECT_EQ(states, both);
}

TEST_F(InternetTransfers, EveryFurtherOneDoesSoTooAlthoughTheConnectionIsKept)
{
    for (int i = 0; i < 3; ++i) {
        states.clear();
        EXPECT_EQ(open(L"/ok"), L"fine");
        EXPECT_EQ(states, both) << i;
    }
    EXPECT_EQ(server.connections(), 1U) << "otherwise this says nothing about a kept connection";
}

TEST_F(InternetTransfers, OneWhoseBodyIsNotWantedDoesSoToo)
{
    for (int i = 0; i < 3; ++i) {
        states.clear();
        EXPECT_EQ(transfer.OpenURL(server.address(L"/ok"), Body::none), L"");
        EXPECT_EQ(states, both) << i;
    }
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/ok", "/ok", "/ok"}));
}

TEST_F(InternetTransfers, StatesComeOnTheCallingThreadBeforeTheAnswer)
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

// ---- no usable answer

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

TEST_F(InternetTransfers, WhatIsNotAnAddressIsNeitherResolvedNorConnectedTo)
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

} // namespace
} // namespace vandrel::test

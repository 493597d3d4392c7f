#include "tests/window/platform/system/internet_transfer_test.h"

#include <utility>

namespace vandrel::test {
namespace {

class InternetAnswers : public InternetTransfers {
  protected:
    static std::string narrow(const std::wstring& address) { return {address.begin(), address.end()}; }
};

TEST_F(InternetAnswers, TheTextIsTheAnswersWhateverItsStatus)
{
    server.put("/gone", "it was here", 410);
    EXPECT_EQ(open(L"/ok"), L"fine");
    EXPECT_EQ(open(L"/missing"), L"no such page");
    EXPECT_EQ(open(L"/broken"), L"out of order");
    EXPECT_EQ(open(L"/gone"), L"it was here");
}

TEST_F(InternetAnswers, AnEmptyAnswerIsAnEmptyText)
{
    server.put("/nothing", "");
    EXPECT_EQ(open(L"/nothing"), L"");
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, TheTextIsExactlyWhatWasSent)
{
    server.put("/exact", " 1.2\r\n\t\n ");
    EXPECT_EQ(open(L"/exact"), L" 1.2\r\n\t\n ");
}

TEST_F(InternetAnswers, TheTextIsReadInTheAnsiCodePage)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the bytes below are of code page 1252";
    server.put("/accents", "caf\xE9 \x80 \xDF");
    EXPECT_EQ(open(L"/accents"), L"caf\u00E9 \u20AC \u00DF");
}

TEST_F(InternetAnswers, ItIsRequestedAgainEveryTime)
{
    server.put("/changing", "first");
    EXPECT_EQ(open(L"/changing"), L"first");
    server.put("/changing", "second");
    EXPECT_EQ(open(L"/changing"), L"second");
}

TEST_F(InternetAnswers, FollowsARedirectionWithoutRepeatingTheStates)
{
    EXPECT_EQ(open(L"/moved"), L"fine");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/moved", "/ok"}));
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, FollowsTwentyRedirectionsToATextAndNoMore)
{
    for (int i = 1; i < 22; ++i) server.redirect("/hop" + std::to_string(i), "/hop" + std::to_string(i + 1));
    server.put("/hop22", "at last");
    EXPECT_EQ(open(L"/hop2"), L"at last");
    EXPECT_EQ(server.requests().size(), 21U);
    EXPECT_EQ(errorFor(server.address(L"/hop1")), 35756);
    EXPECT_EQ(server.requests().size(), 42U);
}

TEST_F(InternetAnswers, WhenNoTextIsWantedAnEndlessChainIsAnAnswer)
{
    EXPECT_EQ(transfer.OpenURL(server.address(L"/loop"), Body::none), L"");
    EXPECT_EQ(server.requests().size(), 21U);
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, ARedirectionMayBeRelativeOrToAnotherServer)
{
    const TestServer other;
    const std::wstring there = other.address(L"/missing");
    server.redirect("/folder/page", "other?x=1#part");
    server.put("/folder/other", "beside it");
    server.redirect("/away", narrow(there));
    EXPECT_EQ(open(L"/folder/page"), L"beside it");
    EXPECT_EQ(open(L"/away"), L"no such page");
    EXPECT_EQ(other.requests(), std::vector<std::string>{"/missing"});
}

TEST_F(InternetAnswers, EveryKindOfRedirectionIsFollowed)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        server.redirect("/kind", "/ok", status);
        EXPECT_EQ(open(L"/kind"), L"fine") << status;
    }
}

TEST_F(InternetAnswers, ARedirectionToNoAddressIsAnAnswerOrAnErrorAndHarmless)
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

// ---- redirections to other hosts

TEST_F(InternetAnswers, AnotherHostIsResolvedAndConnectedToAnew)
{
    server.redirect("/away", narrow(server.addressByName(L"/back")));
    server.redirect("/back", narrow(server.address(L"/moved")));
    EXPECT_EQ(open(L"/away"), L"fine");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/away", "/back", "/moved", "/ok"}));
    EXPECT_EQ(states, (States{1, 3, 1, 3, 1, 3})) << "there, back, and on the same host";
}

TEST_F(InternetAnswers, AnotherHostThatIsNotFoundIsNotConnectedTo)
{
    server.redirect("/away", "http://nowhere.invalid/");
    EXPECT_EQ(errorFor(server.address(L"/away")), 35754);
    EXPECT_EQ(states, (States{1, 3, 1}));
}

TEST_F(InternetAnswers, TheSameHostInAnotherCaseIsTheSame)
{
    std::wstring shouted = server.addressByName(L"/ok");
    shouted.replace(shouted.find(L"localhost"), 9, L"LOCALHOST");
    server.redirect("/loud", narrow(shouted));
    EXPECT_EQ(transfer.OpenURL(server.addressByName(L"/loud")), L"fine");
    EXPECT_EQ(states, both);
}

// ---- cookies

TEST_F(InternetAnswers, ACookieComesBackOnTheWay)
{
    EXPECT_EQ(open(L"/cookie"), L"fine");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/cookie", "/cookie"}));
    EXPECT_EQ(server.cookies(), (std::vector<std::string>{"", "seen=1"}));
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, ACookieIsForgottenAtTheEndOfTheChain)
{
    EXPECT_EQ(open(L"/cookie"), L"fine");
    EXPECT_EQ(open(L"/cookie"), L"fine");
    EXPECT_EQ(server.cookies(), (std::vector<std::string>{"", "seen=1", "", "seen=1"}));
}

TEST_F(InternetAnswers, SeveralCookiesComeBackOnlyToTheHostThatSetThem)
{
    server.setCookie("/first", "one=1");
    server.setCookie("/first", "two=2; Path=/elsewhere");
    server.setCookie("/first", "three=3; HttpOnly");
    server.redirect("/first", narrow(server.addressByName(L"/second")));
    server.setCookie("/second", "four=4");
    server.redirect("/second", narrow(server.address(L"/third")));
    server.setCookie("/third", "one=5");
    server.redirect("/third", "/ok");
    EXPECT_EQ(open(L"/first"), L"fine");
    EXPECT_EQ(server.cookies(), (std::vector<std::string>{"", "", "one=1; three=3", "one=5; three=3"}));
}

TEST_F(InternetAnswers, ALongCookieIsReadWhole)
{
    const std::string value(3000, 'x');
    server.setCookie("/long", "long=" + value);
    server.setCookie("/long", "last=1");
    server.redirect("/long", "/ok");
    EXPECT_EQ(open(L"/long"), L"fine");
    EXPECT_EQ(server.cookies().back(), "long=" + value + "; last=1");
}

// ---- endless chains

TEST_F(InternetAnswers, ARedirectionWithoutEndEnds)
{
    const int error = errorAfter(300, L"/loop");
    EXPECT_TRUE(error == 35756 || error == 35761) << error;
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, AChainThatIsNoLongerWaitedForIsNotFollowedAnyFurther)
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

TEST_F(InternetAnswers, ARedirectionToNowhereIsAnErrorAfterAConnection)
{
    EXPECT_EQ(errorFor(server.address(L"/astray")), 35754);
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, AConnectionThatIsClosedWithoutAnAnswerCountsAsMade)
{
    const int error = errorFor(server.address(L"/closed"));
    EXPECT_TRUE(error == 35756 || error == 0) << error; // Wine treats it as an empty answer
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, AConnectionThatIsResetCountsAsMade)
{
    const int error = errorFor(server.address(L"/reset"));
    EXPECT_TRUE(error == 35756 || error == 0) << error;
    EXPECT_EQ(states, both);
}

TEST_F(InternetAnswers, HalfAnAnswerDoesNotCount) { EXPECT_EQ(errorFor(server.address(L"/cut")), 35756); }

TEST_F(InternetAnswers, AfterEachOfTheseTheNextRequestWorks)
{
    for (const wchar_t* const path : {L"/closed", L"/reset", L"/cut", L"/loop", L"/astray", L"/missing"}) {
        errorAfter(300, path);
        EXPECT_EQ(open(L"/ok"), L"fine") << testing::PrintToString(std::wstring(path));
    }
}

} // namespace
} // namespace vandrel::test

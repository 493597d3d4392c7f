#include "exchange/shortcut_name.h"

#include "platform/base/runtime_error.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr std::size_t longest = 120;

// The surrogate pair of one rare letter.
std::wstring pairOfUnits() { return {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}; }
std::wstring firstHalf() { return {static_cast<wchar_t>(0xD83D)}; }
std::wstring secondHalf() { return {static_cast<wchar_t>(0xDE00)}; }

int errorOfName(std::wstring_view fileName)
{
    try {
        siteNameOf(fileName);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

// ---- the site's name from the file's

TEST(SiteNameOf, IsThePartBeforeTheExtension)
{
    EXPECT_EQ(siteNameOf(L"News.url"), L"News");
    EXPECT_EQ(siteNameOf(L"NEWS.URL"), L"NEWS");
}

TEST(SiteNameOf, KeepsEveryDotButTheLast)
{
    EXPECT_EQ(siteNameOf(L"My.Site.url"), L"My.Site");
    EXPECT_EQ(siteNameOf(L"experts....url"), L"experts...");
    EXPECT_EQ(siteNameOf(L".a.url"), L".a");
}

TEST(SiteNameOf, IsEmptyWhenTheDotComesFirst) { EXPECT_EQ(siteNameOf(L".url"), L""); }

TEST(SiteNameOf, KeepsBlanksAndLettersOfEveryLanguage)
{
    EXPECT_EQ(siteNameOf(L" F\u00FC\u00DFe \u65E5 .url"), L" F\u00FC\u00DFe \u65E5 ");
}

TEST(SiteNameOf, WithoutADotIsAnInvalidCall)
{
    EXPECT_EQ(errorOfName(L"url"), 5);
    EXPECT_EQ(errorOfName(L""), 5);
    EXPECT_EQ(errorOfName(L"a.url"), 0);
}

// ---- the file's name from the site's

TEST(FileNameFor, LeavesANameThatIsAllowedAsItIs)
{
    for (const std::wstring name : {L"News", L"My.Site", L"a  b", L"100% & more (2) [x] {y} ~!@#$^+=;,'`_",
                                    L"F\u00FC\u00DFe \u65E5\u672C", L".hidden"}) {
        EXPECT_EQ(fileNameFor(name), name);
    }
}

TEST(FileNameFor, PutsADashForEveryCharacterThatAFileNameCannotHave)
{
    EXPECT_EQ(fileNameFor(L"a/b: c?"), L"a-b- c-");
    for (const wchar_t c : std::wstring(L"\\/:*?\"<>|")) {
        EXPECT_EQ(fileNameFor(std::wstring(L"a") + c + L"b"), L"a-b") << static_cast<int>(c);
    }
}

TEST(FileNameFor, PutsADashForControlCharacters)
{
    for (int c = 0; c < 32; ++c) {
        EXPECT_EQ(fileNameFor(std::wstring(L"a") + static_cast<wchar_t>(c) + L"b"), L"a-b") << c;
    }
    EXPECT_EQ(fileNameFor(std::wstring(L"a") + static_cast<wchar_t>(0x7F) + L"b"), L"a-b");
}

TEST(FileNameFor, DropsDotsAndBlanksAtTheEnd)
{
    EXPECT_EQ(fileNameFor(L"Seven Bank, Ltd."), L"Seven Bank, Ltd");
    EXPECT_EQ(fileNameFor(L"wait... . "), L"wait");
    EXPECT_EQ(fileNameFor(L"News "), L"News");
}

TEST(FileNameFor, DropsBlanksAtTheStart)
{
    EXPECT_EQ(fileNameFor(L"  News"), L"News");
    EXPECT_EQ(fileNameFor(L"  ..News"), L"..News");
}

TEST(FileNameFor, OfNothingIsNothing)
{
    for (const wchar_t* const name : {L"", L" ", L"...", L" . . "}) EXPECT_EQ(fileNameFor(name), L"");
}

TEST(FileNameFor, DoesNotLeadToADevice)
{
    for (const wchar_t* const name :
         {L"CON", L"con", L"Prn", L"AUX", L"nul", L"COM1", L"com9", L"Lpt1", L"LPT9"}) {
        EXPECT_EQ(fileNameFor(name), std::wstring(L"-") + name);
        EXPECT_EQ(fileNameFor(std::wstring(name) + L".backup"), std::wstring(L"-") + name + L".backup");
        EXPECT_EQ(fileNameFor(std::wstring(name) + L" .b"), std::wstring(L"-") + name + L" .b");
        EXPECT_EQ(fileNameFor(std::wstring(L" ") + name), std::wstring(L"-") + name);
        EXPECT_EQ(fileNameFor(std::wstring(name) + L"."), std::wstring(L"-") + name);
    }
}

TEST(FileNameFor, DoesNotLeadToADeviceThatIsNumberedWithARaisedDigit)
{
    for (const wchar_t* const name : {L"COM\u00B9", L"com\u00B2", L"LPT\u00B3"}) {
        EXPECT_EQ(fileNameFor(name), std::wstring(L"-") + name);
    }
}

TEST(FileNameFor, LeavesNamesThatOnlyBeginLikeADevice)
{
    for (const wchar_t* const name :
         {L"console", L"con-", L"COM", L"COM10", L"lpt", L"a.con", L"nul l", L"COMx"}) {
        EXPECT_EQ(fileNameFor(name), name);
    }
}

TEST(FileNameFor, KeepsTheFirstHundredAndTwentyUnits)
{
    const std::wstring fits(longest, L'x');
    EXPECT_EQ(fileNameFor(fits), fits);
    EXPECT_EQ(fileNameFor(fits + L"y"), fits);
    EXPECT_EQ(fileNameFor(std::wstring(5000, L'x')), fits);
}

TEST(FileNameFor, DropsABlankThatStandsAtTheEndAfterCutting)
{
    const std::wstring start(longest - 1, L'x');
    EXPECT_EQ(fileNameFor(start + L" more"), start);
}

TEST(FileNameFor, IsNoLongerThanItMayBeWhenADeviceIsAvoided)
{
    EXPECT_LE(fileNameFor(L"con." + std::wstring(longest, L'x')).size(), longest);
}

TEST(FileNameFor, DoesNotCutALetterOfTwoUnits)
{
    const std::wstring start(longest - 2, L'x');
    EXPECT_EQ(fileNameFor(start + pairOfUnits()), start + pairOfUnits());
    EXPECT_EQ(fileNameFor(start + L"x" + pairOfUnits()), start + L"x");
    EXPECT_EQ(fileNameFor(start + L"x" + pairOfUnits() + L"y"), start + L"x");
}

TEST(FileNameFor, PutsADashForHalfALetter)
{
    EXPECT_EQ(fileNameFor(L"a" + firstHalf()), L"a-");
    EXPECT_EQ(fileNameFor(secondHalf() + L"a"), L"-a");
    EXPECT_EQ(fileNameFor(firstHalf() + firstHalf()), L"--");
    EXPECT_EQ(fileNameFor(secondHalf() + firstHalf()), L"--");
    EXPECT_EQ(fileNameFor(firstHalf() + pairOfUnits()), L"-" + pairOfUnits());
}

// ---- the path that the user typed

TEST(ShortcutPath, GetsTheExtensionThatWasLeftOut)
{
    EXPECT_EQ(shortcutPath(L"C:\\folder\\News"), L"C:\\folder\\News.url");
    EXPECT_EQ(shortcutPath(L"C:\\folder\\My.Site"), L"C:\\folder\\My.Site.url");
    EXPECT_EQ(shortcutPath(L"C:\\x.url\\News"), L"C:\\x.url\\News.url");
}

TEST(ShortcutPath, IsLeftAloneWhenItHasTheExtensionInWhateverCase)
{
    for (const wchar_t* const path : {L"C:\\News.url", L"C:\\NEWS.URL", L"C:\\News.Url", L"C:\\a.b.url"}) {
        EXPECT_EQ(shortcutPath(path), path);
    }
}

TEST(ShortcutPath, DoesNotMistakeTheLastLettersOfANameForAnExtension)
{
    EXPECT_EQ(shortcutPath(L"C:\\curl"), L"C:\\curl.url");
    EXPECT_EQ(shortcutPath(L"C:\\News.url.txt"), L"C:\\News.url.txt.url");
}

} // namespace
} // namespace vandrel::test

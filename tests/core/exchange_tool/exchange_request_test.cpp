#include "exchange_tool/exchange_request.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using What = ExchangeRequest::What;
using Words = std::vector<std::wstring>;

ExchangeRequest asked(const Words& words) { return requestOf(words); }

void expectWrong(const Words& words, const std::wstring& complaint)
{
    const ExchangeRequest request = asked(words);
    EXPECT_EQ(request.what, What::wrong) << testing::PrintToString(words);
    EXPECT_EQ(request.complaint, complaint);
    EXPECT_FALSE(request.inWindows());
}

TEST(ExchangeRequest, WithoutWordsLetsTheUserChooseInAWindow)
{
    EXPECT_EQ(asked({}).what, What::choose);
    EXPECT_TRUE(asked({}).inWindows());
    EXPECT_EQ(asked({}).folder, std::nullopt);
    EXPECT_EQ(asked({L"--folder", L"C:\\Links"}).what, What::choose);
    EXPECT_EQ(asked({L"--folder", L"C:\\Links"}).folder, L"C:\\Links");
}

TEST(ExchangeRequest, OfAFileAloneBringsItInInAWindow)
{
    for (const Words& words : {Words{L"C:\\a.html"}, Words{L"bookmarks.html"}, Words{L"imports"}}) {
        const ExchangeRequest request = asked(words);
        EXPECT_EQ(request.what, What::bringIn);
        EXPECT_TRUE(request.inWindows());
        EXPECT_EQ(request.files, words);
    }
    const ExchangeRequest request = asked({L"--folder", L"D:\\L", L"a b.html"});
    EXPECT_EQ(request.files, (Words{L"a b.html"}));
    EXPECT_EQ(request.folder, L"D:\\L");
}

TEST(ExchangeRequest, OfSeveralFilesFromExplorerBringsInEach)
{
    EXPECT_EQ(asked({L"C:\\a.html", L"C:\\b.html"}).files, (Words{L"C:\\a.html", L"C:\\b.html"}));
    expectWrong({L"imprt", L"C:\\b.html"}, L"There is no command imprt.");
}

TEST(ExchangeRequest, NamesACommandItsFileAndTheFolder)
{
    EXPECT_EQ(asked({L"import", L"a.html"}).what, What::importFile);
    EXPECT_EQ(asked({L"import", L"a.html"}).files, (Words{L"a.html"}));
    EXPECT_EQ(asked({L"export", L"a.html"}).what, What::exportFile);
    EXPECT_EQ(asked({L"export", L"--folder", L"x y", L"a.html"}).folder, L"x y");
    EXPECT_EQ(asked({L"export", L"--folder", L"x y", L"a.html"}).files, (Words{L"a.html"}));
    EXPECT_EQ(asked({L"check"}).what, What::check);
    EXPECT_EQ(asked({L"check", L"--folder", L"."}).folder, L".");
    EXPECT_FALSE(asked({L"check"}).inWindows());
}

TEST(ExchangeRequest, TakesWhatFollowsTwoHyphensForNames)
{
    EXPECT_EQ(asked({L"import", L"--", L"--help"}).files, (Words{L"--help"}));
    EXPECT_EQ(asked({L"--", L"-x.html"}).what, What::bringIn);
}

TEST(ExchangeRequest, ForHelpOrTheVersionWinsOverACommand)
{
    for (const Words& words : {Words{L"--help"}, Words{L"-h"}, Words{L"/?"}, Words{L"import", L"--help"}})
        EXPECT_EQ(asked(words).what, What::help);
    EXPECT_EQ(asked({L"--version"}).what, What::version);
}

TEST(ExchangeRequest, ThatCannotBeUnderstoodSaysWhatIsWrong)
{
    expectWrong({L"import"}, L"import needs the name of one file.");
    expectWrong({L"import", L""}, L"import needs the name of one file.");
    expectWrong({L"export", L"a", L"b"}, L"export needs the name of one file.");
    expectWrong({L"check", L"a"}, L"check needs no name of a file.");
    expectWrong({L"check", L"--folder"}, L"--folder needs the name of a folder.");
    expectWrong({L"check", L"--folder", L""}, L"--folder needs the name of a folder.");
    expectWrong({L"--quiet"}, L"There is no option --quiet.");
    expectWrong({L""}, L"A file needs a name.");
}

TEST(ExchangeHelp, NamesEveryCommandInLinesThatFitAConsole)
{
    const std::wstring help(exchangeHelp());
    for (const wchar_t* const name : {L"import FILE", L"export FILE", L"check", L"--folder DIR", L"--help",
                                      L"--version", L"Exit status"}) {
        EXPECT_NE(help.find(name), std::wstring::npos) << testing::PrintToString(std::wstring(name));
    }
    std::size_t begin = 0;
    for (std::size_t end = help.find(L"\r\n"); end != std::wstring::npos; end = help.find(L"\r\n", begin)) {
        EXPECT_LT(end - begin, 80U);
        begin = end + 2;
    }
    EXPECT_EQ(begin, help.size());
}

} // namespace
} // namespace vandrel::test

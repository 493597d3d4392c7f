#include "bookmarks/category_titles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace vandrel::test {
namespace {

std::wstring lowerAscii(std::wstring_view text)
{
    std::wstring lower(text);
    for (wchar_t& c : lower) c = c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
    return lower;
}

std::wstring titleFor(std::vector<std::wstring_view> folders) { return titleOfFolders(folders); }

TEST(CategoryTitles, NameTheFoldersFromTheOutermost)
{
    EXPECT_EQ(titleFor({L"Work"}), L"Work");
    EXPECT_EQ(titleFor({L"Work", L"Reading"}), L"Work - Reading");
    EXPECT_EQ(titleFor({L"a", L"b", L"c"}), L"a - b - c");
}

TEST(CategoryTitles, AreSuchAsAFileCanHave)
{
    EXPECT_EQ(titleFor({L"a/b:c|d\"e"}), L"a-b-c-d-e");
    EXPECT_EQ(titleFor({L"CON"}), L"-CON");
    EXPECT_EQ(titleFor({L"com1"}), L"-com1");
    EXPECT_EQ(titleFor({L"CON", L"Reading"}), L"CON - Reading");
    EXPECT_EQ(titleFor({L" Work . "}), L"Work");
    EXPECT_EQ(titleFor({L"etc..."}), L"etc");
    EXPECT_EQ(titleFor({std::wstring(300, L'x')}), std::wstring(120, L'x'));
    EXPECT_EQ(titleFor({std::wstring(100, L'x'), std::wstring(100, L'y')}),
              std::wstring(100, L'x') + L" - " + std::wstring(17, L'y'));
}

TEST(CategoryTitles, AFolderOfBlanksAndDotsNamesNone)
{
    for (const auto* name : {L"", L" ", L"...", L" . "}) EXPECT_FALSE(namesCategory(name)) << name;
    for (const auto* name : {L"a", L"?", L".net"}) EXPECT_TRUE(namesCategory(name)) << name;
}

TEST(CategoryTitles, ThatAreTakenGetANumber)
{
    const std::vector<std::wstring> existing{L"Work", L"home (2)"};
    CategoryTitles titles(existing, lowerAscii);
    EXPECT_EQ(titles.take(L"WORK"), L"WORK (2)");
    EXPECT_EQ(titles.take(L"work"), L"work (3)");
    EXPECT_EQ(titles.take(L"Home"), L"Home");
    EXPECT_EQ(titles.take(L"Home"), L"Home (3)");
    EXPECT_EQ(titles.take(L"Work (2)"), L"Work (2) (2)");
    EXPECT_EQ(titles.take(L"Play"), L"Play");
}

TEST(CategoryTitles, WithANumberAreNoLongerThanOthers)
{
    CategoryTitles titles({}, lowerAscii);
    const std::wstring longest = std::wstring(119, L'x');
    EXPECT_EQ(titles.take(longest + L"a"), longest + L"a");
    EXPECT_EQ(titles.take(longest + L"b"), longest + L"b");
    EXPECT_EQ(titles.take(longest + L"a"), std::wstring(108, L'x') + L" (2)");
    EXPECT_EQ(titles.take(longest + L"b"), std::wstring(108, L'x') + L" (3)");
    const std::wstring blank = std::wstring(107, L'y') + L" " + std::wstring(12, L'y');
    titles.take(blank);
    EXPECT_EQ(titles.take(blank), std::wstring(107, L'y') + L" (2)");
}

// The ten-thousandth must not try ten thousand numbers.
TEST(CategoryTitles, OfManyEqualFoldersAreFoundAtOnce)
{
    std::size_t folded = 0;
    CategoryTitles titles({}, [&](std::wstring_view text) {
        ++folded;
        return std::wstring(text);
    });
    for (int count = 1; count < 10'000; ++count) titles.take(L"Work");
    EXPECT_EQ(titles.take(L"Work"), L"Work (10000)");
    EXPECT_LT(folded, 40'000U);
}

} // namespace
} // namespace vandrel::test

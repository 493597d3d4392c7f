#include "bookmarks/bookmark_categories.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

// Pages as browsers write them, in tests/bookmark_files.
namespace vandrel::test {
namespace {

using Texts = std::vector<std::wstring>;

std::string samplePage(const std::string& browser)
{
    std::string folder = VANDREL_BOOKMARK_FILES;
    if (!fs::exists(folder)) folder.insert(0, "Z:"); // on a Unix host every file is on drive Z
    std::ifstream file(fs::path(folder) / (browser + ".html"), std::ios::binary);
    EXPECT_TRUE(file) << folder;
    return {std::istreambuf_iterator<char>(file), {}};
}

// "title: line, line" of each category, with "/" for line ends.
Texts categoriesIn(const std::string& browser)
{
    const ImportRules rules{[](AddDate added) { return std::to_wstring(added); },
                            [](std::wstring_view letter) { return letter.size() == 1 && letter[0] < 0x3000; },
                            [](std::wstring_view text) { return std::wstring(text); }};
    Texts texts;
    const ImportedBookmarks imported = importedBookmarks(samplePage(browser), {}, rules);
    for (const ImportedCategory& category : imported.categories) {
        std::wstring text = category.title + L": " + category.text;
        for (std::size_t at = text.find(L"\r\n"); at != text.npos; at = text.find(L"\r\n", at))
            text.replace(at, 2, L" / ");
        texts.push_back(text);
    }
    return texts;
}

TEST(SamplePage, OfChromeBecomesTheCategoriesOfItsFolders)
{
    EXPECT_EQ(
        categoriesIn("chrome"),
        (Texts{L"Bookmarks bar: Weather & tides|https://weather.example.org/today?city=Leeds&units=metric||"
               L"1604592060 / ",
               L"Bookmarks bar - Allotment: Seeds: \u201Cheritage\u201D peas|"
               L"https://seeds.example.org/catalogue||1610000100 / "
               L"Soil|https://soil.example.org/||1610000200 / ",
               L"Bookmarks bar - Allotment - Fruit: \u00C4pfel und Birnen|"
               L"https://apples.example.org/%C3%84pfel||1610000400 / ",
               L"Bookmarks: A bookmarklet|javascript:alert('a < b')||1620000000 / "
               L"Trains - departures|https://trains.example.org/||1620000100 / "}));
}

TEST(SamplePage, OfEdgeBecomesTheCategoriesOfItsFolders)
{
    EXPECT_EQ(
        categoriesIn("edge"),
        (Texts{L"Favourites bar: Soup of the day|https://recipes.example.org/soup||1700000100 / ",
               L"Favourites bar - Work- plans - reports: Plans|https://intranet.example.org/plans||"
               L"1700000300 / Reports|https://intranet.example.org/reports||1700000400 / ",
               L"Favourites bar - CON: Convention|https://convention.example.org/||1700000600 / ",
               L"Other favourites:  ; the news, as it comes|https://news.example.org/||1700000710 / "}));
}

TEST(SamplePage, OfFirefoxBecomesTheCategoriesOfItsFolders)
{
    EXPECT_EQ(
        categoriesIn("firefox"),
        (Texts{L"Bookmarks: The museum's \"late\" evenings|https://museum.example.org/|Open until ten on the "
               L"last Friday of the month|1500000000 / ",
               L"Languages: Dictionary|https://dictionary.example.org/||1500000210 / "
               L"?????|https://japanese.example.org/|Short stories, with <b> and </A> explained|1500000230 / "
               L"Recent tags|place:type=6&sort=14&maxResults=10||1500000250 / ",
               L"Bookmarks Toolbar: Radio|https://radio.example.org/live||1500000410 / "}));
}

TEST(SamplePage, OfSafariBecomesTheCategoriesOfItsFolders)
{
    EXPECT_EQ(categoriesIn("safari"),
              (Texts{L"Favourites: Maps|https://maps.example.org/|| / "
                     L"Track a parcel|https://post.example.org/track?id=1&lang=en|| / ",
                     L"Bookmarks Menu - Photography: Lenses \u2013 a primer|https://lenses.example.org/|| / ",
                     L"Reading List: On walking|https://essays.example.org/walking|| / "}));
}

} // namespace
} // namespace vandrel::test

#include "bookmarks/bookmark_categories.h"
#include "counting_new.h"
#include "mutated_pages.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace vandrel::test {
namespace {

// Of what hears the page nothing is counted.
class NoMemory : public BookmarkHandler {
  public:
    void folderBegins(const std::wstring&, std::optional<AddDate>) override {}
    void folderEnds() override {}
    void bookmark(const Bookmark&) override {}
};

// A text that grows has up to twice the room that it needs, and its old room beside it.
constexpr std::size_t bytesPerUnit = 3 * sizeof(wchar_t);
constexpr std::size_t littleMemory = 10'000;
constexpr std::size_t usualPages = 500;

std::size_t memoryToRead(std::string_view page)
{
    NoMemory handler;
    counting_new::begin();
    readBookmarks(page, handler);
    return counting_new::most();
}

std::size_t memoryToImport(std::string_view page)
{
    const ImportRules rules{[](AddDate) { return std::wstring(L"16.11.2002"); },
                            [](std::wstring_view) { return true; },
                            [](std::wstring_view text) { return std::wstring(text); }};
    counting_new::begin();
    const ImportedBookmarks result = importedBookmarks(page, {}, rules);
    return counting_new::most();
}

TEST(BookmarkMemory, OfReadingIsAFewTextsOfThePageAtMost)
{
    HostileText hostile;
    for (std::size_t tried = hostileCount(usualPages); tried > 0; --tried) {
        const PageBytes page = mutatedPage(hostile);
        ASSERT_LE(memoryToRead(page.view()), 2 * bytesPerUnit * page.size() + littleMemory)
            << "seed " << hostile.usedSeed() << ": " << testing::PrintToString(page);
    }
}

TEST(BookmarkMemory, OfPicturesIsNone)
{
    std::string page = R"(<DT><A HREF="http://a.example/" ICON="data:image/png;base64,)";
    page.append(4'000'000, 'A');
    page += "\">n</A><!-- ";
    page.append(1'000'000, 'x');
    EXPECT_LE(memoryToRead(page), littleMemory);
    EXPECT_LE(memoryToImport(page), littleMemory);
}

// The shortest folder with a bookmark, "<H3>a<DL><A HREF>", becomes a category with a title as long as a
// title may be.
TEST(BookmarkMemory, OfImportingIsBoundedByThePage)
{
    constexpr std::size_t perByte = 100;
    HostileText hostile;
    for (std::size_t tried = hostileCount(usualPages); tried > 0; --tried) {
        const PageBytes page = mutatedPage(hostile);
        ASSERT_LE(memoryToImport(page.view()), perByte * page.size() + littleMemory)
            << "seed " << hostile.usedSeed() << ": " << testing::PrintToString(page);
    }
    std::string deep;
    for (std::size_t depth = 0; depth < deepestList - 1; ++depth) deep += "<H3>some name<DL>";
    for (int folder = 0; folder < 2000; ++folder)
        deep += "<H3>" + std::to_string(folder) + "<DL><A HREF=x></DL>";
    EXPECT_LE(memoryToImport(deep), perByte * deep.size());
}

TEST(BookmarkMemory, OfImportingAPageAsBrowsersWriteItIsASmallMultipleOfIt)
{
    std::string page = "<DL><p>\n";
    for (int site = 0; site < 5000; ++site) {
        if (site % 100 == 0) page += "<DT><H3>Folder " + std::to_string(site) + "</H3>\n<DL><p>\n";
        page += "    <DT><A HREF=\"https://www.example.com/a/page/" + std::to_string(site) +
                "\" ADD_DATE=\"1037404800\">The name of a page</A>\n";
        if (site % 100 == 99) page += "</DL><p>\n";
    }
    const std::size_t memory = memoryToImport(page);
    EXPECT_LE(memory, 2 * sizeof(wchar_t) * page.size());
    std::printf("%zu bytes for a page of %zu\n", memory, page.size());
}

} // namespace
} // namespace vandrel::test

#include "bookmarks/bookmark_writer.h"

#include "bookmarks/letters.h"
#include "model/site_record.h"
#include "pages.h"
#include "tests/support/hostile_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

// The text with the replacement letter for what no page can hold.
std::wstring asWritten(std::wstring_view text)
{
    std::wstring written;
    while (!text.empty()) {
        const char32_t letter = takeLetter(text);
        appendLetter(written, letter == 0 ? replacementLetter : letter);
    }
    return written;
}

// A page of one folder, and the outline that reading it should give.
class RoundTrip {
  public:
    explicit RoundTrip(std::wstring_view folder)
    {
        writer_.beginFolder(folder);
        expected_.push_back(asWritten(folder) + L" {");
    }
    void add(std::wstring_view name, std::wstring_view url, std::wstring_view description,
             std::optional<AddDate> added = std::nullopt)
    {
        writer_.addBookmark(name, url, description, added);
        expected_.push_back(asWritten(name) + L"|" + asWritten(url) + L"|" + asWritten(description) + L"|" +
                            (added ? std::to_wstring(*added) : std::wstring()));
    }
    void expectSame()
    {
        writer_.endFolder();
        writer_.end();
        expected_.emplace_back(L"}");
        const Lines lines = outlineOf(writer_.bytes());
        ASSERT_EQ(lines.size(), expected_.size());
        for (std::size_t at = 0; at < lines.size(); ++at) ASSERT_EQ(lines[at], expected_[at]);
    }

  private:
    BookmarkWriter writer_;
    Lines expected_;
};

TEST(BookmarkWriter, WritesThePageThatBrowsersExpect)
{
    BookmarkWriter writer;
    writer.beginFolder(L"R&D");
    writer.addBookmark(L"<b>\u00FC</b>", L"http://a/?x=\"1\"&y='2'", L"About it", 1037404800);
    writer.addBookmark(L"b", L"http://b/", L"", std::nullopt);
    writer.endFolder();
    writer.end();
    EXPECT_EQ(writer.bytes(),
              "<!DOCTYPE NETSCAPE-Bookmark-file-1>\r\n"
              "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\r\n"
              "<TITLE>Bookmarks</TITLE>\r\n"
              "<H1>Bookmarks</H1>\r\n"
              "<DL><p>\r\n"
              "    <DT><H3>R&amp;D</H3>\r\n"
              "    <DL><p>\r\n"
              "        <DT><A HREF=\"http://a/?x=&quot;1&quot;&amp;y=&#39;2&#39;\" ADD_DATE=\"1037404800\">"
              "&lt;b&gt;\xC3\xBC&lt;/b&gt;</A>\r\n"
              "        <DD>About it\r\n"
              "        <DT><A HREF=\"http://b/\">b</A>\r\n"
              "    </DL><p>\r\n"
              "</DL><p>\r\n");
}

TEST(BookmarkWriter, GivesItsBytesInParts)
{
    BookmarkWriter writer;
    writer.clear();
    EXPECT_EQ(writer.bytes(), "");
    writer.end();
    EXPECT_EQ(writer.bytes(), "</DL><p>\r\n");
}

TEST(BookmarkWriter, WritesEveryTextSoThatItIsReadAsItWas)
{
    for (const std::wstring text : {L"",
                                    L" ",
                                    L"  ",
                                    L" a",
                                    L"a ",
                                    L"a  b",
                                    L" a   b ",
                                    L"a\r\n b",
                                    L"\t",
                                    L"\n",
                                    L"a\u00A0 b",
                                    L"&amp;",
                                    L"&copy",
                                    L"&#65;",
                                    L"</A>",
                                    L"<DT><A HREF=x>",
                                    L"'\"<>&",
                                    L"-->",
                                    L"<!--",
                                    L"\x01\x1F\x7F",
                                    L"\u0080\u0096",
                                    L"\uFEFF",
                                    L"\uFFFF",
                                    L"a|b;c"}) {
        RoundTrip trip(text);
        trip.add(text, text, text, 1);
        trip.add(text, L"", L"");
        trip.add(L"", text, L"", 100'000'000'000);
        trip.add(L"", L"", text);
        ASSERT_NO_FATAL_FAILURE(trip.expectSame()) << testing::PrintToString(text);
    }
}

TEST(BookmarkWriter, PutsTheReplacementLetterForWhatNoPageCanHold)
{
    BookmarkWriter writer;
    const std::wstring halves{L'a', static_cast<wchar_t>(0xD83D), L'b', static_cast<wchar_t>(0xDC80), L'\0'};
    writer.addBookmark(halves, L"x", L"", std::nullopt);
    EXPECT_EQ(outlineOf(writer.bytes()), (Lines{L"a\uFFFDb\uFFFD\uFFFD|x||"}));
    EXPECT_TRUE(writer.bytes().find("a\xEF\xBF\xBD"
                                    "b\xEF\xBF\xBD\xEF\xBF\xBD<") != std::string_view::npos);
}

TEST(BookmarkWriter, WritesRandomTextsSoThatTheyAreReadAsTheyWere)
{
    HostileText hostile;
    const auto text = [&] {
        std::wstring made = hostile.text(30);
        for (std::size_t count = hostile.below(4); count > 0; --count) // what means something in a page
            made.insert(hostile.below(made.size() + 1), 1, hostile.oneOf(L"<>&#;'\" \t\r\n\f"));
        return made;
    };
    for (int page = 0; page < 300; ++page) {
        RoundTrip trip(text());
        for (std::size_t sites = hostile.below(10); sites > 0; --sites) {
            std::optional<AddDate> added;
            if (hostile.oneIn(2)) added = 1 + static_cast<AddDate>(hostile.below(2'000'000'000));
            trip.add(text(), text(), text(), added);
        }
        ASSERT_NO_FATAL_FAILURE(trip.expectSame()) << "seed " << hostile.usedSeed() << ", page " << page;
    }
}

// ---- the bookmarks of real people

std::optional<fs::path> collectionBesideTheProject()
{
    for (fs::path at = fs::current_path(); at != at.parent_path(); at = at.parent_path()) {
        const fs::path found = at.parent_path() / "shared" / "collection";
        std::error_code ignored;
        if (fs::exists(at / "CMakeLists.txt", ignored) && fs::is_directory(found, ignored)) return found;
    }
    return std::nullopt;
}

TEST(BookmarkWriter, WritesRealCategoriesSoThatTheyAreReadAsTheyWere)
{
    const auto folder = collectionBesideTheProject();
    if (!folder) GTEST_SKIP() << "no folder shared/collection beside the project";
    std::size_t sites = 0;
    for (const auto& entry : fs::directory_iterator(*folder)) {
        if (entry.path().extension() != ".udb") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        std::wstring text;
        for (const char byte : bytes) appendLetter(text, windows1252Letter(static_cast<unsigned char>(byte)));
        RoundTrip trip(L"Real bookmarks");
        SiteRecordReader reader(text);
        while (const auto site = reader.next()) {
            const auto day = dateOfNumbers(site->date, monthDayYear);
            trip.add(site->name, site->url, site->description, day ? addDateOf(*day) : std::nullopt);
            ++sites;
        }
        ASSERT_NO_FATAL_FAILURE(trip.expectSame()) << entry.path().filename();
    }
    EXPECT_GT(sites, 0U);
    std::printf("%zu sites\n", sites);
}

} // namespace
} // namespace vandrel::test

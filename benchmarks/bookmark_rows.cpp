#include "benchmarks/measure.h"
#include "benchmarks/rows.h"
#include "exchange_tool/bookmark_export.h"
#include "exchange_tool/bookmark_import.h"
#include "platform/files/file_bytes.h"
#include "platform/files/folder.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace vandrel::bench {
namespace {

constexpr std::size_t bookmarksInFolder = 1'000;
constexpr int runs = 5;

// A page as browsers write it, 200 bytes for each bookmark.
std::string pageOf(std::size_t bookmarks)
{
    constexpr long long firstSecond = 1'400'000'000;
    std::string page = "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
                       "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
                       "<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks</H1>\n<DL><p>\n";
    for (std::size_t i = 0; i < bookmarks; ++i) {
        const std::string number = std::to_string(i);
        if (i % bookmarksInFolder == 0) {
            if (i > 0) page += "    </DL><p>\n";
            page += "    <DT><H3 ADD_DATE=\"1400000000\">Folder " + std::to_string(i / bookmarksInFolder) +
                    "</H3>\n    <DL><p>\n";
        }
        const long long second = firstSecond + static_cast<long long>(i * 7919 % 300'000'000);
        page += "        <DT><A HREF=\"https://www.site-" + number +
                ".example.org/caf%C3%A9/page.html?a=1&amp;b=" + number + "\" ADD_DATE=\"" +
                std::to_string(second) + "\" LAST_MODIFIED=\"0\">Caf\xC3\xA9 number " + number +
                " &amp; its garden</A>\n        <DD>Where it is &quot;quiet&quot;\n";
    }
    return page + "    </DL><p>\n</DL><p>\n";
}

void clear(const fs::path& folder)
{
    for (const std::wstring& name : fileNamesIn(folder.wstring())) DeleteFileW((folder / name).c_str());
}

void rowsFor(std::size_t bookmarks, const char* named)
{
    const fs::path folder = fs::current_path() / L"bookmarks";
    fs::create_directories(folder);
    const fs::path page = fs::current_path() / L"bookmarks.html";
    const fs::path written = fs::current_path() / L"written.html";
    {
        std::ofstream file(page, std::ios::binary);
        const std::string bytes = pageOf(bookmarks);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    const double reading = timed([&] { fileBytes(page.wstring()); }, [] {}, runs);
    std::size_t sites = 0;
    const double import = timed(
        [&] {
            Progress progress;
            sites = importBookmarks(folder.wstring(), page.wstring(), systemFiles(), progress).sites;
        },
        [&] { clear(folder); }, runs);
    if (sites != bookmarks) std::printf("bookmarks: wrong count\n");
    const std::string beginning = named;
    print({"bringing in " + beginning + " bookmarks", "reading the file", import, reading, "ms", 100});
    if (bookmarks == 100'000) print({"the same", "", import, 1, "ms", 1000});

    const double exported = timed(
        [&] {
            Progress progress;
            exportBookmarks(folder.wstring(), written.wstring(), systemFiles(), progress);
        },
        [] {}, runs);
    const double readingWritten = timed([&] { fileBytes(written.wstring()); }, [] {}, runs);
    print({"writing " + beginning + " bookmarks", "reading that file", exported, readingWritten, "ms", 100});
    clear(folder);
    fs::remove(page);
    fs::remove(written);
}

} // namespace

void bookmarkRows()
{
    rowsFor(1'000, "1,000");
    rowsFor(100'000, "100,000");
}

void manyBookmarkRows() { rowsFor(1'000'000, "1,000,000"); }

} // namespace vandrel::bench

#pragma once

#include "bookmarks/bookmark_reader.h"

#include <string>
#include <string_view>
#include <vector>

namespace vandrel::test {

// What is in a page, a text for each thing that the reader tells: "Work {" or "Work 1037404800 {" for a
// folder, "}" for its end, "name|url|description|1037404800" for a bookmark.
class Outline : public BookmarkHandler {
  public:
    void folderBegins(const std::wstring& name, std::optional<AddDate> added) override
    {
        lines.push_back(name + (added ? L" " + std::to_wstring(*added) : std::wstring()) + L" {");
        ++depth;
    }
    void folderEnds() override
    {
        lines.emplace_back(L"}");
        --depth;
    }
    void bookmark(const Bookmark& bookmark) override
    {
        lines.push_back(bookmark.name + L"|" + bookmark.url + L"|" + bookmark.description + L"|" +
                        (bookmark.added ? std::to_wstring(*bookmark.added) : std::wstring()));
    }

    std::vector<std::wstring> lines;
    int depth = 0;
};

using Lines = std::vector<std::wstring>;

inline Lines outlineOf(std::string_view page)
{
    Outline outline;
    readBookmarks(page, outline);
    return outline.lines;
}

// Pages such as today's browsers write them.
namespace pages {

inline constexpr std::string_view chrome =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "<!-- This page was made by a program.\n     Do not change it. -->\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "<TITLE>Bookmarks</TITLE>\n"
    "<H1>Bookmarks</H1>\n"
    "<DL><p>\n"
    "    <DT><H3 ADD_DATE=\"1037404800\" LAST_MODIFIED=\"1037404801\" "
    "PERSONAL_TOOLBAR_FOLDER=\"true\">Bar</H3>\n"
    "    <DL><p>\n"
    "        <DT><A HREF=\"https://news.example/?a=1&b=2\" ADD_DATE=\"1037404802\" "
    "ICON=\"data:image/png;base64,iVBORw0KGgo=\">News &amp; more</A>\n"
    "        <DT><H3 ADD_DATE=\"1037404803\" LAST_MODIFIED=\"0\">Reading</H3>\n"
    "        <DL><p>\n"
    "            <DT><A HREF=\"https://books.example/\" ADD_DATE=\"1037404804\">B\xC3\xBC"
    "cher</A>\n"
    "        </DL><p>\n"
    "    </DL><p>\n"
    "    <DT><A HREF=\"https://loose.example/\" ADD_DATE=\"0\">Loose</A>\n"
    "</DL><p>\n";

inline constexpr std::string_view firefox =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\r\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\r\n"
    "<meta http-equiv=\"Content-Security-Policy\"\r\n"
    "      content=\"default-src 'self'; script-src 'none'; img-src data: *; object-src 'none'\"></meta>\r\n"
    "<TITLE>Bookmarks</TITLE>\r\n"
    "<H1>Bookmarks Menu</H1>\r\n"
    "\r\n"
    "<DL><p>\r\n"
    "    <DT><A HREF=\"https://a.example/\" ADD_DATE=\"1500000000\" LAST_MODIFIED=\"1500000001\" "
    "ICON_URI=\"https://a.example/i.ico\" ICON=\"data:image/png;base64,AAAA\" TAGS=\"one,two\">It&#39;s "
    "&quot;A&quot; &lt;b&gt;</A>\r\n"
    "    <DD>What it says\r\nof itself\r\n"
    "    <HR>    <DT><H3 ADD_DATE=\"1500000002\" UNFILED_BOOKMARKS_FOLDER=\"true\">Other</H3>\r\n"
    "    <DD>All others\r\n"
    "    <DL><p>\r\n"
    "        <DT><A HREF=\"javascript:void('%22')\">Script</A>\r\n"
    "    </DL><p>\r\n"
    "</DL>\r\n";

inline constexpr std::string_view edge =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "<TITLE>Favorites</TITLE>\n"
    "<H1>Favorites</H1>\n"
    "<DL><p>\n"
    "    <DT><H3 ADD_DATE=\"1600000000\" LAST_MODIFIED=\"1600000000\" "
    "PERSONAL_TOOLBAR_FOLDER=\"true\">Favorites "
    "bar</H3>\n"
    "    <DL><p>\n"
    "    </DL><p>\n"
    "    <DT><A HREF=\"https://e.example/\" ADD_DATE=\"1600000001\">E</A>\n"
    "</DL><p>\n";

// No list around the whole, and no dates.
inline constexpr std::string_view safari =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "\t<HTML>\n"
    "\t<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "\t<Title>Bookmarks</Title>\n"
    "\t<H1>Bookmarks</H1>\n"
    "\t<DT><H3 FOLDED>Favorites</H3>\n"
    "\t<DL><p>\n"
    "\t\t<DT><A HREF=\"https://s.example/\">S</A>\n"
    "\t</DL><p>\n"
    "\t<DT><H3 FOLDED id=\"com.example.ReadingList\">Reading List</H3>\n"
    "\t<DL><p>\n"
    "\t</DL><p>\n"
    "\t<DT><A HREF=\"https://t.example/\">T</A>\n"
    "</HTML>\n";

inline constexpr std::string_view all[] = {chrome, firefox, edge, safari};

} // namespace pages
} // namespace vandrel::test

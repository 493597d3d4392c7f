#pragma once

#include "tests/support/folder_contents.h"

#include <string>

namespace vandrel::test {

// A page with the folders Work (two sites) and Play (one), and a site outside any.
inline constexpr const char* smallPage =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks</H1>\n<DL><p>\n"
    "<DT><H3>Work</H3>\n<DL><p>\n"
    "<DT><A HREF=\"http://one.example/\" ADD_DATE=\"1037448000\">One</A>\n<DD>first\n"
    "<DT><A HREF=\"http://two.example/\">Caf\xC3\xA9</A>\n</DL><p>\n"
    "<DT><H3>Play</H3>\n<DL><p>\n<DT><A HREF=\"http://three.example/\">Three</A>\n</DL><p>\n"
    "<DT><A HREF=\"http://four.example/\">Four</A>\n</DL><p>\n";

inline const std::string workFile = "One|http://one.example/|first|11/16/2002\r\n"
                                    "Caf\xE9|http://two.example/||\r\n";
inline const std::string playFile = "Three|http://three.example/||\r\n";
inline const std::string outsideFile = "Four|http://four.example/||\r\n";

} // namespace vandrel::test

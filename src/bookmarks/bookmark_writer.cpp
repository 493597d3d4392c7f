#include "bookmarks/bookmark_writer.h"

#include "bookmarks/letters.h"

namespace vandrel {

BookmarkWriter::BookmarkWriter()
    : bytes_("<!DOCTYPE NETSCAPE-Bookmark-file-1>\r\n"
             "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\r\n"
             "<TITLE>Bookmarks</TITLE>\r\n"
             "<H1>Bookmarks</H1>\r\n"
             "<DL><p>\r\n")
{}

void BookmarkWriter::beginFolder(std::wstring_view name)
{
    bytes_ += "    <DT><H3>";
    append(name);
    bytes_ += "</H3>\r\n    <DL><p>\r\n";
}

void BookmarkWriter::addBookmark(std::wstring_view name, std::wstring_view url, std::wstring_view description,
                                 std::optional<AddDate> added)
{
    bytes_ += "        <DT><A HREF=\"";
    append(url);
    bytes_ += '"';
    if (added) bytes_ += " ADD_DATE=\"" + std::to_string(*added) + '"';
    bytes_ += '>';
    append(name);
    bytes_ += "</A>\r\n";
    if (description.empty()) return;
    bytes_ += "        <DD>";
    append(description);
    bytes_ += "\r\n";
}

void BookmarkWriter::endFolder() { bytes_ += "    </DL><p>\r\n"; }

void BookmarkWriter::end() { bytes_ += "</DL><p>\r\n"; }

void BookmarkWriter::append(std::wstring_view text)
{
    bool blankBefore = true; // at the beginning a blank would be dropped as one behind another is
    while (!text.empty()) {
        char32_t letter = takeLetter(text);
        const bool blank = letter == U' ';
        const bool dropped = blank && (blankBefore || text.empty());
        blankBefore = blank;
        if (letter == 0) letter = replacementLetter;
        switch (letter) {
        case U'&': bytes_ += "&amp;"; break;
        case U'<': bytes_ += "&lt;"; break;
        case U'>': bytes_ += "&gt;"; break;
        case U'"': bytes_ += "&quot;"; break;
        default:
            if (letter < U' ' || letter == U'\'' || dropped) appendNumber(letter);
            else appendUtf8(bytes_, letter);
        }
    }
}

void BookmarkWriter::appendNumber(char32_t letter)
{
    bytes_ += "&#" + std::to_string(static_cast<unsigned>(letter)) + ';';
}

} // namespace vandrel

#pragma once

#include "bookmarks/add_date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

struct Bookmark {
    std::wstring name;
    std::wstring url;
    std::wstring description;
    std::optional<AddDate> added;
};

// Hears what is in a page of bookmarks. Each folder that begins ends.
class BookmarkHandler {
  public:
    BookmarkHandler() = default;
    BookmarkHandler(const BookmarkHandler&) = delete;
    BookmarkHandler& operator=(const BookmarkHandler&) = delete;
    virtual ~BookmarkHandler() = default;

    virtual void folderBegins(const std::wstring& name, std::optional<AddDate> added) = 0;
    virtual void folderEnds() = 0;
    virtual void bookmark(const Bookmark& bookmark) = 0;
};

// How deep lists can be in lists. A folder that is deeper is not told: what is in it belongs to the one
// around it.
inline constexpr std::size_t deepestList = 64;

// Reads a page of bookmarks as browsers export them, in whatever state: tags that are not closed, lists that
// do not end, a page cut anywhere. See PageText for its encoding. Blanks and line ends in texts count as one
// blank, and as none at the ends; line ends and tabs in addresses do not count at all; nor does NUL. Returns
// how many bytes were looked at, each as often as it was.
std::size_t readBookmarks(std::string_view page, BookmarkHandler& handler);

} // namespace vandrel

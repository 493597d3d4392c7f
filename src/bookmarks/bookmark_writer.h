#pragma once

#include "bookmarks/add_date.h"

#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// A page of bookmarks as browsers import it, in UTF-8. Every text is read back as it was, with blanks at its
// ends and control characters, but for what no page can hold: NUL and half a pair become the replacement
// letter.
class BookmarkWriter {
  public:
    BookmarkWriter(); // begins the page

    void beginFolder(std::wstring_view name);
    void addBookmark(std::wstring_view name, std::wstring_view url, std::wstring_view description,
                     std::optional<AddDate> added);
    void endFolder();
    void end();

    // What was added since it was cleared last, so that nobody has to hold the whole page.
    std::string_view bytes() const { return bytes_; }
    void clear() { bytes_.clear(); }

  private:
    void append(std::wstring_view text);
    void appendNumber(char32_t letter);

    std::string bytes_;
};

} // namespace vandrel

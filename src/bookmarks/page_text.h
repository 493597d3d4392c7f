#pragma once

#include <string>
#include <string_view>

namespace vandrel {

enum class PageEncoding { utf8, windows1252 };

// The bytes of a page, in an encoding in which ASCII is ASCII, and that encoding. A page in UTF-16 is
// converted; any other is looked at where it is, and must outlive this.
//
// A byte order mark decides, else a META that says code page 1252 or Latin-1. Every other page is UTF-8,
// unless there are more bytes in it that are wrong there than letters that are right: what says that it is
// UTF-8 may not be.
class PageText {
  public:
    explicit PageText(std::string_view page);
    PageText(const PageText&) = delete;
    PageText& operator=(const PageText&) = delete;

    std::string_view bytes() const { return bytes_; } // without the byte order mark
    PageEncoding encoding() const { return encoding_; }

    // Takes a letter off the front of some of the bytes.
    char32_t takeLetter(std::string_view& bytes) const;

  private:
    std::string converted_;
    std::string_view bytes_;
    PageEncoding encoding_ = PageEncoding::utf8;
};

} // namespace vandrel

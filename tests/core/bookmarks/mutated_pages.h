#pragma once

#include "pages.h"
#include "tests/support/hostile_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel::test {

// A piece of a page that some rule treats specially.
inline std::string_view pagePiece(HostileText& hostile)
{
    using namespace std::literals;
    static constexpr std::string_view pieces[] = {
        "<DT>"sv,
        "<DL>"sv,
        "<DL><p>"sv,
        "</DL>"sv,
        "<H3>"sv,
        "</H3>"sv,
        "<A HREF="sv,
        "</A>"sv,
        "<DD>"sv,
        "<HR>"sv,
        "<!--"sv,
        "-->"sv,
        "<!"sv,
        "<?"sv,
        "<"sv,
        ">"sv,
        "</"sv,
        R"(")"sv,
        "'"sv,
        "="sv,
        "/"sv,
        "&"sv,
        "&amp;"sv,
        "&lt"sv,
        "&#"sv,
        "&#x"sv,
        "&#10;"sv,
        "&#32;"sv,
        ";"sv,
        "&#55357;"sv,
        "&#99999999999999999999"sv,
        "\0"sv,
        "\r"sv,
        "\n"sv,
        "\n<DT>"sv,
        " "sv,
        "\xEF\xBB\xBF"sv,
        "\xFF\xFE"sv,
        "\xFE\xFF"sv,
        "\xC3"sv,
        "\xE2\x82"sv,
        "\xED\xA0\x80"sv,
        "\x80"sv,
        "\xFF"sv,
        "<META CHARSET=windows-1252>"sv,
        "ADD_DATE="sv,
        "<H3>f</H3><DL>"sv,
        "<A HREF=x>n</A>"sv,
        "<A HREF=x>;n</A>"sv,
        R"(ICON="data:AAAAAAAAAAAAAAAA)"sv,
        "\n<DT><A HREF=\"x>n"sv,
    };
    return pieces[hostile.below(std::size(pieces))];
}

// Mostly a part of a browser's page, because short pages can be tried by the million; or all of it, or nothing.
inline std::string_view originalPage(HostileText& hostile)
{
    if (hostile.oneIn(4)) return {};
    const std::string_view page = pages::all[hostile.below(std::size(pages::all))];
    return hostile.oneIn(8) ? page : page.substr(hostile.below(page.size()), hostile.below(300));
}

// The bytes of a page and nothing behind them: behind those of a std::string is a NUL, so that a sanitizer does
// not see who reads too far.
class PageBytes {
  public:
    explicit PageBytes(std::string_view page) : bytes_(page.begin(), page.end()) {}

    std::string_view view() const { return {bytes_.data(), bytes_.size()}; }
    std::size_t size() const { return bytes_.size(); }

  private:
    std::vector<char> bytes_;
};

inline void PrintTo(const PageBytes& page, std::ostream* out)
{
    *out << testing::PrintToString(std::string(page.view()));
}

// Such a page with pieces inserted, removed, doubled, repeated or replaced by any byte; now and then as UTF-16.
inline PageBytes mutatedPage(HostileText& hostile)
{
    std::string page(originalPage(hostile));
    for (std::size_t changes = 1 + hostile.below(12); changes > 0; --changes) {
        const std::size_t at = hostile.below(page.size() + 1);
        switch (hostile.below(6)) {
        case 0: page.erase(at, hostile.below(8)); break;
        case 1: page.insert(at, page.substr(at, hostile.below(200))); break;
        case 2: page.resize(hostile.oneIn(10) ? at : page.size()); break;
        case 3:
            if (at < page.size())
                page[at] = static_cast<char>(static_cast<unsigned char>(hostile.below(256)));
            break;
        case 4: {
            const std::string_view piece = pagePiece(hostile);
            std::string many;
            for (std::size_t count = hostile.below(hostile.oneIn(100) ? 2000 : 5); count > 0; --count)
                many += piece;
            page.insert(at, many);
            break;
        }
        default: page.insert(at, pagePiece(hostile));
        }
    }
    if (!hostile.oneIn(16)) return PageBytes(page);
    std::string wide = "\xFF\xFE";
    for (const char byte : page) {
        wide += byte;
        wide += static_cast<char>(static_cast<unsigned char>(hostile.oneIn(40) ? hostile.below(256) : 0));
    }
    return PageBytes(wide);
}

} // namespace vandrel::test

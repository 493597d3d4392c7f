#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// Whose cookies are meant: the parts of an address that decide it.
struct CookieSite {
    std::wstring host; // in small letters, without the port
    std::wstring path; // begins with "/", without what follows "?" or "#"
    bool secure;       // asked over https
};

// The cookies that servers set within one chain of redirections. They live as long as the jar: one that a
// server takes back goes, but none grows old. Whatever a server sends, the jar stays small, and what it gives
// back is one line.
class CookieJar {
  public:
    static constexpr std::size_t mostCookies = 50;
    static constexpr std::size_t longestCookie = 4096; // name and value, in UTF-16 units
    static constexpr std::size_t longestLine =
        16384; // more, and servers refuse the request; what does not fit is left out

    // What stands behind "Set-Cookie:" in an answer of that site. A line that is none, or that sets a cookie
    // for others, is left out.
    void take(const CookieSite& from, std::wstring_view line);
    // What is to stand behind "Cookie:" in a request to that site; empty when there is nothing to send.
    std::wstring cookiesFor(const CookieSite& to) const;

  private:
    struct Cookie {
        std::wstring name{};
        std::wstring value{};
        std::wstring domain{};
        std::wstring path{};
        bool hostOnly = true;
        bool secure = false;
        bool takenBack = false;
    };
    static bool setDomain(Cookie& cookie, const std::wstring& host, std::wstring_view setting);
    static Cookie read(const CookieSite& from, std::wstring_view line);
    static bool goesTo(const Cookie& cookie, const CookieSite& site);

    std::vector<Cookie> cookies_; // in the order in which they were set
};

} // namespace vandrel

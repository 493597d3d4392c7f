#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// The parts of an address that decide which cookies go there.
struct CookieSite {
    std::wstring host; // lower case, without the port
    std::wstring path; // begins with "/"; no query, no fragment
    bool secure;       // https
};

// The cookies that servers set during one chain of redirections. They live as long as the jar, unless a
// server deletes them: none expires. Whatever a server sends, the jar stays small, and what it returns is a
// single line.
class CookieJar {
  public:
    static constexpr std::size_t mostCookies = 50;
    static constexpr std::size_t longestCookie = 4096; // name and value, in UTF-16 units
    static constexpr std::size_t longestLine =
        16384; // in UTF-16 units; servers refuse longer ones, so what does not fit is left out

    // Takes the value of a "Set-Cookie:" header that came from that site. Ignores it if it is invalid or for
    // another site.
    void take(const CookieSite& from, std::wstring_view line);
    // The value of the "Cookie:" header for a request to that site; empty if there is nothing to send.
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

    std::vector<Cookie> cookies_; // in the order in which they were first set
};

} // namespace vandrel

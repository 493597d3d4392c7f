#include "platform/system/cookie_jar.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vandrel {
namespace {

constexpr std::wstring_view digits = L"0123456789";

std::wstring_view trimmed(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

std::wstring inSmallLetters(std::wstring_view text)
{
    std::wstring small(text);
    for (wchar_t& letter : small)
        if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter - L'A' + L'a');
    return small;
}

// A line end in a value would start another header of the request.
bool hasControlLetter(std::wstring_view text)
{
    return std::ranges::any_of(text, [](wchar_t letter) { return letter < L' ' || letter == 0x7F; });
}

// The texts before and after the first `separator`.
std::pair<std::wstring_view, std::wstring_view> split(std::wstring_view text, wchar_t separator)
{
    const std::size_t at = text.find(separator);
    if (at == std::wstring_view::npos) return {text, {}};
    return {text.substr(0, at), text.substr(at + 1)};
}

bool isNumericHost(std::wstring_view host)
{
    return host.find(L':') != std::wstring_view::npos ||
           host.find_first_not_of(L"0123456789.") == std::wstring_view::npos;
}

// A domain of one word, such as "com", would include everybody.
bool canHaveHostsBelow(std::wstring_view domain)
{
    return domain.find(L'.') != std::wstring_view::npos && !isNumericHost(domain);
}

bool endsWithDomain(std::wstring_view host, std::wstring_view domain)
{
    return host.size() > domain.size() && host.ends_with(domain) &&
           host[host.size() - domain.size() - 1] == L'.';
}

bool coversPath(std::wstring_view cookie, std::wstring_view path)
{
    if (!path.starts_with(cookie)) return false;
    return path.size() == cookie.size() || cookie.back() == L'/' || path[cookie.size()] == L'/';
}

std::wstring folderOf(std::wstring_view path)
{
    const std::size_t last = path.rfind(L'/');
    return last == 0 || last == std::wstring_view::npos ? L"/" : std::wstring(path.substr(0, last));
}

bool isNotPositive(std::wstring_view seconds)
{
    if (seconds.starts_with(L'-')) return seconds.size() > 1;
    return !seconds.empty() && seconds.find_first_not_of(L'0') == std::wstring_view::npos;
}

// Whether the year is 19xx, which is how servers delete a cookie. Later dates are ignored: no cookie here
// lives long enough to expire.
bool isLongPast(std::wstring_view date)
{
    for (std::size_t at = date.find(L"19"); at != std::wstring_view::npos; at = date.find(L"19", at + 1)) {
        const std::size_t end = std::min(date.find_first_not_of(digits, at), date.size());
        const bool begins = at == 0 || digits.find(date[at - 1]) == std::wstring_view::npos;
        if (begins && end - at == 4) return true;
    }
    return false;
}

} // namespace

// False if the cookie is not for the host that sent it.
bool CookieJar::setDomain(Cookie& cookie, const std::wstring& host, std::wstring_view setting)
{
    const std::wstring domain = inSmallLetters(setting.starts_with(L'.') ? setting.substr(1) : setting);
    if (domain.empty() || domain == host) {
        cookie.hostOnly = domain.empty() || !canHaveHostsBelow(host);
        return true;
    }
    cookie.domain = domain;
    cookie.hostOnly = false;
    return endsWithDomain(host, domain) && canHaveHostsBelow(domain) && !isNumericHost(host);
}

// If the line is invalid, the cookie has no name.
CookieJar::Cookie CookieJar::read(const CookieSite& from, std::wstring_view line)
{
    auto [pair, attributes] = split(line, L';');
    if (pair.find(L'=') == std::wstring_view::npos) return {};
    const auto [name, value] = split(pair, L'=');
    Cookie cookie{std::wstring(trimmed(name)), std::wstring(trimmed(value)), from.host, folderOf(from.path)};
    std::optional<bool> endsByAge; // takes precedence over the date, in any order
    bool endsByDate = false;
    while (!attributes.empty()) {
        const auto [attribute, rest] = split(attributes, L';');
        attributes = rest;
        const auto [key, text] = split(attribute, L'=');
        const std::wstring kind = inSmallLetters(trimmed(key));
        const std::wstring_view setting = trimmed(text);
        if (kind == L"domain" && !setDomain(cookie, from.host, setting)) return {};
        if (kind == L"path")
            cookie.path = setting.starts_with(L'/') ? std::wstring(setting) : folderOf(from.path);
        if (kind == L"secure") cookie.secure = true;
        if (kind == L"max-age") endsByAge = isNotPositive(setting);
        if (kind == L"expires") endsByDate = isLongPast(setting);
    }
    cookie.takenBack = endsByAge.value_or(endsByDate);
    return cookie;
}

void CookieJar::take(const CookieSite& from, std::wstring_view line)
{
    Cookie cookie = read(from, line);
    if (cookie.name.empty() || cookie.name.size() + cookie.value.size() > longestCookie ||
        hasControlLetter(cookie.name) || hasControlLetter(cookie.value) || (cookie.secure && !from.secure)) {
        return;
    }
    const auto same = [&](const Cookie& other) {
        return other.name == cookie.name && other.domain == cookie.domain && other.path == cookie.path;
    };
    const auto earlier = std::ranges::find_if(cookies_, same);
    if (cookie.takenBack) {
        if (earlier != cookies_.end()) cookies_.erase(earlier);
    } else if (earlier != cookies_.end()) {
        *earlier = std::move(cookie);
    } else if (cookies_.size() < mostCookies) {
        cookies_.push_back(std::move(cookie));
    }
}

bool CookieJar::goesTo(const Cookie& cookie, const CookieSite& site)
{
    const bool host = site.host == cookie.domain ||
                      (!cookie.hostOnly && endsWithDomain(site.host, cookie.domain));
    return host && coversPath(cookie.path, site.path) && (site.secure || !cookie.secure);
}

std::wstring CookieJar::cookiesFor(const CookieSite& to) const
{
    std::vector<const Cookie*> sent;
    for (const Cookie& cookie : cookies_)
        if (goesTo(cookie, to)) sent.push_back(&cookie);
    // Servers that use a name twice expect the cookie with the longer path first.
    std::ranges::stable_sort(sent, std::ranges::greater{},
                             [](const Cookie* cookie) { return cookie->path.size(); });
    std::wstring line;
    for (const Cookie* const cookie : sent) {
        const std::wstring part = (line.empty() ? L"" : L"; ") + cookie->name + L"=" + cookie->value;
        if (line.size() + part.size() <= longestLine) line += part;
    }
    return line;
}

} // namespace vandrel

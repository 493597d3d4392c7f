#include "platform/system/web_request.h"

#include "platform/base/runtime_error.h"
#include "platform/system/cookie_jar.h"
#include "platform/system/transfer_job.h"

#include <wininet.h>

#include <algorithm>
#include <cwchar>
#include <utility>

namespace vandrel {
namespace {

using InternetHandle = UniqueHandle<HINTERNET, InternetCloseHandle, nullHandle<HINTERNET>>;

constexpr std::size_t longestBody = 1U << 20; // bytes

[[noreturn]] void fail(DWORD reason)
{
    namespace e = error_number;
    switch (reason) {
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY: throw RuntimeError(e::outOfMemory);
    case ERROR_INTERNET_TIMEOUT: throw RuntimeError(e::requestTimedOut);
    case ERROR_INVALID_PARAMETER:
    case ERROR_INTERNET_INVALID_URL: throw RuntimeError(e::malformedUrl);
    case ERROR_INTERNET_UNRECOGNIZED_SCHEME: throw RuntimeError(e::unsupportedProtocol);
    case ERROR_INTERNET_NAME_NOT_RESOLVED:
    case ERROR_INTERNET_CANNOT_CONNECT: throw RuntimeError(e::cannotConnect);
    default: throw RuntimeError(e::requestFailed);
    }
}

// ---- states

// Reports that each host in turn is resolved, then connected to, once each. The system does neither for a
// connection that it reuses; listeners are told both all the same.
class HostStates {
  public:
    explicit HostStates(TransferJob& job) : job_(job) {}

    // Reported before the system does: until the other host is looked up, nothing is known of it.
    void beginOtherHost() noexcept
    {
        job_.tell(TransferState::resolvingHost);
        resolvingTold_ = true;
        connectingTold_ = false;
    }
    void note(bool connects) noexcept
    {
        if (!std::exchange(resolvingTold_, true)) job_.tell(TransferState::resolvingHost);
        if (connects && !std::exchange(connectingTold_, true)) job_.tell(TransferState::connecting);
    }

  private:
    TransferJob& job_;
    bool resolvingTold_ = false;
    bool connectingTold_ = false;
};
static_assert(TransferJob::mostStates >= 2 * static_cast<std::size_t>(mostRedirections + 1),
              "each hop may lead to another host");

// Called by the system, so nothing may be thrown.
void CALLBACK statusChanged(HINTERNET, DWORD_PTR context, DWORD status, void*, DWORD) noexcept
{
    const bool connects = status == INTERNET_STATUS_CONNECTING_TO_SERVER ||
                          status == INTERNET_STATUS_SENDING_REQUEST;
    if (context == 0 || (!connects && status != INTERNET_STATUS_RESOLVING_NAME)) return;
    reinterpret_cast<HostStates*>(context)->note(connects);
}

// ---- headers

std::optional<DWORD> headerNumber(HINTERNET request, DWORD header)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    const bool there = HttpQueryInfoW(request, header | HTTP_QUERY_FLAG_NUMBER, &number, &size, nullptr) != 0;
    return there ? std::optional(number) : std::nullopt;
}

// The header with that name; `index`, from 0, chooses among several.
std::optional<std::wstring> headerText(HINTERNET request, DWORD header, DWORD index = 0)
{
    std::wstring text(1024, L'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
        DWORD at = index;
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        if (HttpQueryInfoW(request, header, text.data(), &size, &at)) {
            text.resize(std::wcslen(text.c_str()));
            return text;
        }
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
        text.resize(size / sizeof(wchar_t) + 1);
    }
    return std::nullopt;
}

bool isFromProxy(HINTERNET request)
{
    DWORD flags = 0;
    DWORD size = sizeof flags;
    return InternetQueryOptionW(request, INTERNET_OPTION_REQUEST_FLAGS, &flags, &size) != 0 &&
           (flags & INTERNET_REQFLAG_VIA_PROXY) != 0;
}

// ---- addresses

// No value for anything but http and https.
std::optional<CookieSite> siteOf(const std::wstring& address)
{
    URL_COMPONENTSW parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = 1; // 1 asks for the part
    if (!InternetCrackUrlW(address.c_str(), static_cast<DWORD>(address.size()), 0, &parts))
        return std::nullopt;
    const bool secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
    if ((!secure && parts.nScheme != INTERNET_SCHEME_HTTP) || parts.dwHostNameLength == 0)
        return std::nullopt;
    CookieSite site{{parts.lpszHostName, parts.dwHostNameLength}, L"/", secure};
    CharLowerBuffW(site.host.data(), static_cast<DWORD>(site.host.size()));
    if (parts.dwUrlPathLength > 0) site.path.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
    return site;
}

// The complete address that the answer redirects to.
std::optional<std::wstring> redirection(HINTERNET request, const std::wstring& address)
{
    const DWORD status = headerNumber(request, HTTP_QUERY_STATUS_CODE).value_or(0);
    const bool redirects = status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
    if (!redirects) return std::nullopt;
    const auto location = headerText(request, HTTP_QUERY_LOCATION);
    if (!location) return std::nullopt;
    std::array<wchar_t, INTERNET_MAX_URL_LENGTH> whole{};
    auto length = static_cast<DWORD>(whole.size());
    if (!InternetCombineUrlW(address.c_str(), location->c_str(), whole.data(), &length, 0))
        return std::nullopt;
    const std::wstring target(whole.data(), length);
    const bool isWeb = target.starts_with(L"http://") || target.starts_with(L"https://");
    return isWeb ? std::optional(target) : std::nullopt; // a server must not redirect us to local files
}

// ---- one request

// A server that asks for a name and a password is not given the user's, because an address may be anybody's. A
// name and a password in the address are meant for its host, and a proxy is the user's own choice.
enum class LogOn { never, allowed };

LogOn logOnFor(const std::wstring& address)
{
    URL_COMPONENTSW parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwUserNameLength = 1; // it is wanted
    const bool named = InternetCrackUrlW(address.c_str(), static_cast<DWORD>(address.size()), 0, &parts) &&
                       parts.dwUserNameLength > 0;
    return named ? LogOn::allowed : LogOn::never;
}

InternetHandle askOnce(HINTERNET session, const std::wstring& address, const std::wstring& cookies,
                       HostStates& states, LogOn logOn)
{
    // Redirections are followed here because not every system ends circular ones (Wine 8.0 does not), and
    // cookies are kept here because the system's are the user's.
    constexpr DWORD always = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_COOKIES |
                             INTERNET_FLAG_NO_UI | INTERNET_FLAG_PRAGMA_NOCACHE |
                             INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_PASSIVE;
    const DWORD flags = logOn == LogOn::never ? always | INTERNET_FLAG_NO_AUTH : always;
    const std::wstring headers = cookies.empty() ? L"" : L"Cookie: " + cookies + L"\r\n";
    InternetHandle request(
        InternetOpenUrlW(session, address.c_str(), headers.empty() ? nullptr : headers.c_str(),
                         static_cast<DWORD>(headers.size()), flags, reinterpret_cast<DWORD_PTR>(&states)));
    if (!request) fail(GetLastError());
    return request;
}

InternetHandle ask(HINTERNET session, const std::wstring& address, const std::wstring& cookies,
                   HostStates& states)
{
    InternetHandle request = askOnce(session, address, cookies, states, logOnFor(address));
    if (headerNumber(request.get(), HTTP_QUERY_STATUS_CODE) != DWORD{HTTP_STATUS_PROXY_AUTH_REQ} ||
        !isFromProxy(request.get())) {
        return request;
    }
    request.reset();
    return askOnce(session, address, cookies, states, LogOn::allowed);
}

void takeCookies(HINTERNET request, const CookieSite& site, CookieJar& cookies)
{
    constexpr DWORD mostLines = 2 * CookieJar::mostCookies;
    for (DWORD i = 0; i < mostLines; ++i) {
        const auto line = headerText(request, HTTP_QUERY_SET_COOKIE, i);
        if (!line) return;
        cookies.take(site, *line);
    }
}

std::string readBody(HINTERNET request)
{
    const auto announced = headerNumber(request, HTTP_QUERY_CONTENT_LENGTH);
    std::string body;
    std::array<char, 16384> part{};
    DWORD got = 0;
    do {
        if (!InternetReadFile(request, part.data(), static_cast<DWORD>(part.size()), &got))
            fail(GetLastError());
        body.append(part.data(), got);
    } while (got > 0 && body.size() < longestBody);
    const bool cutOff = announced && body.size() < std::min<std::size_t>(*announced, longestBody);
    if (cutOff) fail(ERROR_INTERNET_CONNECTION_ABORTED);
    body.resize(std::min(body.size(), longestBody));
    return body;
}

} // namespace

void* openSession() noexcept
{
    const HINTERNET session = InternetOpenW(L"Vandrel", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    InternetSetStatusCallbackW(session, statusChanged);
    return session;
}

std::string openAddress(void* session, TransferJob& job)
{
    const bool wantsText = job.wanted == TransferBody::text;
    HostStates states(job);
    CookieJar cookies;
    std::wstring address = job.url;
    std::optional<CookieSite> site = siteOf(address);
    for (int hop = 0;; ++hop) {
        const InternetHandle request = ask(session, address,
                                           site ? cookies.cookiesFor(*site) : std::wstring{}, states);
        if (site) takeCookies(request.get(), *site, cookies);
        const auto target = redirection(request.get(), address);
        if (!target) return wantsText ? readBody(request.get()) : std::string{};
        if (job.isGivenUp()) fail(ERROR_HTTP_REDIRECT_FAILED);
        if (hop == mostRedirections) {
            // The host has answered, which may be all that was asked.
            if (wantsText) fail(ERROR_HTTP_REDIRECT_FAILED);
            return {};
        }
        address = *target;
        const std::optional<CookieSite> next = siteOf(address);
        if (next && (!site || next->host != site->host)) states.beginOtherHost();
        site = next;
    }
}

} // namespace vandrel

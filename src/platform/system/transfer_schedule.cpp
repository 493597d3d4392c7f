#include "platform/system/transfer_schedule.h"

#include <algorithm>
#include <utility>

namespace vandrel {

std::wstring hostOf(std::wstring_view address)
{
    const std::size_t scheme = address.find(L"://");
    if (scheme == std::wstring_view::npos) return {};
    std::wstring_view host = address.substr(scheme + 3);
    host = host.substr(0, host.find_first_of(L"/\\?#"));
    if (const std::size_t user = host.rfind(L'@'); user != std::wstring_view::npos)
        host.remove_prefix(user + 1);
    if (!host.starts_with(L'[')) host = host.substr(0, host.find(L':'));
    else host = host.substr(0, host.find(L']'));
    while (host.ends_with(L'.')) host.remove_suffix(1); // the root of all names
    std::wstring lower;
    lower.reserve(host.size());
    for (const wchar_t letter : host) {
        // The system writes such a name in other letters before it looks it up.
        if (letter <= L' ' || letter > L'~' || letter == L'%') return {};
        lower += letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
    }
    return lower;
}

void TransferSchedule::expect(Number number, std::wstring address)
{
    std::wstring host = hostOf(address);
    waiting_.push_back({number, std::move(address), std::move(host)});
}

void TransferSchedule::ask(Number number, std::wstring address)
{
    std::wstring host = hostOf(address);
    forgetBelow(number + 1);
    waiting_.push_front({number, std::move(address), std::move(host)});
}

void TransferSchedule::forgetBelow(Number number)
{
    while (!waiting_.empty() && waiting_.front().number < number) waiting_.pop_front();
}

bool TransferSchedule::isBeingAsked(const std::wstring& host) const
{
    for (std::size_t lane = 0; lane < mostLanes; ++lane)
        if (busy_[lane] && hosts_[lane] == host) return true;
    return false;
}

std::optional<std::size_t> TransferSchedule::laneFor(const std::wstring& host) const
{
    std::optional<std::size_t> found;
    if (static_cast<std::size_t>(std::ranges::count(busy_, true)) >= lanes_) return found;
    for (std::size_t lane = 0; lane < mostLanes; ++lane) {
        if (busy_[lane]) continue;
        if (used_[lane] && hosts_[lane] == host) return lane;
        if (!found || (used_[lane] && !used_[*found])) found = lane;
    }
    return found;
}

std::optional<TransferSchedule::Start> TransferSchedule::next() const
{
    // Without a free lane there is none for any host.
    if (waiting_.empty() || !laneFor(waiting_.front().host)) return std::nullopt;
    for (const Waiting& waiting : waiting_) {
        if (isBeingAsked(waiting.host)) continue;
        return Start{*laneFor(waiting.host), waiting.number, waiting.address};
    }
    return std::nullopt;
}

void TransferSchedule::begun(const Start& start)
{
    const auto found = std::ranges::find(waiting_, start.number, &Waiting::number);
    busy_[start.lane] = true;
    used_[start.lane] = true;
    hosts_[start.lane].swap(found->host);
    waiting_.erase(found);
}

bool TransferSchedule::anyRunning() const { return std::ranges::count(busy_, true) > 0; }

} // namespace vandrel

#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// The host in an address, in lower case and without its port. Addresses in which it cannot be told for
// certain have an empty one in common.
std::wstring hostOf(std::wstring_view address);

// Which of several addresses may be opened now: the first of them whose host is not being asked already, as
// long as a lane is free. Numbers are the addresses' places in the caller's list.
class TransferSchedule {
  public:
    using Number = std::size_t;
    static constexpr std::size_t mostLanes = 8;

    struct Start {
        std::size_t lane; // below mostLanes
        Number number;
        const std::wstring& address; // until the next change
    };

    // 1 to mostLanes; fewer end no transfer that has begun.
    void setLanes(std::size_t count) { lanes_ = count; }

    // Adds an address after the others; numbers ascend.
    void expect(Number number, std::wstring address);
    // Puts an address before the others. Those with lower numbers are not opened any more, nor is the one
    // that was expected under its own.
    void ask(Number number, std::wstring address);
    // The addresses with these numbers are not opened, unless they have begun.
    void forgetBelow(Number number);
    void forgetAll() { waiting_.clear(); }

    // Prefers a lane that has asked the host before, then one that has been used at all.
    std::optional<Start> next() const;
    // It has begun; its address is not needed any more.
    void begun(const Start& start);
    void ended(std::size_t lane) { busy_[lane] = false; }
    bool anyRunning() const;

  private:
    struct Waiting {
        Number number;
        std::wstring address;
        std::wstring host;
    };
    bool isBeingAsked(const std::wstring& host) const;
    std::optional<std::size_t> laneFor(const std::wstring& host) const;

    std::size_t lanes_ = mostLanes;
    std::deque<Waiting> waiting_;
    std::array<bool, mostLanes> busy_{};
    std::array<bool, mostLanes> used_{};
    std::array<std::wstring, mostLanes> hosts_; // the last one of each lane
};

} // namespace vandrel

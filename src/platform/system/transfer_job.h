#pragma once

#include "platform/base/handle.h"
#include "platform/base/slim_lock.h"
#include "platform/system/transfer.h"

#include <array>
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace vandrel {

using EventHandle = UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>>;
// An auto-reset event. Throws RuntimeError (7) if the system has none left.
EventHandle makeEvent();
// One that several jobs set.
using SharedEvent = std::shared_ptr<const EventHandle>;

// One address, shared by the thread that opens it and the one that waits for it. After construction nothing
// here allocates or throws, so a callback of the system can report a state, and a thread that has run out of
// memory can say so.
class TransferJob {
  public:
    static constexpr std::size_t mostStates = 64;

    // `news` is set by each state and at the end.
    TransferJob(std::wstring address, TransferBody body, SharedEvent news)
        : url(std::move(address)), wanted(body), news_(std::move(news))
    {}

    const std::wstring url;
    const TransferBody wanted;

    // For the thread that opens it. States beyond mostStates are dropped, as is whatever comes once it has
    // been given up.
    void tell(TransferState state) noexcept;
    void finish(int error, std::string body) noexcept; // `error` is 0 for none
    bool isGivenUp() const noexcept { return givenUp_; }

    // For the thread that waits.
    std::optional<TransferState> takeState() noexcept;
    bool isFinished() noexcept; // error() and body() may be read only once it is true
    int error() const noexcept { return error_; }
    const std::string& body() const noexcept { return body_; }
    void giveUp() noexcept; // no effect once it is finished

  private:
    const SharedEvent news_;
    std::atomic<bool> givenUp_ = false;

    SlimLock guard_; // guards all members below
    std::array<TransferState, mostStates> states_{};
    std::size_t told_ = 0;
    std::size_t taken_ = 0;
    bool finished_ = false;
    int error_ = 0;
    std::string body_;
};

} // namespace vandrel

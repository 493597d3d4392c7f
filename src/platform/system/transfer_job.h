#pragma once

#include "platform/base/handle.h"
#include "platform/base/slim_lock.h"
#include "platform/system/transfer.h"

#include <array>
#include <atomic>
#include <optional>
#include <string>

namespace vandrel {

using EventHandle = UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>>;
// One that resets itself. Throws RuntimeError (7) when the system has none left.
EventHandle makeEvent();

// One address, shared by the thread that opens it and the one that waits for it. Once it is made nothing of
// it needs memory or throws: a callback of the system can tell a state, and a thread that has run out of
// memory can say so.
class TransferJob {
  public:
    static constexpr std::size_t mostStates = 64;

    // Throws RuntimeError (7) when the system has no event left.
    TransferJob(std::wstring address, TransferBody body) : url(std::move(address)), wanted(body) {}

    const std::wstring url;
    const TransferBody wanted;

    // For the thread that opens it. A state beyond the most is left out.
    void tell(TransferState state) noexcept;
    void finish(int error, std::string body) noexcept; // 0 when there is none
    bool isGivenUp() const noexcept { return givenUp_; }

    // For the one that waits. `news` is set by each state and at the end.
    HANDLE news() const noexcept { return news_.get(); }
    std::optional<TransferState> takeState() noexcept;
    bool isFinished() noexcept; // only then are these for the reader
    int error() const noexcept { return error_; }
    const std::string& body() const noexcept { return body_; }
    void giveUp() noexcept { givenUp_ = true; }

  private:
    const EventHandle news_ = makeEvent();
    std::atomic<bool> givenUp_ = false;

    SlimLock guard_; // of what follows
    std::array<TransferState, mostStates> states_{};
    std::size_t told_ = 0;
    std::size_t taken_ = 0;
    bool finished_ = false;
    int error_ = 0;
    std::string body_;
};

} // namespace vandrel

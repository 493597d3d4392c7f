#include "platform/system/transfer_job.h"

#include "platform/base/runtime_error.h"

#include <mutex>
#include <utility>

namespace vandrel {

EventHandle makeEvent()
{
    EventHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    if (!event) throw RuntimeError(error_number::outOfMemory);
    return event;
}

void TransferJob::tell(TransferState state) noexcept
{
    {
        const std::lock_guard lock(guard_);
        if (givenUp_ || told_ == mostStates) return;
        states_[told_++] = state;
    }
    SetEvent(news_->get());
}

void TransferJob::finish(int error, std::string body) noexcept
{
    {
        const std::lock_guard lock(guard_);
        if (givenUp_) return;
        error_ = error;
        body_ = std::move(body);
        finished_ = true;
    }
    SetEvent(news_->get());
}

void TransferJob::giveUp() noexcept
{
    const std::lock_guard lock(guard_);
    if (!finished_) givenUp_ = true;
}

std::optional<TransferState> TransferJob::takeState() noexcept
{
    const std::lock_guard lock(guard_);
    return taken_ == told_ ? std::nullopt : std::optional(states_[taken_++]);
}

bool TransferJob::isFinished() noexcept
{
    const std::lock_guard lock(guard_);
    return finished_;
}

} // namespace vandrel

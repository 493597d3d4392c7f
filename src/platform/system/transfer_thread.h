#pragma once

#include "platform/base/slim_lock.h"
#include "platform/system/transfer.h"
#include "platform/system/transfer_job.h"

#include <atomic>
#include <memory>

namespace vandrel {

// The thread that makes the calls, which wait. One that does not come back is left to itself: it ends when
// its call does, or with the program.
class TransferThread {
  public:
    // Throws RuntimeError (7) when the system has no thread left.
    static std::shared_ptr<TransferThread> start(TransferWork work);
    explicit TransferThread(TransferWork work) : work_(work) {}

    // Every job that is taken is finished, whatever the work throws.
    void take(std::shared_ptr<TransferJob> job) noexcept;
    // What it does is not waited for any more.
    void abandon() noexcept;

  private:
    void takeJobs() noexcept;
    void carryOut(TransferJob& job) noexcept;

    const TransferWork work_;
    const EventHandle wake_ = makeEvent();
    std::atomic<void*> session_ = nullptr; // a HINTERNET
    SlimLock guard_;                       // of what follows
    std::shared_ptr<TransferJob> next_;
    bool abandoned_ = false;
};

} // namespace vandrel

#pragma once

#include "platform/base/slim_lock.h"
#include "platform/system/transfer.h"
#include "platform/system/transfer_job.h"

#include <atomic>
#include <memory>

namespace vandrel {

// The thread that makes the blocking calls. If a call hangs, the thread is abandoned: it ends when the call
// does, or with the program.
class TransferThread {
  public:
    // Throws RuntimeError (7) if the system has no thread left.
    static std::shared_ptr<TransferThread> start(TransferWork work);
    explicit TransferThread(TransferWork work) : work_(work) {}

    // Every job that is carried out is finished, whatever the work throws.
    void take(std::shared_ptr<TransferJob> job) noexcept;
    // Nobody waits for its work any more.
    void abandon() noexcept;

  private:
    void takeJobs() noexcept;
    void carryOut(TransferJob& job) noexcept;

    const TransferWork work_;
    const EventHandle wake_ = makeEvent();
    std::atomic<void*> session_ = nullptr; // a HINTERNET
    SlimLock guard_;                       // guards all members below
    std::shared_ptr<TransferJob> next_;
    bool abandoned_ = false;
};

} // namespace vandrel

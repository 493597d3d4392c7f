#include "platform/system/transfer_thread.h"

#include "platform/base/runtime_error.h"
#include "platform/system/web_request.h"

#include <wininet.h>

#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace vandrel {

std::shared_ptr<TransferThread> TransferThread::start(TransferWork work)
{
    auto made = std::make_shared<TransferThread>(work);
    try {
        std::thread([made]() noexcept { made->takeJobs(); }).detach();
    } catch (const std::system_error&) {
        throw RuntimeError(error_number::outOfMemory);
    }
    return made;
}

void TransferThread::take(std::shared_ptr<TransferJob> job) noexcept
{
    {
        const std::lock_guard lock(guard_);
        next_ = std::move(job);
    }
    SetEvent(wake_.get());
}

void TransferThread::abandon() noexcept
{
    {
        const std::lock_guard lock(guard_);
        abandoned_ = true;
    }
    SetEvent(wake_.get());
    // On Windows this terminates a call that hangs.
    if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
}

void TransferThread::takeJobs() noexcept
{
    session_ = openSession();
    while (WaitForSingleObject(wake_.get(), INFINITE) == WAIT_OBJECT_0) {
        std::shared_ptr<TransferJob> job;
        {
            const std::lock_guard lock(guard_);
            if (abandoned_) break;
            job = std::exchange(next_, nullptr);
        }
        if (job) carryOut(*job);
    }
    if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
}

// An exception that left the thread would end the program, so each becomes the error of the job.
void TransferThread::carryOut(TransferJob& job) noexcept
{
    try {
        job.finish(0, work_(session_, job));
    } catch (const RuntimeError& error) {
        job.finish(error.number(), {});
    } catch (const std::bad_alloc&) {
        job.finish(error_number::outOfMemory, {});
    } catch (...) {
        job.finish(error_number::requestFailed, {});
    }
}

} // namespace vandrel

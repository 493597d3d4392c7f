#include "platform/system/internet_transfer.h"

#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/system/transfer_job.h"
#include "platform/system/transfer_thread.h"
#include "platform/system/web_request.h"
#include "platform/text/ansi_text.h"
#include "platform/windows/message_loop.h"

namespace vandrel {

InternetTransfer::InternetTransfer() : InternetTransfer(openAddress) {}

InternetTransfer::InternetTransfer(Work work) : work_(work) {}

InternetTransfer::~InternetTransfer()
{
    if (thread_) thread_->abandon();
}

std::wstring InternetTransfer::OpenURL(const std::wstring& url, Body body)
{
    if (executing_) throw RuntimeError(error_number::stillExecuting);
    if (quitting_) throw RuntimeError(error_number::requestFailed);
    executing_ = true;
    const ScopeExit done([this] { executing_ = false; });
    const auto job = std::make_shared<TransferJob>(url, body);
    if (!thread_) thread_ = TransferThread::start(work_);
    bool answered = false;
    const ScopeExit leaveUnanswered([&] {
        if (answered) return;
        job->giveUp();
        thread_->abandon();
        thread_.reset();
    });
    thread_->take(job);
    wait(*job);
    answered = true;
    if (job->error() != 0) throw RuntimeError(job->error());
    return decodeAnsi(job->body());
}

void InternetTransfer::wait(TransferJob& job)
{
    const ULONGLONG deadline = GetTickCount64() + timeout_;
    while (true) {
        // Asked before the states are taken, so that none reported before the end is missed.
        const bool finished = job.isFinished();
        tellStates(job);
        if (finished) return;
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) throw RuntimeError(error_number::requestTimedOut);
        const HANDLE news = job.news();
        const DWORD reason = MsgWaitForMultipleObjectsEx(1, &news, static_cast<DWORD>(deadline - now),
                                                         QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (reason == WAIT_FAILED) throw RuntimeError(error_number::requestFailed);
        if (reason == WAIT_OBJECT_0 + 1 && !MessageLoop::current().dispatchPending()) {
            quitting_ = true;
            throw RuntimeError(error_number::requestFailed);
        }
    }
}

void InternetTransfer::tellStates(TransferJob& job) const
{
    while (const auto state = job.takeState()) {
        if (StateChanged) StateChanged(static_cast<short>(*state));
    }
}

} // namespace vandrel

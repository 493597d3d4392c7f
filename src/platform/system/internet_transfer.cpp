#include "platform/system/internet_transfer.h"

#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/base/tick_clock.h"
#include "platform/system/transfer_job.h"
#include "platform/system/web_request.h"
#include "platform/text/ansi_text.h"
#include "platform/windows/message_loop.h"

#include <algorithm>

namespace vandrel {

InternetTransfer::InternetTransfer() : InternetTransfer(openAddress) {}

std::wstring InternetTransfer::open(Number number, const std::wstring& url, Body body)
{
    if (executing_) throw RuntimeError(error_number::stillExecuting);
    if (quitting_) throw RuntimeError(error_number::requestFailed);
    executing_ = true;
    const ScopeExit done([&] {
        lanes_.forget(number);
        executing_ = false;
    });
    const auto job = lanes_.ask(number, url, body);
    wait(*job);
    if (!job->isFinished()) throw RuntimeError(error_number::requestTimedOut);
    if (job->error() != 0) throw RuntimeError(job->error());
    return decodeAnsi(job->body());
}

void InternetTransfer::wait(TransferJob& job)
{
    // Many answers may be there already, and the user should not have to wait for the last of them. First, so
    // that what came of the address before is seen before another is opened.
    runMessagesIfDue();
    while (true) {
        lanes_.goOn(tickClock().now());
        // Asked before the states are taken, so that none reported before the end is missed.
        const bool ended = job.isFinished() || job.isGivenUp();
        tellStates(job);
        if (ended) return;
        runMessagesIfDue();
        waitForNews();
    }
}

void InternetTransfer::waitForNews()
{
    const ULONGLONG now = tickClock().now();
    const ULONGLONG until = std::min(lanes_.deadline(), pause_.next());
    const HANDLE news = lanes_.news();
    const DWORD reason = MsgWaitForMultipleObjectsEx(1, &news,
                                                     until > now ? static_cast<DWORD>(until - now) : 0,
                                                     QS_ALLINPUT & ~QS_PAINT, MWMO_INPUTAVAILABLE);
    if (reason == WAIT_FAILED) throw RuntimeError(error_number::requestFailed);
    if (reason != WAIT_OBJECT_0 + 1) return;
    if (HIWORD(GetQueueStatus(QS_INPUT)) != 0) runMessages();
    else if (!MessageLoop::current().dispatchAllButPainting()) quit();
}

void InternetTransfer::runMessagesIfDue()
{
    if (pause_.due()) pause_.take([this] { runMessages(); });
}

void InternetTransfer::runMessages()
{
    if (!MessageLoop::current().dispatchPending()) quit();
}

void InternetTransfer::quit()
{
    quitting_ = true;
    throw RuntimeError(error_number::requestFailed);
}

void InternetTransfer::tellStates(TransferJob& job) const
{
    while (const auto state = job.takeState()) {
        if (StateChanged) StateChanged(static_cast<short>(*state));
    }
}

} // namespace vandrel

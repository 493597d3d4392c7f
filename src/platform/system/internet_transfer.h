#pragma once

#include "platform/system/transfer.h"

#include <functional>
#include <memory>
#include <string>

namespace vandrel {

class TransferThread;

// Opens addresses over the Internet, one at a time. The transfer runs on a thread of its own; here it looks
// synchronous: OpenURL comes back with the answer, and dispatches messages while it waits.
class InternetTransfer {
  public:
    using Body = TransferBody;
    using Work = TransferWork;
    // What StateChanged tells.
    static constexpr auto resolvingHost = static_cast<short>(TransferState::resolvingHost);
    static constexpr auto connecting = static_cast<short>(TransferState::connecting);

    InternetTransfer(); // with openAddress, see web_request.h
    explicit InternetTransfer(Work work);
    InternetTransfer(const InternetTransfer&) = delete;
    InternetTransfer& operator=(const InternetTransfer&) = delete;
    ~InternetTransfer();

    std::function<void(short state)> StateChanged;

    // How long an answer may take, in seconds.
    static constexpr unsigned usualSeconds = 30;
    void setRequestTimeout(unsigned milliseconds) { timeout_ = milliseconds; }

    // The body as text in the ANSI code page, at most its first megabyte, whatever the status of the answer.
    // Throws RuntimeError: 35761 when the time is up, 35764 while another address is being opened, 35752 for
    // what is no address, 35753 for a protocol other than http, https and ftp, 35754 when no connection came
    // about, 7 when the other thread has no memory, 35756 for any other failure and when the program is to
    // end.
    std::wstring OpenURL(const std::wstring& url, Body body = Body::text);
    bool StillExecuting() const { return executing_; }
    // The program is to end: what waited for an answer must not touch its windows any more.
    bool quitting() const { return quitting_; }

  private:
    void wait(TransferJob& job);
    void tellStates(TransferJob& job) const;

    Work work_;
    std::shared_ptr<TransferThread> thread_; // goes on without us when it hangs
    unsigned timeout_ = usualSeconds * 1000;
    bool executing_ = false;
    bool quitting_ = false;
};

} // namespace vandrel

#pragma once

#include "platform/system/transfer.h"

#include <functional>
#include <memory>
#include <string>

namespace vandrel {

class TransferThread;

// Opens addresses over the Internet, one at a time. OpenURL is synchronous: while another thread makes the
// transfer, it dispatches messages until it can return the answer.
class InternetTransfer {
  public:
    using Body = TransferBody;
    using Work = TransferWork;
    // The states that StateChanged reports.
    // Contract: a state is a 16-bit number.
    static constexpr auto resolvingHost = static_cast<short>(TransferState::resolvingHost);
    static constexpr auto connecting = static_cast<short>(TransferState::connecting);

    InternetTransfer(); // uses openAddress (web_request.h)
    explicit InternetTransfer(Work work);
    InternetTransfer(const InternetTransfer&) = delete;
    InternetTransfer& operator=(const InternetTransfer&) = delete;
    ~InternetTransfer();

    std::function<void(short state)> StateChanged;

    // The default time limit for an answer.
    static constexpr unsigned usualSeconds = 30;
    void setRequestTimeout(unsigned milliseconds) { timeout_ = milliseconds; }

    // The body, decoded from the ANSI code page and limited to its first megabyte, whatever the HTTP status.
    // Throws RuntimeError: 35761 when the time is up, 35764 while another address is being opened, 35752 if
    // the address is malformed, 35753 for a protocol other than http, https and ftp, 35754 if no connection
    // could be made, 7 if the other thread has no memory, 35756 for any other failure and when the program
    // is quitting.
    std::wstring OpenURL(const std::wstring& url, Body body = Body::text);
    bool StillExecuting() const { return executing_; }
    // Whether the program is quitting: whoever waited for an answer must not touch its windows any more.
    bool quitting() const { return quitting_; }

  private:
    void wait(TransferJob& job);
    void tellStates(TransferJob& job) const;

    Work work_;
    std::shared_ptr<TransferThread> thread_; // shared, because it outlives this object if its call hangs
    unsigned timeout_ = usualSeconds * 1000;
    bool executing_ = false;
    bool quitting_ = false;
};

} // namespace vandrel

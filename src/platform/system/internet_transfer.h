#pragma once

#include "platform/system/transfer.h"
#include "platform/system/transfer_lanes.h"
#include "platform/windows/message_throttle.h"

#include <functional>
#include <string>

namespace vandrel {

// Opens addresses over the Internet, one at a time for those who ask. OpenURL is synchronous: while other
// threads make the transfers, it dispatches messages until it can return the answer. What the user does is
// painted at once, the rest a few times a second.
class InternetTransfer {
  public:
    using Body = TransferBody;
    using Work = TransferWork;
    using Number = TransferLanes::Number;
    // The states that StateChanged reports.
    // Contract: a state is a 16-bit number.
    static constexpr auto resolvingHost = static_cast<short>(TransferState::resolvingHost);
    static constexpr auto connecting = static_cast<short>(TransferState::connecting);

    InternetTransfer(); // uses openAddress (web_request.h)
    explicit InternetTransfer(Work work) : lanes_(work) { setRequestTimeout(usualSeconds * 1000); }
    InternetTransfer(const InternetTransfer&) = delete;
    InternetTransfer& operator=(const InternetTransfer&) = delete;

    std::function<void(short state)> StateChanged;

    // The default time limit for an answer.
    static constexpr unsigned usualSeconds = 30;
    void setRequestTimeout(unsigned milliseconds) { lanes_.setTimeout(milliseconds); }

    // The body, decoded from the ANSI code page and limited to its first megabyte, whatever the HTTP status.
    // Throws RuntimeError: 35761 when the time is up, 35764 while another address is being opened, 35752 if
    // the address is malformed, 35753 for a protocol other than http, https and ftp, 35754 if no connection
    // could be made, 7 if the other thread has no memory, 35756 for any other failure and when the program
    // is quitting.
    std::wstring OpenURL(const std::wstring& url, Body body = Body::text) { return open(0, url, body); }
    bool StillExecuting() const { return executing_; }
    // Whether the program is quitting: whoever waited for an answer must not touch its windows any more.
    bool quitting() const { return quitting_; }

    // Announces addresses that OpenExpected will be asked for, in ascending order of their numbers. While it
    // waits for one of them, others are opened: up to setMostAtOnce in all (1 to 8, usually 8), and never
    // two of one host. Nobody notices: the states and the error of each are reported in its own call.
    void expect(Number number, const std::wstring& url) { lanes_.expect(number, url); }
    void setMostAtOnce(std::size_t count) { lanes_.setMostAtOnce(count); }
    // As OpenURL, without a body. If another address was announced under the number, its answer is not used;
    // what was announced under lower numbers is forgotten.
    void OpenExpected(Number number, const std::wstring& url) { open(number, url, Body::none); }
    // Forgets all that is announced, and gives up what is being opened.
    void forgetExpected() { lanes_.forgetAll(); }

  private:
    std::wstring open(Number number, const std::wstring& url, Body body);
    void wait(TransferJob& job);
    void waitForNews();
    void runMessagesIfDue();
    void runMessages();
    [[noreturn]] void quit();
    void tellStates(TransferJob& job) const;

    TransferLanes lanes_;
    MessageThrottle pause_;
    bool executing_ = false;
    bool quitting_ = false;
};

} // namespace vandrel

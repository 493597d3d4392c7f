#pragma once

#include "platform/system/transfer.h"
#include "platform/system/transfer_job.h"
#include "platform/system/transfer_schedule.h"

#include <windows.h>

#include <array>
#include <map>
#include <memory>

namespace vandrel {

class TransferThread;

// Opens addresses on threads of its own, up to eight at once and never two of one host: those that are asked
// for and, while there is room, those that will be. For one thread; it neither waits nor tells anybody, so
// goOn must be called after each event and when a deadline has passed.
class TransferLanes {
  public:
    using Number = TransferSchedule::Number;

    explicit TransferLanes(TransferWork work) : work_(work) {}
    TransferLanes(const TransferLanes&) = delete;
    TransferLanes& operator=(const TransferLanes&) = delete;
    ~TransferLanes();

    void setMostAtOnce(std::size_t count) { schedule_.setLanes(count); }
    // For transfers that begin from now on; it counts from when they do.
    void setTimeout(unsigned milliseconds) { timeout_ = milliseconds; }

    // The address may be opened, without its body, before it is asked for. Numbers ascend.
    void expect(Number number, const std::wstring& url) { schedule_.expect(number, url); }
    // The transfer of this address: the one that has begun under this number, if the address and the body
    // are still the same, otherwise a new one that goOn begins before all others. Addresses with lower
    // numbers are forgotten; those under way keep their hosts and lanes until they end.
    std::shared_ptr<TransferJob> ask(Number number, const std::wstring& url, TransferBody body);
    // Gives up what has had its time and begins what may begin. Throws what stops the address that was asked
    // for last from being opened while nothing else is: std::bad_alloc or RuntimeError (7). Other addresses
    // are tried again later.
    void goOn(ULONGLONG now);
    // The transfer that was asked for under this number is not wanted any more.
    void forget(Number number);
    // Gives up all transfers.
    void forgetAll();

    // An event: set by each state of a transfer and at its end.
    HANDLE news() const { return news_->get(); }
    // When goOn must be called even without an event; the greatest number if it need not.
    ULONGLONG deadline() const;

  private:
    struct Lane {
        std::shared_ptr<TransferThread> thread; // outlives this object if its call hangs
        std::shared_ptr<TransferJob> job;       // null while it is free
        ULONGLONG deadline = 0;
    };
    void end(std::size_t number);
    void giveUp(std::size_t number);
    bool begin(const TransferSchedule::Start& start, ULONGLONG now);
    void beginUnguarded(const TransferSchedule::Start& start, ULONGLONG now);

    TransferWork work_;
    unsigned timeout_ = 0;
    const SharedEvent news_ = std::make_shared<const EventHandle>(makeEvent());
    TransferSchedule schedule_;
    std::map<Number, std::shared_ptr<TransferJob>> jobs_; // asked for or begun, and not forgotten
    Number asked_ = 0;
    std::array<Lane, TransferSchedule::mostLanes> lanes_;
};

} // namespace vandrel

#include "platform/system/transfer_lanes.h"

#include "platform/base/runtime_error.h"
#include "platform/system/transfer_thread.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace vandrel {

TransferLanes::~TransferLanes()
{
    for (const Lane& lane : lanes_)
        if (lane.thread) lane.thread->abandon();
}

std::shared_ptr<TransferJob> TransferLanes::ask(Number number, const std::wstring& url, TransferBody body)
{
    asked_ = number;
    schedule_.forgetBelow(number);
    jobs_.erase(jobs_.begin(), jobs_.lower_bound(number));
    const auto found = jobs_.find(number);
    if (found != jobs_.end() && found->second->url == url && found->second->wanted == body)
        return found->second;
    auto job = std::make_shared<TransferJob>(url, body, news_);
    schedule_.ask(number, url);
    jobs_.insert_or_assign(number, job);
    return job;
}

void TransferLanes::goOn(ULONGLONG now)
{
    for (std::size_t i = 0; i < lanes_.size(); ++i) {
        if (!lanes_[i].job) continue;
        if (lanes_[i].job->isFinished()) end(i);
        else if (now >= lanes_[i].deadline) giveUp(i);
    }
    while (const auto start = schedule_.next())
        if (!begin(*start, now)) return;
}

bool TransferLanes::begin(const TransferSchedule::Start& start, ULONGLONG now)
{
    const bool nothingElse = start.number == asked_ && !schedule_.anyRunning();
    try {
        beginUnguarded(start, now);
        return true;
    } catch (const std::bad_alloc&) {
        if (nothingElse) throw;
    } catch (const RuntimeError&) {
        if (nothingElse) throw;
    }
    return false;
}

void TransferLanes::beginUnguarded(const TransferSchedule::Start& start, ULONGLONG now)
{
    Lane& lane = lanes_[start.lane];
    auto found = jobs_.find(start.number);
    if (found == jobs_.end()) {
        auto job = std::make_shared<TransferJob>(start.address, TransferBody::none, news_);
        found = jobs_.emplace(start.number, std::move(job)).first;
    }
    if (!lane.thread) lane.thread = TransferThread::start(work_);
    // From here on nothing fails.
    lane.job = found->second;
    lane.deadline = now + timeout_;
    schedule_.begun(start);
    lane.thread->take(lane.job);
}

void TransferLanes::end(std::size_t number)
{
    lanes_[number].job.reset();
    schedule_.ended(number);
}

void TransferLanes::giveUp(std::size_t number)
{
    lanes_[number].job->giveUp();
    std::exchange(lanes_[number].thread, nullptr)->abandon();
    end(number);
}

void TransferLanes::forget(Number number)
{
    schedule_.forgetBelow(number + 1);
    const auto found = jobs_.find(number);
    if (found == jobs_.end()) return;
    for (std::size_t i = 0; i < lanes_.size(); ++i)
        if (lanes_[i].job == found->second && !lanes_[i].job->isFinished()) giveUp(i);
    jobs_.erase(found);
}

void TransferLanes::forgetAll()
{
    schedule_.forgetAll();
    jobs_.clear();
    for (std::size_t i = 0; i < lanes_.size(); ++i) {
        if (!lanes_[i].job) continue;
        if (lanes_[i].job->isFinished()) end(i);
        else giveUp(i);
    }
}

ULONGLONG TransferLanes::deadline() const
{
    ULONGLONG first = std::numeric_limits<ULONGLONG>::max();
    for (const Lane& lane : lanes_)
        if (lane.job) first = std::min(first, lane.deadline);
    return first;
}

} // namespace vandrel

#pragma once

#include "platform/base/runtime_error.h"

#include <atomic>
#include <cstddef>

namespace vandrel {

// How far a piece of work is. The thread that works and the one that shows it share one.
class Progress {
  public:
    static constexpr int whole = 1000;

    // To be called by the work now and then. Throws RuntimeError (32755) once the user has cancelled it.
    void reach(int part)
    {
        part_ = part;
        if (cancelled_) throw RuntimeError(error_number::cancelled);
    }
    int part() const { return part_; } // 0 to `whole`
    void cancel() noexcept { cancelled_ = true; }

  private:
    std::atomic<int> part_ = 0;
    std::atomic<bool> cancelled_ = false;
};

// The part that `done` of `all` are.
inline int partOf(std::size_t done, std::size_t all)
{
    return all == 0 ? Progress::whole : static_cast<int>(done * Progress::whole / all);
}

} // namespace vandrel

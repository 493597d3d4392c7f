#pragma once

#include <exception>
#include <utility>

namespace vandrel {

// For functions that the system calls back within a call of ours: what they throw is kept until that call has
// come back, and goes on from there.
class CallbackError {
  public:
    template <typename Answer, typename Action> Answer keep(Answer fallback, Action action) noexcept
    {
        try {
            return action();
        } catch (...) {
            error_ = std::current_exception();
        }
        return fallback;
    }
    // Throws what was kept, if anything.
    void rethrow()
    {
        if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
    }

  private:
    std::exception_ptr error_;
};

} // namespace vandrel

#pragma once

#include <exception>
#include <utility>

namespace vandrel {

// Carries an exception out of a callback that the system runs during one of our calls: keep() stores it, and
// rethrow() throws it once that call has returned.
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
    // Throws the stored exception, if any.
    void rethrow()
    {
        if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
    }

  private:
    std::exception_ptr error_;
};

} // namespace vandrel

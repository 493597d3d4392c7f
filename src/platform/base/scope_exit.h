#pragma once

#include <utility>

namespace vandrel {

// Runs its action at the end of the scope, whichever way that is left. The action must not throw.
template <typename Action> class ScopeExit {
  public:
    explicit ScopeExit(Action action) : action_(std::move(action)) {}
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;
    ~ScopeExit() { action_(); }

  private:
    Action action_;
};

} // namespace vandrel

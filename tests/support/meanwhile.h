#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <utility>

namespace vandrel::test {

// Does something once, as soon as `when` holds, while the code under test waits and dispatches messages.
class Meanwhile {
  public:
    Meanwhile(std::function<bool()> when, std::function<void()> then)
        : when_(std::move(when)), then_(std::move(then)), timer_(SetTimer(nullptr, 0, 10, tick))
    {
        all()[timer_] = this;
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;
    ~Meanwhile()
    {
        KillTimer(nullptr, timer_);
        all().erase(timer_);
    }

    bool happened() const { return happened_; }
    // How often messages have been dispatched.
    int ticks() const { return ticks_; }

  private:
    static std::map<UINT_PTR, Meanwhile*>& all()
    {
        static std::map<UINT_PTR, Meanwhile*> alive;
        return alive;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR timer, DWORD)
    {
        const auto found = all().find(timer);
        if (found == all().end()) return;
        Meanwhile& self = *found->second;
        ++self.ticks_;
        if (self.happened_ || !self.when_()) return;
        self.happened_ = true;
        self.then_();
    }

    std::function<bool()> when_;
    std::function<void()> then_;
    UINT_PTR timer_;
    bool happened_ = false;
    int ticks_ = 0;
};

} // namespace vandrel::test

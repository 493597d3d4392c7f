#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace vandrel {

// The program's only message loop. The program itself, modal dialogs and long commands all wait in it.
class MessageLoop {
  public:
    // Returns whether it has handled the message. Filters come before the windows, the newest first.
    using Filter = std::function<bool(MSG& message)>;

    // The filter is in use for as long as this lives.
    class Registration {
      public:
        Registration(MessageLoop& loop, Filter filter);
        Registration(const Registration&) = delete;
        Registration& operator=(const Registration&) = delete;
        ~Registration();

      private:
        MessageLoop& loop_;
        std::size_t id_;
    };

    // An action done whenever nothing is in progress: no command, and no control in the middle of work that
    // may dispatch messages (a press on a list, a scroll bar, a call of the shell), as timers run there, too.
    class Rest {
      public:
        // `action` must not throw.
        Rest(MessageLoop& loop, std::function<void()> action);
        Rest(const Rest&) = delete;
        Rest& operator=(const Rest&) = delete;
        ~Rest();

      private:
        MessageLoop& loop_;
        std::size_t id_;
    };

    // The loop of the only thread that has windows.
    static MessageLoop& current();

    // Runs until `done` returns true. WM_QUIT ends it too, and is posted again for the outer loop.
    void runUntil(const std::function<bool()>& done);
    // Runs until the program quits. The outermost loop: after each message nothing is in progress, and the
    // actions of each Rest are done.
    void run();
    // Dispatches messages until the queue is empty. False on WM_QUIT, which is posted again.
    bool dispatchPending();
    // The same, but windows that have to be painted wait.
    bool dispatchAllButPainting();
    // Dispatches paint messages and no others.
    void paintPending();
    // Does what each Rest wants, as run does after each message. For tests, which have a loop of their own.
    void rest();

  private:
    void dispatch(MSG& message);
    bool dispatchQueued(UINT remove);

    struct Entry {
        std::size_t id;
        Filter filter;
    };
    struct RestEntry {
        std::size_t id;
        std::function<void()> action;
    };
    std::vector<Entry> filters_;
    std::vector<RestEntry> rests_;
    std::size_t nextId_ = 0;
};

} // namespace vandrel

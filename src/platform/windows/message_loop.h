#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace vandrel {

// The one way in which messages reach windows, whoever waits: the program, a modal dialog, a long command.
class MessageLoop {
  public:
    // Returns whether it has dealt with the message; asked before the windows are, the newest first.
    using Filter = std::function<bool(MSG& message)>;

    // The filter is asked as long as the object lives.
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

    // What is done whenever nothing is in progress: no command, and no control in the middle of its work, which may
    // run messages (a press of a button on a list, a scroll bar, whatever the shell does), as timers do not know.
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

    // The program has one thread with windows; this is its loop.
    static MessageLoop& current();

    // Until `done` says so. A request to quit ends it, too, and stays for the loop outside.
    void runUntil(const std::function<bool()>& done);
    // Until the program quits. The outermost loop: after each message nothing is in progress, and what waits for
    // that (see Rest) is done.
    void run();
    // What is waiting now, and no longer. False when a request to quit was among it.
    bool dispatchPending();
    // Lets windows be painted and nothing else happen.
    void paintPending();
    // To be called where nothing is in progress; run does. For tests, which have a loop of their own.
    void rest();

  private:
    void dispatch(MSG& message);

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

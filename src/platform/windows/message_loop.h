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

    // The program has one thread with windows; this is its loop.
    static MessageLoop& current();

    // Until `done` says so. A request to quit ends it, too, and stays for the loop outside.
    void runUntil(const std::function<bool()>& done);
    // Until the program quits.
    void run();
    // What is waiting now, and no longer. False when a request to quit was among it.
    bool dispatchPending();
    // Lets windows be painted and nothing else happen.
    void paintPending();

  private:
    void dispatch(MSG& message);

    struct Entry {
        std::size_t id;
        Filter filter;
    };
    std::vector<Entry> filters_;
    std::size_t nextId_ = 0;
};

} // namespace vandrel

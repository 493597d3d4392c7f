#pragma once

namespace vandrel {

// Raises a counter by one for as long as it lives.
class Counted {
  public:
    explicit Counted(int& counter) : counter_(counter) { ++counter_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --counter_; }

  private:
    int& counter_;
};

} // namespace vandrel

#pragma once

// The whole program's operator new, which fails when it is told to. This is why these tests are a program of
// their own.
namespace vandrel::test::failing_new {

enum class How {
    once,    // the n-th allocation alone
    forGood, // and all that come behind it
};
enum class Where {
    thisThread,
    otherThreads, // of which there is one at most: the transfer's
};

// From now on allocations count, and the n-th of them fails; none when n is 0.
void arm(unsigned n, How how, Where where);
void disarm();

// Since arm().
unsigned counted();
bool failed();

} // namespace vandrel::test::failing_new

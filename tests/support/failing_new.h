#pragma once

// Replaces operator new for the whole program, so that it fails on demand. This is why these tests are a
// program of their own.
namespace vandrel::test::failing_new {

enum class How {
    once,    // the n-th allocation alone
    forGood, // and all that follow it
};
enum class Where {
    thisThread,
    otherThreads, // the transfers' alone
};

// Counts allocations from now on and makes the n-th fail; none when n is 0.
void arm(unsigned n, How how, Where where);
void disarm();

// How many allocations there have been since arm().
unsigned counted();
bool failed();

} // namespace vandrel::test::failing_new

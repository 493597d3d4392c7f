#pragma once

#include <cstddef>

// Replaces operator new for the whole program, so that it counts the bytes that are in use. This is why these
// tests are a program of their own.
namespace vandrel::test::counting_new {

// Counts the most bytes in use at one time from now on, beyond those that are now.
void begin();
std::size_t most();

} // namespace vandrel::test::counting_new

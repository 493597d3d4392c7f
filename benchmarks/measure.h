#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel::bench {

inline constexpr int repetitions = 9;

double now(); // milliseconds
double median(std::vector<double> values);
// The median of that many runs, in milliseconds; `before` is not timed.
double timed(
    const std::function<void()>& work, const std::function<void()>& before = [] {}, int runs = repetitions);

// One run, in milliseconds.
double timeOf(const std::function<void()>& work);
// A work that times itself so.
std::function<double()> timing(std::function<void()> work);
// The medians of works that time themselves, run in turn: a machine that becomes faster or slower meanwhile does so for
// all of them.
std::vector<double> timedInTurn(const std::vector<std::function<double()>>& works, int runs = repetitions);

// One line of the table: what was done, what it is compared with, and the aim for the ratio.
struct Row {
    std::string work;
    std::string beside;
    double ours;
    double floor;
    const char* unit;
    double aim; // of ours / floor, or of ours alone where there is no floor (floor 1)
};
void printHeader();
void print(const Row& row);

} // namespace vandrel::bench

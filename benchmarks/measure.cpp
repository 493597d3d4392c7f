#include "benchmarks/measure.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace vandrel::bench {

double now()
{
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double timeOf(const std::function<void()>& work)
{
    const double start = now();
    work();
    return now() - start;
}

std::function<double()> timing(std::function<void()> work)
{
    return [work = std::move(work)] { return timeOf(work); };
}

double timed(const std::function<void()>& work, const std::function<void()>& before, int runs)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        before();
        times.push_back(timeOf(work));
    }
    return median(times);
}

std::vector<double> timedInTurn(const std::vector<std::function<double()>>& works, int runs)
{
    std::vector<std::vector<double>> times(works.size());
    for (int run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < works.size(); ++i) times[i].push_back(works[i]());
    }
    std::vector<double> medians;
    for (const std::vector<double>& ofOne : times) medians.push_back(median(ofOne));
    return medians;
}

void printHeader()
{
    std::printf("| work | compared with | ours | floor | ratio | aim |\n|---|---|---:|---:|---:|---:|\n");
    std::fflush(stdout);
}

void print(const Row& row)
{
    if (row.beside.empty()) {
        std::printf("| %s | | %.1f %s | | | %.1f |\n", row.work.c_str(), row.ours, row.unit, row.aim);
    } else {
        std::printf("| %s | %s | %.1f %s | %.1f %s | %.2f | %.2f |\n", row.work.c_str(), row.beside.c_str(),
                    row.ours, row.unit, row.floor, row.unit, row.ours / row.floor, row.aim);
    }
    std::fflush(stdout);
}

} // namespace vandrel::bench

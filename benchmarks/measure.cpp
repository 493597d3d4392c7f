#include "benchmarks/measure.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

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

double timed(const std::function<void()>& work, const std::function<void()>& before, int runs)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        before();
        const double start = now();
        work();
        times.push_back(now() - start);
    }
    return median(times);
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

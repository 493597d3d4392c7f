#include "tests/window/platform/system/internet_transfer_test.h"

#include <psapi.h>

namespace vandrel::test {
namespace {

class InternetAmounts : public InternetTransfers {};

double megabytesInUse()
{
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.WorkingSetSize) / 1e6;
}

TEST_F(InternetAmounts, HardlyAnythingIsFetchedOfABodyThatIsNotWanted)
{
    transfer.OpenURL(server.address(L"/huge"), Body::none);
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 1; })) << "the connection is given up";
    const double before = megabytesInUse();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(transfer.OpenURL(server.address(L"/huge"), Body::none), L"");
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 6; }));
    EXPECT_LT(static_cast<double>(server.bytesSent()) / 6 / 1e6, 15)
        << "megabytes, most of them the system's";
    EXPECT_LT(megabytesInUse() - before, 10);
    EXPECT_EQ(open(L"/ok"), L"fine");
}

TEST_F(InternetAmounts, AMegabyteIsTakenOfAText)
{
    const double before = megabytesInUse();
    const std::wstring text = open(L"/huge");
    EXPECT_EQ(text.size(), std::size_t{1} << 20);
    EXPECT_EQ(text.find_first_not_of(L'x'), std::wstring::npos);
    EXPECT_TRUE(pumpUntil([&] { return server.hugeEnded() == 1; }));
    EXPECT_LT(static_cast<double>(server.bytesSent()) / 1e6, 20);
    EXPECT_LT(megabytesInUse() - before, 20);
    EXPECT_EQ(open(L"/ok"), L"fine");
}

} // namespace
} // namespace vandrel::test

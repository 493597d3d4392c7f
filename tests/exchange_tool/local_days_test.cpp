#include "exchange_tool/local_days.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr AddDate secondsInHour = 3600;
constexpr AddDate secondsInDay = 24 * secondsInHour;

TEST(LocalDays, OfADateThatWasWrittenAreTheDateThatIsRead)
{
    LocalDays days;
    std::wstring before;
    // Each day of three years, in which summer time begins and ends.
    constexpr AddDate first = 1'700'000'000;
    for (AddDate time = first; time < first + 1098 * secondsInDay; time += secondsInDay) {
        const std::wstring text = days.shortDate(time);
        ASSERT_FALSE(text.empty());
        ASSERT_NE(text, before);
        const auto noon = days.noonOf(text);
        ASSERT_TRUE(noon) << testing::PrintToString(text);
        ASSERT_EQ(days.shortDate(*noon), text);
        // Noon, or an hour beside it on a day on which the clocks change.
        ASSERT_EQ(days.shortDate(*noon - 10 * secondsInHour), text);
        ASSERT_EQ(days.shortDate(*noon + 10 * secondsInHour), text);
        before = text;
    }
}

TEST(LocalDays, AreEmptyForNoDateAndForOneThatCannotBeWritten)
{
    LocalDays days;
    EXPECT_EQ(days.noonOf(L""), std::nullopt);
    EXPECT_EQ(days.noonOf(L"soon"), std::nullopt);
    EXPECT_EQ(days.noonOf(L"11/16/1902"), std::nullopt);
    EXPECT_EQ(days.noonOf(L"soon"), std::nullopt);
    EXPECT_FALSE(days.shortDate(100'000'000'000).empty());
}

TEST(LocalDays, AreReadWhereMonthsHaveNames)
{
    LocalDays days;
    EXPECT_TRUE(days.noonOf(L"2002-11-16"));
    EXPECT_EQ(days.noonOf(L"16 Nov 2002"), days.noonOf(L"2002-11-16"));
}

} // namespace
} // namespace vandrel::test

#include "scan/scan_report.h"

#include <gtest/gtest.h>

#include <limits>

namespace vandrel {
namespace {

TEST(ScanReport, ALineOfTheLogIsNameAddressAndOutcome)
{
    EXPECT_EQ(scanLogLine(L"News", L"http://news.example/", true), L"News - http://news.example/ - Success");
    EXPECT_EQ(scanLogLine(L"News", L"http://news.example/", false), L"News - http://news.example/ - Failed");
}

TEST(ScanReport, ALineHasNameAndAddressUnchanged)
{
    EXPECT_EQ(scanLogLine(L"", L"", true), L" -  - Success");
    EXPECT_EQ(scanLogLine(L"a - b", L"c - Failed", true), L"a - b - c - Failed - Success");
    EXPECT_EQ(scanLogLine(L" x ", L"\u00E4\u20AC", false), L" x  - \u00E4\u20AC - Failed");
}

TEST(ScanReport, WithoutAFailureThereIsNoMessage)
{
    EXPECT_FALSE(scanSummary(0, 0));
    EXPECT_FALSE(scanSummary(0, 1));
    EXPECT_FALSE(scanSummary(0, 2'000'000));
}

TEST(ScanReport, OneOfSeveralIsReportedInTheSingular)
{
    for (const std::size_t count : {2U, 3U, 2'000'000U}) {
        const auto summary = scanSummary(1, count);
        ASSERT_TRUE(summary);
        EXPECT_EQ(summary->title, L"Unavailable Site");
        EXPECT_EQ(
            summary->text,
            L"There was 1 unavailable link.\r\n"
            L"It has been marked with a red X\r\n"
            L"for easy identification and possible removal.\r\n"
            L"\r\n"
            L"Please be aware that this site may just be temporarily unavailable. If you feel this is an "
            L"error,\r\n"
            L"try rescanning, or opening the site manually.");
        EXPECT_FALSE(summary->everySiteFailed);
    }
}

TEST(ScanReport, MoreAreReportedInThePlural)
{
    const std::pair<std::int32_t, const wchar_t*> counts[] = {
        {2, L"2"},
        {10, L"10"},
        {2'000'000, L"2000000"},
        {std::numeric_limits<std::int32_t>::max(), L"2147483647"},
    };
    for (const auto& [failures, number] : counts) {
        const auto summary = scanSummary(failures, static_cast<std::size_t>(failures) + 1);
        ASSERT_TRUE(summary);
        EXPECT_EQ(summary->title, L"Unavailable Sites");
        EXPECT_EQ(summary->text, L"There were " + std::wstring(number) +
                                     L" unavailable links.\r\n"
                                     L"They have been marked with a red X\r\n"
                                     L"for easy identification and possible removal.\r\n"
                                     L"\r\n"
                                     L"Please be aware that these sites may just be temporarily unavailable. "
                                     L"If you feel this is an error,\r\n"
                                     L"try rescanning, or opening these sites manually.");
        EXPECT_FALSE(summary->everySiteFailed);
    }
}

TEST(ScanReport, AllOfThemAreBlamedOnTheConnection)
{
    for (const std::int32_t count : {1, 2, 3, 2'000'000}) {
        const auto summary = scanSummary(count, static_cast<std::size_t>(count));
        ASSERT_TRUE(summary);
        EXPECT_EQ(summary->title, L"Check Internet Connection");
        EXPECT_EQ(summary->text,
                  L"Every link checked has proven to be unavailable. Please check your internet connection.");
        EXPECT_TRUE(summary->everySiteFailed);
    }
}

} // namespace
} // namespace vandrel

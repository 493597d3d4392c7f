#include "platform/text/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace vandrel {
namespace {

using namespace std::literals;

constexpr double largest = std::numeric_limits<double>::max();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(LenientNumber, ReadsPlainNumbers)
{
    EXPECT_EQ(lenientNumber(L"0"), 0);
    EXPECT_EQ(lenientNumber(L"2160"), 2160);
    EXPECT_EQ(lenientNumber(L"007"), 7);
    EXPECT_EQ(lenientNumber(L"16777215"), 16777215);
}

TEST(LenientNumber, AMissingValueIsZero)
{
    EXPECT_EQ(lenientNumber(L""), 0);
    EXPECT_EQ(lenientNumber(L"   "), 0);
    EXPECT_EQ(lenientNumber(L"\t"), 0);
}

TEST(LenientNumber, ATextThatBeginsWithNoNumberIsZero)
{
    for (const auto* text : {L"abc", L"abc12", L"-", L"+", L".", L"-.", L"+-5", L"--5", L"-+5", L"- 5", L"e5",
                             L".e5", L"inf", L"nan", L"&H10", L"$5", L"%"}) {
        EXPECT_EQ(lenientNumber(text), 0) << text;
    }
}

TEST(LenientNumber, BlanksInFrontDoNotMatter)
{
    EXPECT_EQ(lenientNumber(L"   12"), 12);
    EXPECT_EQ(lenientNumber(L"\t 12"), 12);
    EXPECT_EQ(lenientNumber(L" -12"), -12);
}

TEST(LenientNumber, TakesASign)
{
    EXPECT_EQ(lenientNumber(L"-12"), -12);
    EXPECT_EQ(lenientNumber(L"+12"), 12);
    EXPECT_EQ(lenientNumber(L"-.5"), -0.5);
    EXPECT_EQ(lenientNumber(L"+.5"), 0.5);
}

TEST(LenientNumber, TakesAFraction)
{
    EXPECT_EQ(lenientNumber(L"2057.1428"), 2057.1428);
    EXPECT_EQ(lenientNumber(L".5"), 0.5);
    EXPECT_EQ(lenientNumber(L"5."), 5);
    EXPECT_EQ(lenientNumber(L"0.1"), 0.1);
}

TEST(LenientNumber, TakesAnExponent)
{
    EXPECT_EQ(lenientNumber(L"1e3"), 1000);
    EXPECT_EQ(lenientNumber(L"1E3"), 1000);
    EXPECT_EQ(lenientNumber(L"1e+3"), 1000);
    EXPECT_EQ(lenientNumber(L"25e-2"), 0.25);
    EXPECT_EQ(lenientNumber(L"-1.5E2"), -150);
    EXPECT_EQ(lenientNumber(L"5.e1"), 50);
}

TEST(LenientNumber, AnExponentWithoutDigitsIsIgnored)
{
    EXPECT_EQ(lenientNumber(L"7e"), 7);
    EXPECT_EQ(lenientNumber(L"7e+"), 7);
    EXPECT_EQ(lenientNumber(L"7e-"), 7);
    EXPECT_EQ(lenientNumber(L"7e-x"), 7);
}

TEST(LenientNumber, WhatFollowsTheNumberIsIgnored)
{
    EXPECT_EQ(lenientNumber(L"12abc"), 12);
    EXPECT_EQ(lenientNumber(L"75%"), 75);
    EXPECT_EQ(lenientNumber(L"1,234"), 1);
    EXPECT_EQ(lenientNumber(L"1.5.2"), 1.5);
    EXPECT_EQ(lenientNumber(L"12 34"), 12);
    EXPECT_EQ(lenientNumber(L"0x10"), 0);
    EXPECT_EQ(lenientNumber(L"1e3e3"), 1000);
    EXPECT_EQ(lenientNumber(L"12\0\0"sv), 12);
    EXPECT_EQ(lenientNumber(L"12\r\n"), 12);
}

TEST(LenientNumber, OnlyPlainDigitsAreDigits)
{
    EXPECT_EQ(lenientNumber(L"\uFF11\uFF12"), 0); // the full-width forms
    EXPECT_EQ(lenientNumber(L"\u0131"), 0);       // its low byte is that of "1"
    EXPECT_EQ(lenientNumber(L"4\u0131"), 4);
}

TEST(LenientNumber, HugeExponentsRaiseNothing)
{
    EXPECT_EQ(lenientNumber(L"1e400"), largest);
    EXPECT_EQ(lenientNumber(L"-1e400"), -largest);
    EXPECT_EQ(lenientNumber(L"1e99999999999999999999999"), largest);
    EXPECT_EQ(lenientNumber(L"1e-400"), 0);
    EXPECT_EQ(lenientNumber(L"-1e-400"), 0);
    EXPECT_EQ(lenientNumber(L"1E-99999999999999999999999"), 0);
    EXPECT_EQ(lenientNumber(L"0e99999999999999999999999"), 0);
}

TEST(LenientNumber, TooManyDigitsAreTheLargestNumber)
{
    EXPECT_EQ(lenientNumber(std::wstring(1000, L'9')), largest);
    EXPECT_EQ(lenientNumber(L'-' + std::wstring(1000, L'9')), -largest);
}

TEST(LenientNumber, TooLargeStaysTooLargeWithANegativeExponent)
{
    EXPECT_EQ(lenientNumber(std::wstring(1000, L'9') + L"e-5"), largest);
    EXPECT_EQ(lenientNumber(L'-' + std::wstring(1000, L'9') + L"E-5"), -largest);
}

TEST(LenientNumber, AFractionTooSmallToHoldIsZero)
{
    EXPECT_EQ(lenientNumber(L"0." + std::wstring(1000, L'0') + L"1"), 0);
    EXPECT_EQ(lenientNumber(L"-0." + std::wstring(1000, L'0') + L"1"), 0);
    EXPECT_EQ(lenientNumber(L"." + std::wstring(1000, L'0') + L"1e5"), 0);
}

TEST(RoundedHalfEven, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(roundedHalfEven(0.5, -100, 100), 0);
    EXPECT_EQ(roundedHalfEven(1.5, -100, 100), 2);
    EXPECT_EQ(roundedHalfEven(2.5, -100, 100), 2);
    EXPECT_EQ(roundedHalfEven(3.5, -100, 100), 4);
    EXPECT_EQ(roundedHalfEven(-0.5, -100, 100), 0);
    EXPECT_EQ(roundedHalfEven(-1.5, -100, 100), -2);
    EXPECT_EQ(roundedHalfEven(-2.5, -100, 100), -2);
}

TEST(RoundedHalfEven, EverythingElseGoesToTheNearest)
{
    EXPECT_EQ(roundedHalfEven(2.4999, -100, 100), 2);
    EXPECT_EQ(roundedHalfEven(2.5001, -100, 100), 3);
    EXPECT_EQ(roundedHalfEven(-2.5001, -100, 100), -3);
    EXPECT_EQ(roundedHalfEven(7, -100, 100), 7);
}

TEST(RoundedHalfEven, ValuesAreCutToTheRange)
{
    EXPECT_EQ(roundedHalfEven(32767, -32768, 32767), 32767);
    EXPECT_EQ(roundedHalfEven(32768, -32768, 32767), 32767);
    EXPECT_EQ(roundedHalfEven(-32768, -32768, 32767), -32768);
    EXPECT_EQ(roundedHalfEven(-32769, -32768, 32767), -32768);
    EXPECT_EQ(roundedHalfEven(infinite, 1, 5), 5);
    EXPECT_EQ(roundedHalfEven(-infinite, 1, 5), 1);
}

TEST(RoundedHalfEven, TheWholeRangeOfTheTypeIsAllowed)
{
    constexpr long low = std::numeric_limits<long>::min();
    constexpr long high = std::numeric_limits<long>::max();
    EXPECT_EQ(roundedHalfEven(1e300, low, high), high);
    EXPECT_EQ(roundedHalfEven(-1e300, low, high), low);
    EXPECT_EQ(roundedHalfEven(-2147483648.0, low, high), -2147483647L - 1);
}

TEST(RoundedHalfEven, WhatIsNotANumberIsZero)
{
    EXPECT_EQ(roundedHalfEven(std::numeric_limits<double>::quiet_NaN(), -5, 5), 0);
}

TEST(LenientWhole, ReadsRoundsAndCuts)
{
    EXPECT_EQ(lenientWhole(L" 12.5 points", -100, 100), 12);
    EXPECT_EQ(lenientWhole(L"13.5", -100, 100), 14);
    EXPECT_EQ(lenientWhole(L"abc", -100, 100), 0);
    EXPECT_EQ(lenientWhole(L"", -100, 100), 0);
    EXPECT_EQ(lenientWhole(L"40000", -32768, 32767), 32767);
    EXPECT_EQ(lenientWhole(L"-40000", -32768, 32767), -32768);
    EXPECT_EQ(lenientWhole(L"1e999", -32768, 32767), 32767);
    EXPECT_EQ(lenientWhole(L"-1e999", -32768, 32767), -32768);
}

TEST(DecimalText, WholeNumbersHaveNoGrouping)
{
    EXPECT_EQ(decimalText(0L), L"0");
    EXPECT_EQ(decimalText(-5L), L"-5");
    EXPECT_EQ(decimalText(1234567L), L"1234567");
    EXPECT_EQ(decimalText(2147483647L), L"2147483647");
    EXPECT_EQ(decimalText(-2147483647L - 1), L"-2147483648");
}

TEST(DecimalText, AFractionOnlyWhereThereIsOne)
{
    EXPECT_EQ(decimalText(2160.0F), L"2160");
    EXPECT_EQ(decimalText(0.0F), L"0");
    EXPECT_EQ(decimalText(2057.1428F), L"2057.1428");
    EXPECT_EQ(decimalText(0.1F), L"0.1");
    EXPECT_EQ(decimalText(-1.5F), L"-1.5");
}

TEST(DecimalText, NeverAnExponent)
{
    EXPECT_EQ(decimalText(10'000'000'000.0F), L"10000000000");
    EXPECT_EQ(decimalText(0.00001F), L"0.00001");
    for (const float value : {std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest(),
                              std::numeric_limits<float>::min(), -std::numeric_limits<float>::denorm_min()}) {
        const std::wstring text = decimalText(value);
        EXPECT_EQ(text.find_first_not_of(L"-.0123456789"), std::wstring::npos) << text;
        EXPECT_EQ(static_cast<float>(lenientNumber(text)), value) << text;
    }
}

TEST(DecimalText, WhatIsNotANumberIsZero)
{
    EXPECT_EQ(decimalText(std::numeric_limits<float>::quiet_NaN()), L"0");
    EXPECT_EQ(decimalText(std::numeric_limits<float>::infinity()), L"0");
    EXPECT_EQ(decimalText(-std::numeric_limits<float>::infinity()), L"0");
}

TEST(DecimalText, IsReadBackAsTheSameValue)
{
    std::mt19937 random(7);
    for (int round = 0; round < 20'000; ++round) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value)) continue;
        ASSERT_EQ(static_cast<float>(lenientNumber(decimalText(value))), value);
    }
}

} // namespace
} // namespace vandrel

#include "platform/text/number_reading.h"

#include "tests/support/error_of.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

int errorOfReading(const std::wstring& text)
{
    return errorOf([&] { wholeNumberOf(text); });
}

TEST(NumberReading, WholeNumbersAreThemselves)
{
    const std::pair<const wchar_t*, int> cases[] = {{L"0", 0},          {L"8", 8},   {L"-3", -3},
                                                    {L"+9", 9},         {L"007", 7}, {L"32767", 32767},
                                                    {L"-32768", -32768}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(wholeNumberOf(text), number) << testing::PrintToString(std::wstring(text));
}

TEST(NumberReading, BlanksAroundDoNotCount)
{
    for (const wchar_t* const text : {L" 12 ", L"12  ", L"   12"}) EXPECT_EQ(wholeNumberOf(text), 12);
}

TEST(NumberReading, FractionsAreRoundedAndHalvesToTheEvenNeighbour)
{
    const std::pair<const wchar_t*, int> cases[] = {{L"12.4", 12},  {L"12.5", 12}, {L"13.5", 14},
                                                    {L"12.51", 13}, {L"0.5", 0},   {L"1.5", 2},
                                                    {L"-0.5", 0},   {L"-1.5", -2}, {L"32767.4", 32767},
                                                    {L".9", 1}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(wholeNumberOf(text), number) << testing::PrintToString(std::wstring(text));
}

TEST(NumberReading, ExponentsAndGroupsOfDigitsAreRead)
{
    EXPECT_EQ(wholeNumberOf(L"1e1"), 10);
    EXPECT_EQ(wholeNumberOf(L"2E2"), 200);
    EXPECT_EQ(wholeNumberOf(L"150e-1"), 15);
    EXPECT_EQ(wholeNumberOf(L"1,000"), 1000);
}

TEST(NumberReading, WhatIsNoNumberIsError13)
{
    for (const wchar_t* const text : {L"", L" ", L"abc", L"8pt", L"12%", L"--1", L"1 2", L"1.2.3"}) {
        EXPECT_EQ(errorOfReading(text), error_number::typeMismatch)
            << testing::PrintToString(std::wstring(text));
    }
}

TEST(NumberReading, WhatIsBeyond16BitsIsError6)
{
    for (const wchar_t* const text : {L"32768", L"-32769", L"40000", L"1e5", L"99999999999999999999"})
        EXPECT_EQ(errorOfReading(text), error_number::overflow) << testing::PrintToString(std::wstring(text));
}

} // namespace
} // namespace vandrel::test

#include "model/site_date.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vandrel {

// For failure messages.
void PrintTo(const SiteDate& date, std::ostream* stream)
{
    *stream << date.year << '-' << date.month << '-' << date.day;
}

namespace {

using enum DatePart;

constexpr DateOrder dayMonthYear{day, month, year};
constexpr DateOrder yearMonthDay{year, month, day};
constexpr DateOrder yearDayMonth{year, day, month};
constexpr DateOrder allOrders[] = {monthDayYear, dayMonthYear, yearMonthDay, yearDayMonth};

constexpr SiteDate november16{2002, 11, 16};

using MaybeDate = std::optional<SiteDate>;

TEST(DateOrderOfAPattern, IsThatOfItsLetters)
{
    EXPECT_EQ(dateOrderOf(L"M/d/yyyy"), monthDayYear);
    EXPECT_EQ(dateOrderOf(L"MM-dd-yy"), monthDayYear);
    EXPECT_EQ(dateOrderOf(L"dd.MM.yyyy"), dayMonthYear);
    EXPECT_EQ(dateOrderOf(L"dd/MM/yyyy"), dayMonthYear);
    EXPECT_EQ(dateOrderOf(L"d. M. yyyy"), dayMonthYear);
    EXPECT_EQ(dateOrderOf(L"yyyy/MM/dd"), yearMonthDay);
    EXPECT_EQ(dateOrderOf(L"yyyy. dd. MM."), yearDayMonth);
}

TEST(DateOrderOfAPattern, IsMonthDayYearWhenAPartIsMissing)
{
    for (const wchar_t* const pattern : {L"", L"dd.MM", L"dd.yyyy", L"yyyy/MM", L"yyyy", L"???"}) {
        EXPECT_EQ(dateOrderOf(pattern), monthDayYear) << std::wstring(pattern);
    }
}

TEST(DateOrderOfAPattern, DoesNotMistakeMinutesForAMonth)
{
    EXPECT_EQ(dateOrderOf(L"dd.mm.yyyy"), monthDayYear)
        << "small m is the minute; no month is in the pattern";
}

TEST(DateOfNumbers, ReadsThemInTheOrderOfTheLocale)
{
    EXPECT_EQ(dateOfNumbers(L"11/16/2002", monthDayYear), november16);
    EXPECT_EQ(dateOfNumbers(L"16.11.2002", dayMonthYear), november16);
    EXPECT_EQ(dateOfNumbers(L"2002/11/16", yearMonthDay), november16);
    EXPECT_EQ(dateOfNumbers(L"2002-16-11", yearDayMonth), november16);
}

TEST(DateOfNumbers, WhereEitherCouldBeTheMonthFollowsTheLocale)
{
    EXPECT_EQ(dateOfNumbers(L"5/6/2002", monthDayYear), (SiteDate{2002, 5, 6}));
    EXPECT_EQ(dateOfNumbers(L"5/6/2002", dayMonthYear), (SiteDate{2002, 6, 5}));
    EXPECT_EQ(dateOfNumbers(L"2002/5/6", yearMonthDay), (SiteDate{2002, 5, 6}));
    EXPECT_EQ(dateOfNumbers(L"2002/5/6", yearDayMonth), (SiteDate{2002, 6, 5}));
    EXPECT_EQ(dateOfNumbers(L"1/2/3", monthDayYear), (SiteDate{2003, 1, 2}));
    EXPECT_EQ(dateOfNumbers(L"1/2/3", dayMonthYear), (SiteDate{2003, 2, 1}));
    EXPECT_EQ(dateOfNumbers(L"1/2/3", yearMonthDay), (SiteDate{2001, 2, 3}));
}

TEST(DateOfNumbers, WrittenInAnotherLocaleIsReadTheOnlyWayThatIsADate)
{
    for (const DateOrder& order : allOrders) {
        for (const wchar_t* const text :
             {L"16/11/2002", L"11/16/2002", L"2002/11/16", L"2002/16/11", L"16.11.2002", L"2002-11-16"}) {
            EXPECT_EQ(dateOfNumbers(text, order), november16) << std::wstring(text);
        }
    }
}

TEST(DateOfNumbers, ThatCouldBeTwoDatesOfOtherLocalesHaveTheMonthFirst)
{
    EXPECT_EQ(dateOfNumbers(L"5/6/2002", yearMonthDay), (SiteDate{2002, 5, 6}));
    EXPECT_EQ(dateOfNumbers(L"2002/5/6", dayMonthYear), (SiteDate{2002, 5, 6}));
}

TEST(DateOfNumbers, TakesYearsOfTwoDigitsFrom1930To2029)
{
    EXPECT_EQ(dateOfNumbers(L"11/16/00", monthDayYear), (SiteDate{2000, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"11/16/02", monthDayYear), november16);
    EXPECT_EQ(dateOfNumbers(L"11/16/29", monthDayYear), (SiteDate{2029, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"11/16/30", monthDayYear), (SiteDate{1930, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"11/16/99", monthDayYear), (SiteDate{1999, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"11/16/5", monthDayYear), (SiteDate{2005, 11, 16}));
}

TEST(DateOfNumbers, TakesYearsOfMoreDigitsAsTheyAre)
{
    EXPECT_EQ(dateOfNumbers(L"11/16/0100", monthDayYear), (SiteDate{100, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"11/16/205", monthDayYear), (SiteDate{205, 11, 16}));
    EXPECT_EQ(dateOfNumbers(L"12/31/9999", monthDayYear), (SiteDate{9999, 12, 31}));
    EXPECT_EQ(dateOfNumbers(L"11/16/0099", monthDayYear), MaybeDate());
    EXPECT_EQ(dateOfNumbers(L"11/16/0002", monthDayYear), MaybeDate());
}

TEST(DateOfNumbers, KnowsLeapDays)
{
    EXPECT_EQ(dateOfNumbers(L"2/29/2000", monthDayYear), (SiteDate{2000, 2, 29}));
    EXPECT_EQ(dateOfNumbers(L"2/29/2004", monthDayYear), (SiteDate{2004, 2, 29}));
    EXPECT_EQ(dateOfNumbers(L"2/29/1900", monthDayYear), MaybeDate());
    EXPECT_EQ(dateOfNumbers(L"2/29/2003", monthDayYear), MaybeDate());
    EXPECT_EQ(dateOfNumbers(L"29.2.2003", dayMonthYear), MaybeDate());
    EXPECT_EQ(dateOfNumbers(L"2/30/2004", monthDayYear), MaybeDate());
}

TEST(DateOfNumbers, KnowsTheLengthOfEveryMonth)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int number = 1; number <= 12; ++number) {
        const int last = days[number - 1];
        const std::wstring start = std::to_wstring(number) + L"/";
        EXPECT_EQ(dateOfNumbers(start + std::to_wstring(last) + L"/2003", monthDayYear),
                  (SiteDate{2003, number, last}));
        EXPECT_EQ(dateOfNumbers(start + std::to_wstring(last + 1) + L"/2003", monthDayYear), MaybeDate());
    }
}

TEST(DateOfNumbers, ThatAreNotADayInAnyOrderAreNotADate)
{
    for (const DateOrder& order : allOrders) {
        for (const wchar_t* const text : {L"13/32/2002", L"31/31/2002", L"0/1/2002", L"1/0/2002", L"0/0/0",
                                          L"2002/13/13", L"2002/2002/1", L"1/2002/1", L"99/99/99"}) {
            EXPECT_EQ(dateOfNumbers(text, order), MaybeDate()) << std::wstring(text);
        }
    }
}

TEST(DateOfNumbers, TakesEverySeparatorAndBlanksBesideIt)
{
    for (const wchar_t* const text : {L"11/16/2002", L"11-16-2002", L"11.16.2002", L"11 16 2002",
                                      L"11. 16. 2002", L"11/16-2002", L"11 / 16 / 2002", L"11  16  2002"}) {
        EXPECT_EQ(dateOfNumbers(text, monthDayYear), november16) << std::wstring(text);
    }
    EXPECT_EQ(dateOfNumbers(L"16. 11. 2002", dateOrderOf(L"d. M. yyyy")), november16);
}

TEST(DateOfNumbers, MayEndWithASeparatorAndBeginWithBlanks)
{
    EXPECT_EQ(dateOfNumbers(L"16.11.2002.", dayMonthYear), november16);
    EXPECT_EQ(dateOfNumbers(L"2002. 11. 16. ", yearMonthDay), november16);
    EXPECT_EQ(dateOfNumbers(L"  11/16/2002  ", monthDayYear), november16);
}

TEST(DateOfNumbers, MayBePaddedWithZeroes)
{
    EXPECT_EQ(dateOfNumbers(L"01/02/2003", monthDayYear), (SiteDate{2003, 1, 2}));
    EXPECT_EQ(dateOfNumbers(L"001/02/2003", monthDayYear), MaybeDate());
    EXPECT_EQ(dateOfNumbers(L"01/002/2003", monthDayYear), MaybeDate());
}

TEST(DateOfNumbers, IsThreeOfThemNoMoreAndNoLess)
{
    for (const wchar_t* const text :
         {L"11", L"11/16", L"11/2002", L"20021116", L"11/16/2002/1", L"11/16/20 02", L"1.1.1.1"}) {
        EXPECT_EQ(dateOfNumbers(text, monthDayYear), MaybeDate()) << std::wstring(text);
    }
}

TEST(DateOfNumbers, OfAnyLengthAreHarmless)
{
    for (const std::size_t digits : {5U, 9U, 10U, 11U, 19U, 20U, 100'000U}) {
        const std::wstring number(digits, L'9');
        EXPECT_EQ(dateOfNumbers(L"11/16/" + number, monthDayYear), MaybeDate()) << digits;
        EXPECT_EQ(dateOfNumbers(number + L"/11/16", yearMonthDay), MaybeDate()) << digits;
        EXPECT_EQ(dateOfNumbers(L"11/16/2002/" + number, monthDayYear), MaybeDate()) << digits;
        EXPECT_EQ(dateOfNumbers(L"11/16/" + std::wstring(digits - 2, L'0') + L"02", monthDayYear),
                  MaybeDate())
            << digits;
    }
}

TEST(DateOfNumbers, InATextThatIsNotADateAreIgnored)
{
    for (const wchar_t* const text : {L"",
                                      L" ",
                                      L"/",
                                      L"//",
                                      L"...",
                                      L"never",
                                      L"yesterday",
                                      L"16 Nov 2002",
                                      L"11/16/2002x",
                                      L"x11/16/2002",
                                      L"11/16/2002 10:00",
                                      L"11:16:2002",
                                      L"11,16,2002",
                                      L"11_16_2002",
                                      L"-11/16/2002",
                                      L"/11/16/2002",
                                      L"+1/2/2003",
                                      L"1/2/2003|",
                                      L"１１/１６/２００２",
                                      L"11\t16\t2002"}) {
        EXPECT_EQ(dateOfNumbers(text, monthDayYear), MaybeDate()) << std::wstring(text);
    }
    EXPECT_EQ(dateOfNumbers(std::wstring_view(L"11/16/20\00002", 11), monthDayYear), MaybeDate());
}

TEST(MonthDayYearText, HasTwoTwoAndFourDigits)
{
    EXPECT_EQ(monthDayYearText(november16), L"11-16-2002");
    EXPECT_EQ(monthDayYearText({2003, 1, 2}), L"01-02-2003");
    EXPECT_EQ(monthDayYearText({2003, 10, 9}), L"10-09-2003");
    EXPECT_EQ(monthDayYearText({205, 1, 31}), L"01-31-0205");
    EXPECT_EQ(monthDayYearText({9999, 12, 31}), L"12-31-9999");
}

} // namespace
} // namespace vandrel

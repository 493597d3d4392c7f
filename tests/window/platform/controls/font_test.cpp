#include "platform/controls/font.h"

#include "platform/text/clock.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

LOGFONTW madeOf(const FontDescription& description, unsigned dpi = 96)
{
    const FontHandle font = makeFont(description, dpi);
    LOGFONTW made{};
    GetObjectW(font.get(), sizeof made, &made);
    return made;
}

TEST(Font, ItsHeightIsThatOfItsPointsAtTheDpi)
{
    EXPECT_EQ(madeOf({L"Arial", 9}, 96).lfHeight, -12);
    EXPECT_EQ(madeOf({L"Arial", 9}, 144).lfHeight, -18);
    EXPECT_EQ(madeOf({L"Arial", 72}, 240).lfHeight, -240);
}

TEST(Font, BoldAndItalicAreIndependent)
{
    EXPECT_EQ(madeOf({}).lfWeight, FW_NORMAL);
    EXPECT_EQ(madeOf({}).lfItalic, 0);
    EXPECT_EQ(madeOf({L"Arial", 8, true}).lfWeight, FW_BOLD);
    EXPECT_EQ(madeOf({L"Arial", 8, true}).lfItalic, 0);
    EXPECT_NE(madeOf({L"Arial", 8, false, true}).lfItalic, 0);
}

TEST(Font, HowItsLettersAreSmoothedIsUpToTheUser) { EXPECT_EQ(madeOf({}).lfQuality, DEFAULT_QUALITY); }

TEST(Font, AnyNameAndSizeMakesAFont)
{
    EXPECT_EQ(std::wstring(madeOf({std::wstring(100, L'x'), 8}).lfFaceName), std::wstring(31, L'x'));
    for (const int size : {0, -3, 1, 500}) EXPECT_TRUE(makeFont({L"No such font", size}, 96)) << size;
}

TEST(Font, ATextIsAsWideAsItsLettersAndAsHighAsALine)
{
    const FontHandle font = makeFont({L"Arial", 10}, 96);
    const SIZE none = textSize(font.get(), L"");
    const SIZE one = textSize(font.get(), L"W");
    const SIZE two = textSize(font.get(), L"WW");
    EXPECT_EQ(none.cx, 0);
    EXPECT_GT(one.cx, 0);
    EXPECT_NEAR(two.cx, 2 * one.cx, 1);
    EXPECT_GE(none.cy, 12);
    EXPECT_EQ(none.cy, one.cy);
    const FontHandle larger = makeFont({L"Arial", 20}, 96);
    EXPECT_GT(textSize(larger.get(), L"W").cy, one.cy);
}

TEST(Clock, TodayIsTheLocalDateInTheUsersShortForm)
{
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    std::wstring today;
    do { // repeated when midnight comes in between
        GetLocalTime(&before);
        today = todayAsText();
        GetLocalTime(&after);
    } while (before.wDay != after.wDay);
    wchar_t expected[64]{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &before, nullptr, expected, 64);
    EXPECT_EQ(today, expected);
    EXPECT_NE(today.find(std::to_wstring(before.wDay)), std::wstring::npos);
    EXPECT_EQ(today.find(L':'), std::wstring::npos);
}

} // namespace
} // namespace vandrel::test

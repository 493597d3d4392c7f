#include "bookmarks/add_date.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

TEST(AddDate, IsReadInSeconds)
{
    EXPECT_EQ(addDateOf("1037404800"), 1037404800);
    EXPECT_EQ(addDateOf(" 1037404800\r\n"), 1037404800);
    EXPECT_EQ(addDateOf("1"), 1);
    EXPECT_EQ(addDateOf("100000000000"), 100'000'000'000);
}

TEST(AddDate, IsReadInMillisecondsAndMicrosecondsAsWell)
{
    EXPECT_EQ(addDateOf("1037404800123"), 1037404800);
    EXPECT_EQ(addDateOf("1037404800123456"), 1037404800);
}

TEST(AddDate, IsNoneWhenItIsNoTime)
{
    for (const std::string_view text : {"", " ", "0", "-1", "+1", "soon", "12x", "1.5", "0x10",
                                        "9223372036854775807", "99999999999999999999"})
        EXPECT_EQ(addDateOf(text), std::nullopt) << text;
}

TEST(AddDate, OfADayIsItsNoon)
{
    EXPECT_EQ(addDateOf(SiteDate{2002, 11, 16}), 1037448000);
    EXPECT_EQ(addDateOf(SiteDate{1970, 1, 1}), 43200);
    EXPECT_EQ(addDateOf(SiteDate{2000, 2, 29}), 951825600);
    EXPECT_EQ(addDateOf(SiteDate{2038, 1, 20}), 2147601600);
}

TEST(AddDate, OfADayBefore1970IsNone)
{
    EXPECT_EQ(addDateOf(SiteDate{1969, 12, 31}), std::nullopt);
    EXPECT_EQ(addDateOf(SiteDate{100, 1, 1}), std::nullopt);
}

// As far as seconds are not taken for milliseconds.
TEST(AddDate, IsReadAsItIsWritten)
{
    for (int year = 1970; year < 5138; ++year) {
        const auto added = addDateOf(SiteDate{year, 6, 15});
        EXPECT_EQ(addDateOf(std::to_string(added.value_or(0))), added);
    }
}

} // namespace
} // namespace vandrel::test

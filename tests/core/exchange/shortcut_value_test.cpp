#include "exchange/shortcut_value.h"

#include <gtest/gtest.h>

#include <string>

namespace vandrel::test {
namespace {

TEST(ShortcutValue, IsTheOneThatWasWritten)
{
    EXPECT_TRUE(readsBack(L"http://a/?b=c&d=%20;e#f", L"http://a/?b=c&d=%20;e#f"));
    EXPECT_TRUE(readsBack(L"", L""));
}

TEST(ShortcutValue, DiffersWhenNothingOrTheOldOneIsRead)
{
    EXPECT_FALSE(readsBack(L"http://a/", L""));
    EXPECT_FALSE(readsBack(L"", L"http://old/"));
    EXPECT_FALSE(readsBack(L"http://new/", L"http://old/"));
    EXPECT_FALSE(readsBack(L"http://a/page", L"http://a/"))
        << "the beginning alone, and not for want of room";
    EXPECT_FALSE(readsBack(L"http://a/", L"http://a/page"));
}

TEST(ShortcutValue, MayLoseBlanksQuotesAndWhatFollowsALineEnd)
{
    EXPECT_TRUE(readsBack(L"  http://a/b c\t", L"http://a/b c"));
    EXPECT_TRUE(readsBack(L"\"http://a/\"", L"http://a/"));
    EXPECT_TRUE(readsBack(L"'http://a/'", L"http://a/"));
    EXPECT_TRUE(readsBack(L"http://a/\nb", L"http://a/"));
    EXPECT_TRUE(readsBack(std::wstring(L"http://a/\0b", 11), L"http://a/"));
}

TEST(ShortcutValue, MayLoseLettersThatTheCodePageLacks)
{
    EXPECT_TRUE(readsBack(L"http://\u65E5\u672C/?x", L"http://?\?/?x"));
    EXPECT_TRUE(readsBack(L"http://\u65E5/", L"http://\u65E5/"));
}

TEST(ShortcutValue, MayBeCutWhenItIsLong)
{
    const std::wstring url = L"http://" + std::wstring(1000, L'x');
    EXPECT_TRUE(readsBack(url, url.substr(0, 254)));
    EXPECT_FALSE(readsBack(url, url.substr(0, 50)));
    EXPECT_FALSE(readsBack(url, L"y" + url.substr(1, 253)));
}

} // namespace
} // namespace vandrel::test

#include "model/site_record.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

TEST(LineEnds, EachOfThemIsOneBlank)
{
    EXPECT_TRUE(withoutLineEnds(L"a\r\nb") == L"a b");
    EXPECT_TRUE(withoutLineEnds(L"a\nb\rc") == L"a b c");
    EXPECT_TRUE(withoutLineEnds(L"\r\n\r\n") == L"  ");
    EXPECT_TRUE(withoutLineEnds(L"\n\r\n\r") == L"   ") << "LF, CR LF, CR";
}

TEST(LineEnds, TextsWithoutOneStayAsTheyAre)
{
    EXPECT_TRUE(withoutLineEnds(L"").empty());
    EXPECT_TRUE(withoutLineEnds(L" a|b\t;\u00fc ") == L" a|b\t;\u00fc ");
}

} // namespace
} // namespace vandrel::test

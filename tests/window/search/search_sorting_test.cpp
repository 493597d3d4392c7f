#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

class SearchSorting : public SearchTest {
  protected:
    SearchSorting()
    {
        folder.write(L"A.udb", "beta|http://3/|x|\r\nalpha|http://1/|z|\r\n");
        folder.write(L"B.udb", "gamma|http://2/|y|\r\n");
        start();
        open();
        find(L"");
    }
};

TEST_F(SearchSorting, TheFirstClickSortsDescendingAndEveryClickReversesTheOrder)
{
    EXPECT_EQ(found(), (Lines{L"beta", L"alpha", L"gamma"})) << "unsorted at first";
    clickHeader(search().results(), 0);
    EXPECT_EQ(found(), (Lines{L"gamma", L"beta", L"alpha"}));
    clickHeader(search().results(), 0);
    EXPECT_EQ(found(), (Lines{L"alpha", L"beta", L"gamma"}));
    clickHeader(search().results(), 0);
    EXPECT_EQ(found(), (Lines{L"gamma", L"beta", L"alpha"}));
}

TEST_F(SearchSorting, AClickOnAnotherColumnReversesTheOrderToo)
{
    clickHeader(search().results(), 0);
    clickHeader(search().results(), 1);
    EXPECT_EQ(found(1), (Lines{L"http://1/", L"http://2/", L"http://3/"}));
    clickHeader(search().results(), 2);
    EXPECT_EQ(found(2), (Lines{L"B", L"A", L"A"}));
    clickHeader(search().results(), 3);
    EXPECT_EQ(found(3), (Lines{L"x", L"y", L"z"}));
}

TEST_F(SearchSorting, TheNextSearchIsSortedTheSameWay)
{
    clickHeader(search().results(), 0);
    find(L"a");
    EXPECT_EQ(found(), (Lines{L"gamma", L"beta", L"alpha"}));
    EXPECT_TRUE(search().results().isSelected(0)) << "the first row as it is shown";
    EXPECT_EQ(search().results().selectedCount(), 1U);
    clickHeader(search().results(), 0);
    EXPECT_EQ(found(), (Lines{L"alpha", L"beta", L"gamma"})) << "and turns on the next click";
}

} // namespace
} // namespace vandrel::test

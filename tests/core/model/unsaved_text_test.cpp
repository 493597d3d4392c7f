#include "model/unsaved_text.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

TEST(UnsavedText, OneSiteAndSeveralAreToldApart)
{
    EXPECT_TRUE(notSavedText(1) == L"1 site not saved.");
    EXPECT_TRUE(notSavedText(12) == L"12 sites not saved.");
    EXPECT_TRUE(addToCategoryText(1, L"News") == L"1 site is not saved. Add it to \"News\"?");
    EXPECT_TRUE(addToCategoryText(3, L"News") == L"3 sites are not saved. Add them to \"News\"?");
    EXPECT_TRUE(makeCategoryText(1) == L"1 site is not saved. Make a category for it?");
    EXPECT_TRUE(makeCategoryText(2) == L"2 sites are not saved. Make a category for them?");
}

TEST(UnsavedText, ChangesThatCannotBeSavedComeWithTheReason)
{
    EXPECT_TRUE(discardText(L"Work", L"Disk full") ==
                L"The changes to \"Work\" could not be saved: Disk full.\r\n\r\nDiscard them?");
    EXPECT_TRUE(tryAgainText(L"Work", L"Disk full") ==
                L"The changes to \"Work\" could not be saved: Disk full.\r\n\r\nTry again?");
}

} // namespace
} // namespace vandrel::test

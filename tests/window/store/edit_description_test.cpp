#include "store/site_operations.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class EditingADescription : public StoreTest {
  protected:
    void startWithTwo()
    {
        folder.write(L"Work.udb", "A|a|old|1\r\nB|b|other|2\r\n");
        start();
    }
    void answer(const std::wstring& text)
    {
        Answers answers;
        answers.expectInput(L"Enter Description", L"Enter a new description for this site.", text);
        EditDescription(workspace());
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(EditingADescription, SetsItKeepsTheDateAndSaves)
{
    startWithTwo();
    selectSites({0});
    answer(L"brand new");
    EXPECT_EQ(sites().front(), L"A|a|brand new|1");
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|brand new|1\r\nB|b|other|2\r\n");
}

TEST_F(EditingADescription, BlanksOrNothingKeepTheOldOne)
{
    startWithTwo();
    selectSites({0});
    for (const wchar_t* const text : {L"", L" ", L"    "}) {
        answer(text);
        EXPECT_EQ(folder.read(L"Work.udb"), "A|a|old|1\r\nB|b|other|2\r\n");
    }
}

TEST_F(EditingADescription, CancelKeepsTheOldOneAndSavesTheList)
{
    startWithTwo();
    selectSites({0});
    folder.write(L"Work.udb", "");
    Answers answers;
    answers.cancelInput(L"Enter Description");
    EditDescription(workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|old|1\r\nB|b|other|2\r\n");
}

TEST_F(EditingADescription, ItIsStoredAsTyped)
{
    startWithTwo();
    selectSites({0});
    answer(L"  x|y  ");
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|  x|y  |1\r\nB|b|other|2\r\n");
}

TEST_F(EditingADescription, OfSeveralSelectedSitesTheCurrentOneAloneChanges)
{
    startWithTwo();
    selectSites({0, 1});
    answer(L"new");
    EXPECT_EQ(sites(), (Lines{L"A|a|old|1", L"B|b|new|2"}));
}

TEST_F(EditingADescription, WithoutASelectedSiteNothingIsAskedOrWritten)
{
    startWithTwo();
    folder.write(L"Work.udb", "untouched");
    Answers answers;
    EditDescription(workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "untouched");
}

TEST_F(EditingADescription, WhenTheFileCannotBeWrittenTheListShowsTheUnsavedOne)
{
    startWithTwo();
    selectSites({0});
    makeReadOnly(L"Work.udb");
    Answers answers;
    answers.expectInput(L"Enter Description", L"Enter a new description for this site.", L"new");
    EXPECT_EQ(errorOf([&] { EditDescription(workspace()); }), 75);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites().front(), L"A|a|new|1");
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|old|1\r\nB|b|other|2\r\n");
}

} // namespace
} // namespace vandrel::test

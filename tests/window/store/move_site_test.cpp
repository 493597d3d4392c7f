#include "mainwindow/menu_entries.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class MovingASite : public StoreTest {
  protected:
    const std::string from = "1|a|x|1/1/2001\r\n2|b|y|2/2/2002\r\n3|c|z|3/3/2003\r\n";
    const std::string to = "9|q|r|9/9/2009\r\n";

    void startWithTwoCategories()
    {
        folder.write(L"From.udb", from);
        folder.write(L"To.udb", to);
        start();
    }
    void moveTo(const std::wstring& title)
    {
        const Lines entries = moveEntries();
        const auto entry = std::find(entries.begin(), entries.end(), title);
        ASSERT_NE(entry, entries.end());
        choose(firstMoveEntry + static_cast<int>(entry - entries.begin()));
    }
    void expectNothingMoved()
    {
        EXPECT_EQ(folder.read(L"From.udb"), from);
        EXPECT_EQ(folder.read(L"To.udb"), to);
        EXPECT_EQ(selectedTitle(), L"From");
        EXPECT_EQ(column(lstInfo()), (Lines{L"1", L"2", L"3"}));
    }
};

TEST_F(MovingASite, TakesItFromOneFileAndPutsItWithoutADateIntoTheOther)
{
    startWithTwoCategories();
    selectSites({1});
    moveTo(L"To");
    EXPECT_EQ(folder.read(L"From.udb"), "1|a|x|1/1/2001\r\n3|c|z|3/3/2003\r\n");
    EXPECT_EQ(folder.read(L"To.udb"), "9|q|r|9/9/2009\r\n2|b|y|\r\n");
}

TEST_F(MovingASite, TheTargetIsSelectedAndOpenAfterwards)
{
    startWithTwoCategories();
    selectSites({1});
    moveTo(L"To");
    EXPECT_EQ(selectedTitle(), L"To");
    EXPECT_EQ(main->caption(), L"Vandrel - To");
    EXPECT_EQ(categoryRows().image(0), 3);
    EXPECT_EQ(categoryRows().image(1), 4);
    EXPECT_EQ(sites(), (Lines{L"9|q|r|9/9/2009", L"2|b|y|"}));
    EXPECT_EQ(siteRows().image(1), 1);
}

TEST_F(MovingASite, OfSeveralSelectedSitesTheCurrentOneAloneMoves)
{
    startWithTwoCategories();
    selectSites({0, 1, 2});
    moveTo(L"To");
    EXPECT_EQ(folder.read(L"From.udb"), "1|a|x|1/1/2001\r\n2|b|y|2/2/2002\r\n");
    EXPECT_EQ(folder.read(L"To.udb"), "9|q|r|9/9/2009\r\n3|c|z|\r\n");
}

TEST_F(MovingASite, WithoutASelectedSiteNothingHappens)
{
    startWithTwoCategories();
    moveTo(L"To");
    expectNothingMoved();
}

TEST_F(MovingASite, OfTwoCategoriesWithOneTitleTheFirstGetsIt)
{
    startWithTwoCategories();
    categoryRows().add({L"To"}, closedFolderImage);
    selectSites({1});
    workspace().mnuMove.load();
    workspace().mnuMove.setCaption(2, L"To");
    choose(firstMoveEntry + 2);
    EXPECT_EQ(lstCategory().currentRow(), std::optional<std::size_t>(1));
    EXPECT_EQ(folder.read(L"To.udb"), "9|q|r|9/9/2009\r\n2|b|y|\r\n");
}

TEST_F(MovingASite, TitlesAreComparedExactly)
{
    startWithTwoCategories();
    categoryRows().clear();
    for (const wchar_t* const title : {L"From", L"TO", L"To"}) categoryRows().add({title}, closedFolderImage);
    clickCategory(L"From");
    selectSites({0});
    moveTo(L"To");
    EXPECT_EQ(lstCategory().currentRow(), std::optional<std::size_t>(2));
}

TEST_F(MovingASite, ToATitleWithAnAmpersandWorks)
{
    folder.write(L"From.udb", from);
    folder.write(L"R & D.udb", "");
    start();
    selectSites({0});
    moveTo(L"R & D");
    EXPECT_EQ(folder.read(L"R & D.udb"), "1|a|x|\r\n");
}

TEST_F(MovingASite, ToItsOwnCategoryPutsItAtTheEndWithoutItsDate)
{
    startWithTwoCategories();
    selectSites({0});
    moveTo(L"From");
    EXPECT_EQ(folder.read(L"From.udb"), "2|b|y|2/2/2002\r\n3|c|z|3/3/2003\r\n1|a|x|\r\n");
}

TEST_F(MovingASite, AnEntryWhoseCategoryHasGoneMovesNothing)
{
    startWithTwoCategories();
    selectSites({0});
    categoryRows().remove(1);
    moveTo(L"To");
    expectNothingMoved();
}

TEST_F(MovingASite, AMissingTargetFileIsMadeAgain)
{
    startWithTwoCategories();
    DeleteFileW(folder.file(L"To.udb").c_str());
    selectSites({0});
    moveTo(L"To");
    EXPECT_EQ(folder.read(L"To.udb"), "1|a|x|\r\n");
}

TEST_F(MovingASite, FromASortedListLeavesTheOthersInTheShownOrder)
{
    startWithTwoCategories();
    lstInfo().ColumnClick(0); // descending
    selectSites({0});
    moveTo(L"To");
    EXPECT_EQ(folder.read(L"From.udb"), "2|b|y|2/2/2002\r\n1|a|x|1/1/2001\r\n");
    EXPECT_EQ(folder.read(L"To.udb"), "9|q|r|9/9/2009\r\n3|c|z|\r\n");
}

// ---- what cannot be saved

TEST_F(MovingASite, WhenTheTargetCannotBeSavedTheSiteIsBackWhereItWasWithItsDate)
{
    startWithTwoCategories();
    makeReadOnly(L"To.udb");
    selectSites({1});
    Answers answers;
    expectErrorBox(answers, 75, L"Path/File access error");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    expectNothingMoved();
}

TEST_F(MovingASite, WhenTheTargetCannotEvenBeReadTheSiteIsBackWhereItWasWithItsDate)
{
    startWithTwoCategories();
    DeleteFileW(folder.file(L"To.udb").c_str());
    makeFolder(L"To.udb");
    selectSites({2});
    Answers answers;
    answers.expect(L"Vandrel", pressing(IDOK));
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"From.udb"), from);
    EXPECT_EQ(selectedTitle(), L"From");
    EXPECT_EQ(sites().back(), L"3|c|z|3/3/2003");
}

TEST_F(MovingASite, ATargetThatAnotherProgramHoldsKeepsItsSites)
{
    startWithTwoCategories();
    HeldFile held(folder.file(L"To.udb"));
    selectSites({2});
    Answers answers;
    expectErrorBox(answers, 70, L"Permission denied");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    held.release();
    expectNothingMoved();
}

TEST_F(MovingASite, WhenTheSourceCannotBeSavedTheTargetIsAsItWasByteForByte)
{
    const std::string odd = ";remark\r\nno site\r\n9|q|r|9/9/2009";
    startWithTwoCategories();
    folder.write(L"To.udb", odd);
    makeReadOnly(L"From.udb");
    selectSites({1});
    Answers answers;
    expectErrorBox(answers, 75, L"Path/File access error");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"To.udb"), odd);
    folder.write(L"To.udb", to);
    expectNothingMoved();
    EXPECT_EQ(lstInfo().currentRow(), std::optional<std::size_t>(1));
}

TEST_F(MovingASite, WhenTheSourceCannotBeSavedATargetThatWasMissingIsMissingAgain)
{
    startWithTwoCategories();
    DeleteFileW(folder.file(L"To.udb").c_str());
    makeReadOnly(L"From.udb");
    selectSites({1});
    Answers answers;
    expectErrorBox(answers, 75, L"Path/File access error");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.names(), Lines{L"From.udb"});
    EXPECT_EQ(column(lstInfo()), (Lines{L"1", L"2", L"3"}));
}

TEST_F(MovingASite, WhenTheSourceCannotBeSavedTheNextSaveStillHasTheSite)
{
    startWithTwoCategories();
    makeReadOnly(L"From.udb");
    selectSites({1});
    Answers answers;
    expectErrorBox(answers, 75, L"Path/File access error");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    SetFileAttributesW(folder.file(L"From.udb").c_str(), FILE_ATTRIBUTE_NORMAL);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"From.udb"), from);
}

// On Windows both titles mean the same file.
TEST_F(MovingASite, ToTheSameFileInAnotherCaseLosesNothing)
{
    startWithTwoCategories();
    categoryRows().add({L"FROM"}, closedFolderImage);
    DoMoveMenus(workspace());
    selectSites({0});
    moveTo(L"FROM");
    EXPECT_EQ(folder.read(L"From.udb"), "2|b|y|2/2/2002\r\n3|c|z|3/3/2003\r\n1|a|x|\r\n");
    EXPECT_EQ(sites().size(), 3U);
    EXPECT_EQ(selectedTitle(), L"FROM");
}

TEST_F(MovingASite, FromACategoryThatCouldNotBeReadIsRefused)
{
    startWithTwoCategories();
    const HeldFile held(folder.file(L"From.udb"));
    clickCategory(L"From");
    siteRows().add({L"new", L"n", L"", L""}, siteImage);
    selectSites({0});
    Answers answers;
    expectErrorBox(answers, 70, L"Permission denied");
    moveTo(L"To");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"To.udb"), to);
    EXPECT_EQ(column(lstInfo()), Lines{L"new"});
}

} // namespace
} // namespace vandrel::test

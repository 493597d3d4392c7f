#include "mainwindow/menu_entries.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class CategoryReading : public StoreTest {};

TEST_F(CategoryReading, CommentsAndLinesWithoutASeparatorAreNotSites)
{
    folder.write(L"Work.udb", ";note\r\nplain text\r\nA|B\r\n;C|D|E|F\r\n");
    start();
    EXPECT_EQ(sites(), Lines{L"A|B||"});
}

TEST_F(CategoryReading, ASemicolonAnywhereButInFrontIsPartOfTheSite)
{
    folder.write(L"Work.udb", " ;A|B;|;C|;D\r\n");
    start();
    EXPECT_EQ(sites(), Lines{L" ;A|B;|;C|;D"});
}

TEST_F(CategoryReading, TheFourFieldsStandInTheirColumns)
{
    folder.write(L"Work.udb", "News|http://news.example/|Daily|11/16/2002\r\n");
    start();
    ASSERT_EQ(lstInfo().count(), 1U);
    EXPECT_EQ(lstInfo().text(0, 0), L"News");
    EXPECT_EQ(lstInfo().text(0, 1), L"http://news.example/");
    EXPECT_EQ(lstInfo().text(0, 2), L"Daily");
    EXPECT_EQ(lstInfo().text(0, 3), L"11/16/2002");
}

TEST_F(CategoryReading, MissingPiecesAreEmptyAndPiecesAfterTheFourthAreLeftOut)
{
    folder.write(L"Work.udb", "A|\r\nB|b|c\r\nC|d|e|f|g|h\r\n|\r\n");
    start();
    EXPECT_EQ(sites(), (Lines{L"A|||", L"B|b|c|", L"C|d|e|f", L"|||"}));
}

TEST_F(CategoryReading, EmptyLinesAreSkipped)
{
    folder.write(L"Work.udb", "\r\nA|B\r\n\r\n\r\nC|D\r\n\r\n");
    start();
    EXPECT_EQ(sites(), (Lines{L"A|B||", L"C|D||"}));
}

TEST_F(CategoryReading, AnEmptyFileIsAnEmptyCategory)
{
    folder.write(L"Full.udb", "A|B\r\n");
    folder.write(L"Void.udb", "");
    start();
    clickCategory(L"Void");
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - Void");
}

TEST_F(CategoryReading, TheDateFieldIsShownAsItIs)
{
    folder.write(L"Work.udb", "A|B|C|yesterday, 31.02.99\r\n");
    start();
    EXPECT_EQ(lstInfo().text(0, 3), L"yesterday, 31.02.99");
}

TEST_F(CategoryReading, EverySiteHasTheSitePictureAndADeadMarkIsGone)
{
    folder.write(L"Work.udb", "A|B\r\nC|D\r\n");
    start();
    siteRows().setImage(1, deadSiteImage);
    clickCategory(L"Work");
    EXPECT_EQ(siteRows().image(0), 1);
    EXPECT_EQ(siteRows().image(1), 1);
}

TEST_F(CategoryReading, OnlyTheSelectedCategoryShowsTheOpenFolder)
{
    for (const wchar_t* const name : {L"A.udb", L"B.udb", L"C.udb"}) folder.write(name, "");
    start();
    clickCategory(L"C");
    EXPECT_EQ(categoryRows().image(0), 3);
    EXPECT_EQ(categoryRows().image(1), 3);
    EXPECT_EQ(categoryRows().image(2), 4);
    clickCategory(L"B");
    EXPECT_EQ(categoryRows().image(1), 4);
    EXPECT_EQ(categoryRows().image(2), 3);
}

TEST_F(CategoryReading, AnArrowKeyOpensTheNextCategory)
{
    folder.write(L"A.udb", "a|a\r\n");
    folder.write(L"B.udb", "b|b\r\n");
    start();
    SendMessageW(lstCategory().handle(), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(sites(), Lines{L"b|b||"});
    EXPECT_EQ(main->caption(), L"Vandrel - B");
}

TEST_F(CategoryReading, TheSitesStandInTheOrderOfTheFileThoughAHeaderWasClickedBefore)
{
    folder.write(L"A.udb", "1|a\r\n2|b\r\n");
    folder.write(L"B.udb", "2|x\r\n3|y\r\n1|z\r\n");
    start();
    lstInfo().ColumnClick(0);
    EXPECT_EQ(column(lstInfo()), (Lines{L"2", L"1"}));
    clickCategory(L"B");
    EXPECT_EQ(column(lstInfo()), (Lines{L"2", L"3", L"1"}));
    EXPECT_FALSE(siteRows().sorted());
    EXPECT_EQ(siteRows().sortKey(), 0U);
    EXPECT_EQ(siteRows().sortOrder(), SortOrder::descending);
}

TEST_F(CategoryReading, TheStatusBarKeepsTheLastSiteWhenNoneIsSelected)
{
    folder.write(L"A.udb", "News|http://news/\r\n");
    folder.write(L"B.udb", "Other|http://other/\r\n");
    start();
    lstInfo().select(0);
    lstInfo().ItemClick(0);
    EXPECT_EQ(workspace().StatusBar1.panelText(2), L"Name: News  ");
    EXPECT_EQ(workspace().StatusBar1.panelText(3), L"URL: http://news/  ");
    clickCategory(L"B");
    EXPECT_EQ(workspace().StatusBar1.panelText(2), L"Name: News  ");
    EXPECT_EQ(workspace().StatusBar1.panelText(3), L"URL: http://news/  ");
}

TEST_F(CategoryReading, ACategoryIsReadFromTheDiskEachTimeItIsClicked)
{
    folder.write(L"Work.udb", "A|B\r\n");
    start();
    folder.write(L"Work.udb", "C|D\r\nE|F\r\n");
    clickCategory(L"Work");
    EXPECT_EQ(sites(), (Lines{L"C|D||", L"E|F||"}));
}

TEST_F(CategoryReading, TheFileIsClosedAgain)
{
    folder.write(L"Work.udb", "A|B\r\n");
    start();
    HeldFile nobodyElseHasIt(folder.file(L"Work.udb"));
}

// ---- what cannot be read

TEST_F(CategoryReading, AFileThatVanishedGivesAnEmptyListAndNoMessage)
{
    folder.write(L"A.udb", "x|y\r\n");
    folder.write(L"B.udb", "x|y\r\n");
    start();
    DeleteFileW(folder.file(L"B.udb").c_str());
    EXPECT_EQ(errorOf([&] { clickCategory(L"B"); }), 0);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - B");
    EXPECT_EQ(categoryRows().image(1), 4);
    EXPECT_EQ(titles(), (Lines{L"A", L"B"}));
}

TEST_F(CategoryReading, AFileThatAnotherProgramHoldsGivesAnEmptyListAndNoMessage)
{
    folder.write(L"A.udb", "x|y\r\n");
    folder.write(L"B.udb", "x|y\r\n");
    start();
    const HeldFile held(folder.file(L"B.udb"));
    EXPECT_EQ(errorOf([&] { clickCategory(L"B"); }), 0);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - B");
}

TEST_F(CategoryReading, AFolderInPlaceOfTheFileGivesAnEmptyListAndNoMessage)
{
    folder.write(L"A.udb", "x|y\r\n");
    folder.write(L"B.udb", "x|y\r\n");
    start();
    DeleteFileW(folder.file(L"B.udb").c_str());
    makeFolder(L"B.udb");
    EXPECT_EQ(errorOf([&] { clickCategory(L"B"); }), 0);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - B");
}

TEST_F(CategoryReading, AfterAFailureTheNextCategoryIsReadAsEver)
{
    folder.write(L"A.udb", "x|y\r\n");
    folder.write(L"B.udb", "x|y\r\n");
    start();
    DeleteFileW(folder.file(L"B.udb").c_str());
    clickCategory(L"B");
    clickCategory(L"A");
    EXPECT_EQ(sites(), Lines{L"x|y||"});
}

TEST_F(CategoryReading, OfAFolderThatHasGoneIsNotAnEmptyCategory)
{
    folder.write(L"Work.udb", "A|a\r\n");
    folder.write(L"Zoo.udb", "Z|z\r\n");
    start();
    const std::wstring away = folder.path() + L" away";
    ASSERT_TRUE(MoveFileW(folder.path().c_str(), away.c_str()));
    clickCategory(L"Zoo");
    EXPECT_TRUE(lstInfo().empty());
    ASSERT_TRUE(MoveFileW(away.c_str(), folder.path().c_str()));
    workspace().shown.sites.add({L"new", L"n", L"", L""}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Zoo.udb"), "Z|z||\r\nnew|n||\r\n");
}

TEST_F(CategoryReading, OfAMissingFileInAFolderThatIsThereIsAnEmptyCategory)
{
    folder.write(L"Work.udb", "A|a\r\n");
    folder.write(L"Zoo.udb", "Z|z\r\n");
    start();
    DeleteFileW(folder.file(L"Zoo.udb").c_str());
    clickCategory(L"Zoo");
    siteRows().add({L"new", L"n", L"", L""}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Zoo.udb"), "new|n||\r\n");
}

} // namespace
} // namespace vandrel::test

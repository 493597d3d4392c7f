#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class SavingACategory : public StoreTest {};

TEST_F(SavingACategory, WritesEachSiteAsOneLineOfFourFields)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    siteRows().add({L"B", L"http://b/", L"two words", L"1/2/2003"}, siteImage);
    siteRows().add({L"", L"", L"", L""}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a||\r\nB|http://b/|two words|1/2/2003\r\n|||\r\n");
}

TEST_F(SavingACategory, WritesAnEmptyFileForAnEmptyList)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    siteRows().clear();
    SaveItems(workspace());
    EXPECT_TRUE(folder.has(L"Work.udb"));
    EXPECT_EQ(folder.read(L"Work.udb"), "");
}

TEST_F(SavingACategory, RewritesTheWholeFileAndLeavesNothingBesideIt)
{
    folder.write(L"Work.udb", ";comment\r\nnoise\r\nA|a|x|1\r\nB|b|y|2\r\n");
    folder.write(L"Other.udb", "C|c\r\n");
    start();
    clickCategory(L"Work");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|x|1\r\nB|b|y|2\r\n");
    EXPECT_EQ(folder.read(L"Other.udb"), "C|c\r\n");
    EXPECT_EQ(folder.names(), (Lines{L"Other.udb", L"Work.udb"}));
}

TEST_F(SavingACategory, WritesTheOrderThatTheListShows)
{
    folder.write(L"Work.udb", "B|1|m|\r\nC|2|k|\r\nA|3|l|\r\n");
    start();
    lstInfo().ColumnClick(0); // descending first
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "C|2|k|\r\nB|1|m|\r\nA|3|l|\r\n");
    lstInfo().ColumnClick(2); // ascending now
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "C|2|k|\r\nA|3|l|\r\nB|1|m|\r\n");
}

TEST_F(SavingACategory, ReadingAndSavingAloneChangesNoOrder)
{
    const std::string bytes = "B|1||\r\nA|3||\r\nC|2||\r\n";
    folder.write(L"Work.udb", bytes);
    start();
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), bytes);
}

TEST_F(SavingACategory, ASeparatorInADescriptionMakesAFifthPieceAndTheDateIsLostOnReading)
{
    folder.write(L"Work.udb", "A|http://a/|x|11/16/2002\r\n");
    start();
    siteRows().setText(0, 2, L"a|b");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|http://a/|a|b|11/16/2002\r\n");
    clickCategory(L"Work");
    EXPECT_EQ(lstInfo().text(0, 2), L"a");
    EXPECT_EQ(lstInfo().text(0, 3), L"b");
}

TEST_F(SavingACategory, TheDeadMarkOfASiteIsNotKept)
{
    const std::string bytes = "A|a|x|1\r\nB|b|y|2\r\n";
    folder.write(L"Work.udb", bytes);
    start();
    siteRows().setImage(0, deadSiteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), bytes);
}

TEST_F(SavingACategory, LettersOutsideTheCodePageBecomeQuestionMarksAndNeverASeparator)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the letters are chosen for code page 1252";
    folder.write(L"Work.udb", "");
    start();
    // A Polish letter, the full-width bar that a best fit would turn into "|", and letters of the code
    // page.
    siteRows().add({L"\u0141\u00F3d\u017A", L"a\uFF5Cb", L"\u20AC \u00FC", L"1"}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "?\xF3"
                                        "d?|a?b|\x80 \xFC|1\r\n");
}

TEST_F(SavingACategory, OverwritesWhatAnotherProgramPutThereMeanwhile)
{
    folder.write(L"Work.udb", "A|a|x|1\r\n");
    start();
    folder.write(L"Work.udb", "Z|z|z|9\r\n");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|x|1\r\n");
}

TEST_F(SavingACategory, MakesAFileAgainThatHasVanishedWhileItWasShown)
{
    folder.write(L"Work.udb", "A|a|x|1\r\n");
    start();
    DeleteFileW(folder.file(L"Work.udb").c_str());
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a|x|1\r\n");
}

TEST_F(SavingACategory, MakesAFileAgainThatHadVanishedWhenItWasClicked)
{
    folder.write(L"Work.udb", "A|a|x|1\r\n");
    start();
    DeleteFileW(folder.file(L"Work.udb").c_str());
    clickCategory(L"Work");
    siteRows().add({L"B", L"b", L"", L"2"}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "B|b||2\r\n");
}

TEST_F(SavingACategory, TheFileIsClosedAgain)
{
    folder.write(L"Work.udb", "A|B\r\n");
    start();
    SaveItems(workspace());
    HeldFile nobodyElseHasIt(folder.file(L"Work.udb"));
}

TEST_F(SavingACategory, WithoutAShownCategoryTheFirstOneIsReadAndKeepsItsSites)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    showNoCategory(workspace());
    siteRows().add({L"B", L"b", L"", L""}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a||\r\nB|b||\r\n");
    EXPECT_EQ(selectedTitle(), L"Work");
}

TEST_F(SavingACategory, ATitleOutsideTheCodePageIsSaved)
{
    folder.write(L"Ksi\u0105\u017Cki.udb", "A|a|x|1\r\n");
    start();
    siteRows().setText(0, 2, L"y");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Ksi\u0105\u017Cki.udb"), "A|a|y|1\r\n");
    EXPECT_EQ(folder.names(), Lines{L"Ksi\u0105\u017Cki.udb"});
}

TEST_F(SavingACategory, TheLongestTitleThatAFileCanHaveIsSaved)
{
    const std::wstring title(251, L't');
    folder.write(title + L".udb", "A|a|x|1\r\n");
    start();
    ASSERT_EQ(titles(), Lines{title});
    siteRows().setText(0, 2, L"y");
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 0);
    EXPECT_EQ(folder.read(title + L".udb"), "A|a|y|1\r\n");
    EXPECT_EQ(folder.names(), Lines{title + L".udb"});
}

} // namespace
} // namespace vandrel::test

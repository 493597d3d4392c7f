#include "tests/program/support/program_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

// From an empty folder to a saved collection, by keyboard and mouse alone.
class MainJob : public ProgramTest {
  protected:
    std::string dated(const std::string& fields) const { return fields + "|" + today() + "\r\n"; }
};

TEST_F(MainJob, TheFirstSiteAsksForACategoryAndIsKeptInIt)
{
    start();
    EXPECT_EQ(program.caption(), L"Vandrel");
    program.addSite(L"News", L"http://news.example/", L"Daily");
    EXPECT_EQ(program.answerBox(L"No Categories"),
              L"There are no categories. Please make a category before adding a site.");
    program.dialog(L"Category Name");
    program.type(L"Papers");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(program.titles(), Texts{L"Papers"});
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - Papers"));
    EXPECT_SOON(folder.read(L"Papers.udb"), dated("News|http://news.example/|Daily"));
    EXPECT_EQ(categoryFiles(), Texts{L"Papers.udb"});
}

TEST_F(MainJob, ACategoryIsAFileAsSoonAsItsTitleIsEntered)
{
    start();
    program.addCategory(L"Work");
    EXPECT_SOON(categoryFiles(), Texts{L"Work.udb"});
    program.addCategory(L"Książki");
    EXPECT_SOON(categoryFiles(), (Texts{L"Książki.udb", L"Work.udb"}));
    EXPECT_EQ(folder.read(L"Work.udb"), "");
    EXPECT_EQ(program.titles().size(), 2U);
}

TEST_F(MainJob, AClickOnACategoryShowsItsSitesAndEveryAddedSiteIsOnDiskAtOnce)
{
    folder.write(L"A.udb", "");
    folder.write(L"B.udb", "Old|http://m/|x|1/1/2001\r\n");
    start();
    program.openCategory(L"B");
    EXPECT_SOON(program.column(0), Texts{L"Old"});

    program.addSite(L"First", L"http://a/", L"one");
    program.back();
    EXPECT_SOON(folder.read(L"B.udb"), dated("First|http://a/|one") + "Old|http://m/|x|1/1/2001\r\n");
    program.addSite(L"Last", L"http://z/", L"");
    program.back();
    EXPECT_SOON(folder.read(L"B.udb"),
                dated("First|http://a/|one") + "Old|http://m/|x|1/1/2001\r\n" + dated("Last|http://z/|"));
    EXPECT_EQ(program.column(1), (Texts{L"http://a/", L"http://m/", L"http://z/"}));
    EXPECT_EQ(folder.read(L"A.udb"), "");
}

TEST_F(MainJob, ASiteIsEditedThroughItsPopUpMenu)
{
    folder.write(L"A.udb", "One|http://1/|first|1/1/2001\r\nTwo|http://2/|second|1/1/2001\r\n");
    start();
    program.choose(program.sites(), 1, popEdit);
    program.dialog(L"Edit selected site...");
    EXPECT_EQ(program.focusText(), L"Two");
    program.type(L"Deux"); // its whole text is selected
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"http://2/"));
    program.key(VK_TAB);
    program.type(L"deuxième");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(L"A.udb"),
                "One|http://1/|first|1/1/2001\r\n" + dated("Deux|http://2/|deuxi\xE8me"));
    EXPECT_EQ(program.column(0), (Texts{L"One", L"Deux"}));
}

TEST_F(MainJob, DelRemovesTheSelectedSitesAfterYesAndNothingAfterNo)
{
    folder.write(L"A.udb", "1|a|||\r\n2|b|||\r\n3|c|||\r\n4|d|||\r\n");
    const std::string before = folder.read(L"A.udb");
    start();
    program.click(program.sites(), 1);
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: 2  "));
    program.key(VK_DOWN, {VK_SHIFT});
    EXPECT_SOON(program.controls().selectedRows(program.sites()), (std::vector{1, 2}));
    program.key(VK_DELETE);
    EXPECT_EQ(program.answerBox(L"Remove site(s)", IDNO), L"Remove selected site(s)?");
    program.back();
    EXPECT_EQ(program.siteCount(), 4);
    EXPECT_EQ(folder.read(L"A.udb"), before);

    program.key(VK_DELETE);
    program.answerBox(L"Remove site(s)", IDYES);
    program.back();
    EXPECT_SOON(program.column(0), (Texts{L"1", L"4"}));
    EXPECT_SOON(folder.read(L"A.udb"), std::string("1|a||\r\n4|d||\r\n"));
    EXPECT_EQ(program.panel(1), L"Remove successful.");
}

TEST_F(MainJob, MoveToInThePopUpTakesASiteToAnotherCategoryWithoutItsDate)
{
    folder.write(L"A.udb", "One|http://1/|first|1/1/2001\r\nTwo|http://2/|second|1/1/2001\r\n");
    folder.write(L"B.udb", "");
    folder.write(L"C.udb", "Here|http://h/||2/2/2002\r\n");
    start();
    const Texts titles = program.titles();
    const auto target = static_cast<int>(std::ranges::find(titles, L"C") - titles.begin());
    program.click(program.categories(), L"A");
    EXPECT_SOON(program.siteCount(), 2);
    program.choose(program.sites(), 0, popMoveTo, target);
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - C"));
    EXPECT_SOON(folder.read(L"C.udb"), std::string("Here|http://h/||2/2/2002\r\nOne|http://1/|first|\r\n"));
    EXPECT_EQ(folder.read(L"A.udb"), "Two|http://2/|second|1/1/2001\r\n");
    EXPECT_EQ(folder.read(L"B.udb"), "");
}

TEST_F(MainJob, ACategoryIsRenamedThroughItsPopUpMenu)
{
    folder.write(L"Work.udb", "One|http://1/||\r\n");
    start();
    program.choose(program.categories(), 0, popRenameCategory);
    EXPECT_TRUE(soon([&] { return program.labelEdit() != nullptr; }));
    program.retype(L"Leisure");
    program.key(VK_RETURN);
    EXPECT_SOON(program.titles(), Texts{L"Leisure"});
    EXPECT_SOON(categoryFiles(), Texts{L"Leisure.udb"});
    EXPECT_EQ(folder.read(L"Leisure.udb"), "One|http://1/||\r\n");
}

TEST_F(MainJob, F2WhileALabelIsEditedAddsNoCategory)
{
    folder.write(L"Work.udb", "");
    start();
    program.choose(program.categories(), 0, popRenameCategory);
    EXPECT_TRUE(soon([&] { return program.labelEdit() != nullptr; }));
    program.key(VK_F2);
    program.retype(L"Play");
    EXPECT_SOON(program.focusText(), std::wstring(L"Play"));
    EXPECT_FALSE(program.dialogIsOpen());
    program.key(VK_ESCAPE);
    EXPECT_SOON(program.labelEdit(), static_cast<HWND>(nullptr));
    EXPECT_EQ(program.titles(), Texts{L"Work"});
}

TEST_F(MainJob, TheNextSaveWritesTheOrderThatAHeaderClickMade)
{
    folder.write(L"A.udb", "b|u1|||\r\nc|u2|||\r\na|u3|||\r\n");
    start();
    program.clickHeader(program.sites(), 0); // the first click sorts down
    EXPECT_SOON(program.column(0), (Texts{L"c", L"b", L"a"}));
    EXPECT_EQ(folder.read(L"A.udb"), "b|u1|||\r\nc|u2|||\r\na|u3|||\r\n");
    program.clickHeader(program.sites(), 0);
    EXPECT_SOON(program.column(0), (Texts{L"a", L"b", L"c"}));
    program.click(program.sites(), 1);
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: b  "));
    program.key(VK_DELETE);
    program.answerBox(L"Remove site(s)", IDYES);
    program.back();
    EXPECT_SOON(folder.read(L"A.udb"), std::string("a|u3||\r\nc|u2||\r\n"));
}

TEST_F(MainJob, ShiftF2RemovesTheSelectedCategoryAndItsFileAfterYes)
{
    folder.write(L"A.udb", "One|u||\r\n");
    start();
    program.key(VK_F2, {VK_SHIFT});
    EXPECT_EQ(program.answerBox(L"Vandrel", IDYES), L"Remove category and all websites within?");
    program.back();
    EXPECT_SOON(program.titles(), Texts{});
    EXPECT_SOON(categoryFiles(), Texts{});
    EXPECT_EQ(program.siteCount(), 0);
}

} // namespace
} // namespace vandrel::test

#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

class AddingACategory : public StoreTest {
  protected:
    void add(const std::wstring& title)
    {
        Answers answers;
        expectTitle(answers, title);
        choose(mnuAddCategory);
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(AddingACategory, MakesAnEmptyFileAndAnItemWithTheClosedFolder)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    add(L"Play");
    EXPECT_EQ(titles(), (Lines{L"Work", L"Play"}));
    EXPECT_EQ(categoryRows().image(1), 3);
    ASSERT_TRUE(folder.has(L"Play.udb"));
    EXPECT_EQ(folder.read(L"Play.udb"), "");
    EXPECT_EQ(folder.names(), (Lines{L"Play.udb", L"Work.udb"}));
}

TEST_F(AddingACategory, SelectsNothingAndLeavesTheSitesOfThePreviousOne)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    add(L"Play");
    EXPECT_EQ(selectedTitle(), L"Work");
    EXPECT_EQ(sites(), Lines{L"A|a||"});
    EXPECT_EQ(main->caption(), L"Vandrel - Work");
    EXPECT_EQ(categoryRows().image(0), 4);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Play.udb"), "");
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a||\r\n");
}

TEST_F(AddingACategory, TheFirstOneIsNotSelectedEither)
{
    start();
    add(L"Work");
    EXPECT_EQ(selectedTitle(), L"(none)");
    EXPECT_EQ(main->caption(), L"Vandrel");
}

TEST_F(AddingACategory, PutsItIntoTheMoveToSubmenu)
{
    folder.write(L"Work.udb", "");
    start();
    add(L"Play");
    EXPECT_EQ(moveEntries(), (Lines{L"Work", L"Play"}));
}

TEST_F(AddingACategory, TakesItsPlaceInASortedList)
{
    folder.write(L"a.udb", "");
    folder.write(L"c.udb", "");
    start();
    lstCategory().ColumnClick(0); // descending first
    add(L"b");
    EXPECT_EQ(titles(), (Lines{L"c", L"b", L"a"}));
    EXPECT_EQ(moveEntries(), (Lines{L"c", L"b", L"a"}));
    EXPECT_EQ(selectedTitle(), L"a");
}

TEST_F(AddingACategory, AnEmptyOrBlankAnswerOrCancelChangesNothing)
{
    folder.write(L"Work.udb", "A|a\r\n");
    folder.write(L"Play.udb", "");
    start();
    const Lines before = titles();
    for (const wchar_t* const answer : {L"", L" ", L"   "}) add(answer);
    Answers answers;
    answers.cancelInput(L"Category Name");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), before);
    EXPECT_EQ(folder.names(), (Lines{L"Play.udb", L"Work.udb"}));
    EXPECT_EQ(moveEntries(), before);
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a\r\n");
}

TEST_F(AddingACategory, EachOfSixCharactersIsRefusedAndNothingIsMade)
{
    folder.write(L"Work.udb", "");
    start();
    for (const wchar_t* const title : {L"a:b", L"a\\b", L"a/b", L"a?b", L"a*b", L"a\"b", L"*"}) {
        Answers answers;
        expectTitle(answers, title);
        expectRefusal(answers);
        choose(mnuAddCategory);
        EXPECT_ANSWERED(answers) << title;
    }
    EXPECT_EQ(titles(), Lines{L"Work"});
    EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
}

TEST_F(AddingACategory, TheRefusalHasAnOkButtonAlone)
{
    start();
    std::vector<int> buttons;
    Answers answers;
    expectTitle(answers, L"a*b");
    answers.expect(invalidTitle, [&](HWND box) {
        buttons = buttonsOf(box);
        press(box, IDOK);
    });
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(buttons, std::vector<int>{IDOK});
}

TEST_F(AddingACategory, AfterARefusalTheMoveToSubmenuHasItsFirstEntryAloneUntilItIsBuiltAgain)
{
    for (const wchar_t* const name : {L"a.udb", L"b.udb", L"c.udb"}) folder.write(name, "");
    start();
    ASSERT_EQ(moveEntries(), (Lines{L"a", L"b", L"c"}));
    Answers answers;
    expectTitle(answers, L"x?");
    expectRefusal(answers);
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(moveEntries(), Lines{L"a"});
    EXPECT_EQ(GetMenuItemCount(main->menus().submenu(mnuMoveTo)), 1);
    add(L"d");
    EXPECT_EQ(moveEntries(), (Lines{L"a", L"b", L"c", L"d"}));
}

TEST_F(AddingACategory, WhileItAsksTheMoveToSubmenuHasItsFirstEntryAlone)
{
    folder.write(L"a.udb", "");
    folder.write(L"b.udb", "");
    start();
    std::size_t entries = 0;
    Answers answers;
    answers.expect(L"Category Name", [&](HWND box) {
        entries = workspace().mnuMove.count();
        press(box, IDCANCEL);
    });
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(entries, 1U);
    EXPECT_EQ(workspace().mnuMove.count(), 2U);
}

TEST_F(AddingACategory, WhatTheSystemRefusesRaisesAnErrorAndLeavesNothingBehind)
{
    folder.write(L"Work.udb", "A|a\r\n");
    folder.write(L"Play.udb", "");
    start();
    const Lines before = titles();
    for (const wchar_t* const title : {L"a<b", L"a>b", L"a|b"}) {
        Answers answers;
        expectTitle(answers, title);
        expectErrorBox(answers, 52, L"Bad file name or number");
        choose(mnuAddCategory);
        EXPECT_ANSWERED(answers) << title;
        EXPECT_EQ(titles(), before);
        EXPECT_EQ(moveEntries(), before);
    }
    EXPECT_EQ(folder.names(), (Lines{L"Play.udb", L"Work.udb"}));
    EXPECT_EQ(sites(), Lines{}) << "Play is still selected";
}

TEST_F(AddingACategory, TheSameTitleAgainEmptiesItsFileAndIsShownTwice)
{
    folder.write(L"Other.udb", "");
    folder.write(L"Work.udb", "A|a\r\nB|b\r\n");
    start();
    add(L"Work");
    EXPECT_EQ(titles(), (Lines{L"Other", L"Work", L"Work"}));
    EXPECT_EQ(folder.read(L"Work.udb"), "");
    EXPECT_EQ(folder.names(), (Lines{L"Other.udb", L"Work.udb"}));
}

TEST_F(AddingACategory, TheSameTitleInAnotherCaseEmptiesTheSameFile)
{
    folder.write(L"Work.udb", "A|a\r\nB|b\r\n");
    start();
    add(L"WORK");
    EXPECT_EQ(titles(), (Lines{L"Work", L"WORK"}));
    EXPECT_EQ(folder.names().size(), 1U);
    clickCategory(L"Work");
    EXPECT_TRUE(lstInfo().empty());
}

TEST_F(AddingACategory, AnExistingOneThatCannotBeEmptiedStaysWholeAndIsShownOnce)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    makeReadOnly(L"Work.udb");
    Answers answers;
    expectTitle(answers, L"Work");
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), Lines{L"Work"});
    EXPECT_EQ(folder.read(L"Work.udb"), "A|a\r\n");
    EXPECT_EQ(moveEntries(), Lines{L"Work"});
    EXPECT_EQ(selectedTitle(), L"Work");
}

TEST_F(AddingACategory, InASortedListTheSelectionStaysWithItsCategoryWhenTheFileCannotBeMade)
{
    folder.write(L"a.udb", "");
    folder.write(L"c.udb", "C|c\r\n");
    start();
    lstCategory().ColumnClick(0);
    clickCategory(L"a");
    Answers answers;
    expectTitle(answers, L"b<");
    expectErrorBox(answers, 52, L"Bad file name or number");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), (Lines{L"c", L"a"}));
    EXPECT_EQ(selectedTitle(), L"a");
}

TEST_F(AddingACategory, BlanksAroundTheTitleArePartOfTheFileName)
{
    start();
    add(L"  early");
    add(L"late ");
    EXPECT_EQ(titles(), (Lines{L"  early", L"late "}));
    EXPECT_EQ(folder.names(), (Lines{L"  early.udb", L"late .udb"}));
}

TEST_F(AddingACategory, AnyOtherTitleIsTaken)
{
    start();
    const Lines wanted{L"a.b", L"x.", L"R & D", L"Ksi\u0105\u017Cki", L"\u65E5\u672C", L";note", L"%TEMP%"};
    for (const std::wstring& title : wanted) {
        add(title);
        EXPECT_TRUE(folder.has(title + L".udb")) << title;
    }
    EXPECT_EQ(titles(), wanted);
    EXPECT_EQ(folder.names().size(), wanted.size());
}

TEST_F(AddingACategory, TheNameOfADeviceIsATitleLikeAnyOther)
{
    start();
    add(L"CON");
    clickCategory(L"CON");
    siteRows().add({L"A", L"a", L"", L"1"}, siteImage);
    SaveItems(workspace());
    clickCategory(L"CON");
    EXPECT_EQ(sites(), Lines{L"A|a||1"});
    // Under the form of its name that is not the device's: the clean-up after the test uses the other one.
    EXPECT_TRUE(DeleteFileW((L"\\\\?\\" + folder.file(L"CON.udb")).c_str()));
}

TEST_F(AddingACategory, ANewOneOpensEmptyAndTakesSites)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    add(L"Play");
    clickCategory(L"Play");
    EXPECT_TRUE(lstInfo().empty());
    siteRows().add({L"B", L"b", L"", L"1"}, siteImage);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Play.udb"), "B|b||1\r\n");
}

TEST_F(AddingACategory, EmptyingTheOneThatCouldNotBeReadMakesItSavableAgain)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    {
        const HeldFile held(folder.file(L"Work.udb"));
        clickCategory(L"Work");
    }
    add(L"Work");
    siteRows().add({L"B", L"b", L"", L"1"}, siteImage);
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 0);
    EXPECT_EQ(folder.read(L"Work.udb"), "B|b||1\r\n");
}

} // namespace
} // namespace vandrel::test

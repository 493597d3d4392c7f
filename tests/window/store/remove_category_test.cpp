#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

constexpr const wchar_t* removalQuestion = L"Remove category and all websites within?";

class RemovingACategory : public StoreTest {
  protected:
    void startWithThree()
    {
        folder.write(L"A.udb", "a|1\r\n");
        folder.write(L"B.udb", "b|2\r\n");
        folder.write(L"C.udb", "c|3\r\n");
        start();
        clickCategory(L"B");
    }
    void remove(int answer)
    {
        Answers answers;
        answers.expectBox(L"Vandrel", removalQuestion, answer, MB_ICONASTERISK);
        choose(mnuRemoveCategory);
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(RemovingACategory, DeletesItsFileRemovesItsItemAndEmptiesTheSiteList)
{
    startWithThree();
    remove(IDYES);
    EXPECT_EQ(titles(), (Lines{L"A", L"C"}));
    EXPECT_EQ(folder.names(), (Lines{L"A.udb", L"C.udb"}));
    EXPECT_TRUE(lstInfo().empty());
}

TEST_F(RemovingACategory, SelectsNoOtherAndKeepsTheCaptionAndTheMoveToEntries)
{
    startWithThree();
    remove(IDYES);
    EXPECT_EQ(selectedTitle(), L"(none)");
    EXPECT_EQ(lstCategory().selectedCount(), 0U);
    EXPECT_EQ(main->caption(), L"Vandrel - B");
    EXPECT_EQ(moveEntries(), (Lines{L"A", L"B", L"C"}));
    EXPECT_EQ(categoryRows().image(0), 3);
    EXPECT_EQ(categoryRows().image(1), 3);
}

TEST_F(RemovingACategory, NoChangesNothing)
{
    startWithThree();
    remove(IDNO);
    EXPECT_EQ(titles(), (Lines{L"A", L"B", L"C"}));
    EXPECT_EQ(folder.read(L"B.udb"), "b|2\r\n");
    EXPECT_EQ(sites(), Lines{L"b|2||"});
    EXPECT_EQ(selectedTitle(), L"B");
}

TEST_F(RemovingACategory, AsksWithTheKeyboardOnNo)
{
    startWithThree();
    Answers answers;
    answers.expect(L"Vandrel", [](HWND box) {
        EXPECT_EQ(GetFocus(), GetDlgItem(box, IDNO));
        press(box, IDNO);
    });
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
}

TEST_F(RemovingACategory, AsksWithOnlyYesAndNo)
{
    startWithThree();
    std::vector<int> buttons;
    Answers answers;
    answers.expect(L"Vandrel", [&](HWND box) {
        buttons = buttonsOf(box);
        press(box, IDNO);
    });
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(buttons, (std::vector<int>{IDYES, IDNO}));
}

TEST_F(RemovingACategory, WithoutAShownOneNothingIsAsked)
{
    startWithThree();
    remove(IDYES);
    Answers answers;
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles().size(), 2U);
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST_F(RemovingACategory, TheLastOneLeavesEmptyListsAndNothingToRemove)
{
    folder.write(L"Only.udb", "a|1\r\n");
    start();
    remove(IDYES);
    EXPECT_TRUE(lstCategory().empty());
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(folder.names(), Lines{});
    Answers answers;
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
}

TEST_F(RemovingACategory, TheNextOneCanBeOpenedAndSavedAsEver)
{
    startWithThree();
    remove(IDYES);
    clickCategory(L"C");
    EXPECT_EQ(sites(), Lines{L"c|3||"});
    EXPECT_EQ(categoryRows().image(1), 4);
    siteRows().setText(0, 2, L"x");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"C.udb"), "c|3|x|\r\n");
    EXPECT_EQ(folder.read(L"A.udb"), "a|1\r\n");
}

TEST_F(RemovingACategory, OfTwoWithOneTitleTheSelectedItemGoes)
{
    folder.write(L"A.udb", "a|1\r\n");
    start();
    Answers answers;
    expectTitle(answers, L"A");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    selectCategory(workspace(), 1);
    const auto other = categoryRows().id(0);
    remove(IDYES);
    ASSERT_EQ(titles(), Lines{L"A"});
    EXPECT_EQ(categoryRows().id(0), other);
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(RemovingACategory, AFileThatVanishedRaisesAnErrorAndTheItemStays)
{
    startWithThree();
    DeleteFileW(folder.file(L"B.udb").c_str());
    Answers answers;
    answers.expectBox(L"Vandrel", removalQuestion, IDYES, MB_ICONASTERISK);
    expectErrorBox(answers, 53, L"File not found");
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), (Lines{L"A", L"B", L"C"}));
    EXPECT_EQ(sites(), Lines{L"b|2||"});
}

TEST_F(RemovingACategory, AFileThatAnotherProgramHoldsRaisesAnErrorAndEverythingStays)
{
    startWithThree();
    {
        const HeldFile held(folder.file(L"B.udb"));
        Answers answers;
        answers.expectBox(L"Vandrel", removalQuestion, IDYES, MB_ICONASTERISK);
        expectErrorBox(answers, 70, L"Permission denied");
        choose(mnuRemoveCategory);
        EXPECT_ANSWERED(answers);
    }
    EXPECT_EQ(titles(), (Lines{L"A", L"B", L"C"}));
    EXPECT_EQ(sites(), Lines{L"b|2||"});
    EXPECT_EQ(folder.read(L"B.udb"), "b|2\r\n");
    EXPECT_EQ(selectedTitle(), L"B");
}

TEST_F(RemovingACategory, AFolderInThePlaceOfTheFileIsNotRemoved)
{
    startWithThree();
    DeleteFileW(folder.file(L"B.udb").c_str());
    makeFolder(L"B.udb");
    Answers answers;
    answers.expectBox(L"Vandrel", removalQuestion, IDYES, MB_ICONASTERISK);
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(folder.has(L"B.udb"));
    EXPECT_EQ(titles().size(), 3U);
}

} // namespace
} // namespace vandrel::test

#include "tests/support/input.h"
#include "tests/support/menu_keys.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_window.h"
#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

class CategoryRename : public StoreTest {
  protected:
    // Starts with one category, which is shown, in a data folder from which the program was started.
    void startIn(const std::wstring& currentFolder)
    {
        folder.write(L"Old.udb", "a|1\r\n");
        folder.write(L"Other.udb", "b|2\r\n");
        start();
        current_.emplace(currentFolder);
    }
    void startThere() { startIn(folder.path()); }

    // Edits the selected label as the user does, with the command, the new text, and Enter or Esc.
    void rename(const std::wstring& text, WPARAM end = VK_RETURN)
    {
        type(text);
        SendMessageW(GetFocus(), WM_KEYDOWN, end, 0);
        EXPECT_TRUE(pumpUntil([&] { return !lstCategory().editingLabel(); }));
    }
    // The same up to the last key.
    void type(const std::wstring& text)
    {
        choose(mnuRenameCat);
        const auto edit = reinterpret_cast<HWND>(
            SendMessageW(lstCategory().handle(), LVM_GETEDITCONTROL, 0, 0));
        ASSERT_NE(edit, nullptr) << "no label is being edited";
        ASSERT_EQ(GetFocus(), edit);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Opens a menu, which is closed at once. Returns whether the label was still being edited when it opened;
    // true too if none did.
    bool editsWhileOpen(const std::function<void()>& openMenu)
    {
        const MenuKeys closeIt(main->handle(), {VK_ESCAPE, VK_ESCAPE});
        bool edits = true;
        const MessageWatch opening(main->handle(), WM_ENTERMENULOOP,
                                   [&] { edits = lstCategory().editingLabel(); });
        openMenu();
        return edits;
    }
    // As Enter does.
    void expectTaken()
    {
        EXPECT_FALSE(lstCategory().editingLabel());
        EXPECT_EQ(titles(), (Lines{L"New", L"Other"}));
        EXPECT_EQ(folder.names(), (Lines{L"New.udb", L"Other.udb"}));
    }
    void expectBlankRefusal(Answers& answers)
    {
        answers.expectBox(invalidTitle, L"Please type a Category title.", IDOK, MB_ICONEXCLAMATION);
    }
    void expectUnchanged()
    {
        EXPECT_EQ(titles(), (Lines{L"Old", L"Other"}));
        EXPECT_EQ(folder.read(L"Old.udb"), "a|1\r\n");
        EXPECT_EQ(folder.read(L"Other.udb"), "b|2\r\n");
        EXPECT_EQ(folder.names().size(), 2U);
    }

  private:
    std::optional<CurrentFolder> current_;
};

TEST_F(CategoryRename, GivesTheFileAndTheItemTheNewName)
{
    startThere();
    rename(L"New");
    EXPECT_EQ(titles(), (Lines{L"New", L"Other"}));
    EXPECT_EQ(folder.names(), (Lines{L"New.udb", L"Other.udb"}));
    EXPECT_EQ(folder.read(L"New.udb"), "a|1\r\n");
}

TEST_F(CategoryRename, TheTitleGoesToItsCategoryWhereverThatStandsByNow)
{
    startThere();
    vandrel::CategoryRename procedure(main->workspace());
    procedure.lstCategory_BeforeLabelEdit(0);
    categoryRows().sortBy(0, SortOrder::descending);
    EXPECT_TRUE(procedure.lstCategory_AfterLabelEdit(L"New"));
    EXPECT_EQ(titles(), (Lines{L"Other", L"New"}));
}

TEST_F(CategoryRename, KeepsTheSitesTheSelectionAndTheCaption)
{
    startThere();
    rename(L"New");
    EXPECT_EQ(sites(), Lines{L"a|1||"});
    EXPECT_EQ(selectedTitle(), L"New");
    EXPECT_EQ(main->caption(), L"Vandrel - Old");
}

TEST_F(CategoryRename, DoesNotRebuildTheMoveToEntries)
{
    startThere();
    rename(L"New");
    EXPECT_EQ(moveEntries(), (Lines{L"Old", L"Other"}));
}

TEST_F(CategoryRename, WhatIsSavedThenGoesToTheNewFile)
{
    startThere();
    rename(L"New");
    siteRows().setText(0, 2, L"x");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"New.udb"), "a|1|x|\r\n");
    EXPECT_EQ(folder.names(), (Lines{L"New.udb", L"Other.udb"}));
}

TEST_F(CategoryRename, EachOfSixCharactersIsRefusedAndTheOldNameStays)
{
    startThere();
    for (const wchar_t* const title : {L"a:b", L"a\\b", L"a/b", L"a?b", L"a*b", L"a\"b"}) {
        Answers answers;
        expectRefusal(answers);
        rename(title);
        EXPECT_ANSWERED(answers) << title;
        expectUnchanged();
    }
}

TEST_F(CategoryRename, ATitleOfBlanksIsRefusedAndTheOldNameStays)
{
    startThere();
    Answers answers;
    expectBlankRefusal(answers);
    rename(L"  ");
    EXPECT_ANSWERED(answers);
    expectUnchanged();
}

// Without the native list: Wine's takes an empty label for a cancelled edit, that of Windows passes the
// empty text on.
TEST_F(CategoryRename, AnEmptyTitleIsRefusedAndTheOldNameStays)
{
    startThere();
    Answers answers;
    expectBlankRefusal(answers);
    lstCategory().BeforeLabelEdit(0);
    EXPECT_FALSE(lstCategory().AfterLabelEdit(0, L""));
    EXPECT_ANSWERED(answers);
    expectUnchanged();
}

TEST_F(CategoryRename, BothRefusalsHaveAnOkButtonAlone)
{
    startThere();
    for (const wchar_t* const title : {L"a:b", L" "}) {
        std::vector<int> buttons;
        Answers answers;
        answers.expect(invalidTitle, [&](HWND box) {
            buttons = buttonsOf(box);
            press(box, IDOK);
        });
        rename(title);
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(buttons, std::vector<int>{IDOK});
    }
}

TEST_F(CategoryRename, EscLeavesTheOldName)
{
    startThere();
    rename(L"New", VK_ESCAPE);
    expectUnchanged();
}

TEST_F(CategoryRename, BlanksAroundTheTitleArePartOfTheFileName)
{
    startThere();
    rename(L" New ");
    EXPECT_EQ(titles(), (Lines{L" New ", L"Other"}));
    EXPECT_EQ(folder.names(), (Lines{L" New .udb", L"Other.udb"}));
}

TEST_F(CategoryRename, ATitleOutsideTheCodePageIsTaken)
{
    startThere();
    rename(L"Ksi\u0105\u017Cki");
    EXPECT_EQ(lstCategory().text(0), L"Ksi\u0105\u017Cki");
    EXPECT_TRUE(folder.has(L"Ksi\u0105\u017Cki.udb"));
}

TEST_F(CategoryRename, TheSameTextChangesNothing)
{
    startThere();
    Answers answers;
    rename(L"Old");
    EXPECT_ANSWERED(answers);
    expectUnchanged();
}

TEST_F(CategoryRename, AnotherLetterCaseIsANewName)
{
    startThere();
    Answers answers;
    rename(L"OLD");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), (Lines{L"OLD", L"Other"}));
    // The letter case of the name on the disk is not checked: Wine keeps it, Windows changes it.
    EXPECT_EQ(folder.names().size(), 2U);
    EXPECT_EQ(folder.read(L"OLD.udb"), "a|1\r\n");
}

TEST_F(CategoryRename, AMenuOfTheBarTakesTheTitleBeforeItOpens)
{
    startThere();
    type(L"New");
    EXPECT_FALSE(editsWhileOpen([this] { SendMessageW(main->handle(), WM_SYSCOMMAND, SC_KEYMENU, L'v'); }));
    expectTaken();
}

TEST_F(CategoryRename, TheMenuOfTheToolBarTakesTheTitleBeforeItOpens)
{
    startThere();
    type(L"New");
    EXPECT_FALSE(editsWhileOpen([this] {
        RECT button{};
        const HWND bar = main->toolBar().handle();
        SendMessageW(bar, TB_GETRECT, 10, reinterpret_cast<LPARAM>(&button));
        clickAt(bar, {button.right - 4, (button.top + button.bottom) / 2});
    }));
    expectTaken();
}

TEST_F(CategoryRename, ACommandTakesTheTitleBeforeItStarts)
{
    startThere();
    type(L"New");
    choose(mnuHoverSelect);
    expectTaken();
}

TEST_F(CategoryRename, AnotherWindowTakesTheTitleWhenItIsActivated)
{
    startThere();
    const TestWindow other;
    ShowWindow(other.handle(), SW_SHOWNA);
    type(L"New");
    SetActiveWindow(other.handle());
    pump();
    expectTaken();
}

TEST_F(CategoryRename, ClosingTheWindowTakesTheTitle)
{
    startThere();
    type(L"New");
    SendMessageW(main->handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(folder.names(), (Lines{L"New.udb", L"Other.udb"}));
}

TEST_F(CategoryRename, ATitleThatIsRefusedDoesNotKeepTheCommandFromItsWork)
{
    startThere();
    type(L"a*b");
    Answers answers;
    expectRefusal(answers);
    const bool before = lstInfo().hoverSelection();
    choose(mnuHoverSelect);
    EXPECT_ANSWERED(answers);
    EXPECT_NE(lstInfo().hoverSelection(), before);
    expectUnchanged();
}

TEST_F(CategoryRename, BeginningToEditTheLabelIsNotAClickOnTheCategory)
{
    startThere();
    int clicks = 0;
    lstCategory().ItemClick = [&](std::size_t) { ++clicks; };
    choose(mnuRenameCat);
    EXPECT_TRUE(lstCategory().editingLabel());
    EXPECT_EQ(clicks, 0);
}

TEST_F(CategoryRename, EditingTheLabelReadsNothingAgain)
{
    startThere();
    siteRows().setText(0, 2, L"not saved yet");
    rename(L"New");
    EXPECT_EQ(sites(), Lines{L"a|1|not saved yet|"});
    rename(L"Newer", VK_ESCAPE);
    EXPECT_EQ(sites(), Lines{L"a|1|not saved yet|"});
}

TEST_F(CategoryRename, WorksInTheCurrentDirectoryOnlyByDesign)
{
    const TempFolder elsewhere(L"elsewhere");
    startIn(elsewhere.path());
    Answers answers;
    expectErrorBox(answers, 53, L"File not found");
    rename(L"New");
    EXPECT_ANSWERED(answers);
    expectUnchanged();
    EXPECT_EQ(elsewhere.names(), Lines{});
}

TEST_F(CategoryRename, TheNameOfAnotherCategoryRaisesAnErrorAndBothStay)
{
    startThere();
    Answers answers;
    expectErrorBox(answers, 58, L"File already exists");
    rename(L"Other");
    EXPECT_ANSWERED(answers);
    expectUnchanged();
}

TEST_F(CategoryRename, WhatTheSystemRefusesRaisesAnErrorAndTheOldNameStays)
{
    startThere();
    for (const wchar_t* const title : {L"a<b", L"a>b", L"a|b"}) {
        Answers answers;
        expectErrorBox(answers, 52, L"Bad file name or number");
        rename(title);
        EXPECT_ANSWERED(answers) << title;
        expectUnchanged();
    }
}

TEST_F(CategoryRename, AFileThatAnotherProgramHoldsRaisesAnErrorAndTheOldNameStays)
{
    startThere();
    {
        const HeldFile held(folder.file(L"Old.udb"));
        Answers answers;
        expectErrorBox(answers, 70, L"Permission denied");
        rename(L"New");
        EXPECT_ANSWERED(answers);
    }
    expectUnchanged();
}

TEST_F(CategoryRename, AFileThatVanishedRaisesAnErrorAndTheOldNameStays)
{
    startThere();
    DeleteFileW(folder.file(L"Old.udb").c_str());
    Answers answers;
    expectErrorBox(answers, 53, L"File not found");
    rename(L"New");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(titles(), (Lines{L"Old", L"Other"}));
}

TEST_F(CategoryRename, WithoutAShownCategoryNothingIsEdited)
{
    startThere();
    Answers answers;
    answers.expect(L"Vandrel", [](HWND box) { press(box, IDYES); });
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    choose(mnuRenameCat);
    EXPECT_FALSE(lstCategory().editingLabel());
    EXPECT_EQ(folder.names(), Lines{L"Other.udb"});
}

TEST_F(CategoryRename, AFileThatCouldNotBeReadIsNotOverwrittenUnderItsNewNameEither)
{
    startThere();
    {
        const HeldFile held(folder.file(L"Old.udb"));
        clickCategory(L"Old");
    }
    rename(L"New");
    {
        const HeldFile held(folder.file(L"New.udb"));
        EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 70);
    }
    EXPECT_EQ(folder.read(L"New.udb"), "a|1\r\n");
}

} // namespace
} // namespace vandrel::test

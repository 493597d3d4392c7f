#include "tests/program/support/program_test.h"

#include <commctrl.h>

namespace vandrel::test {
namespace {

class Keyboard : public ProgramTest {
  protected:
    Keyboard()
    {
        folder.write(L"A.udb", "One|http://1/|first|1/1/2001\r\nTwo|http://2/|second|1/1/2001\r\n");
        folder.write(L"B.udb", "Three|http://3/||1/1/2001\r\n");
        start();
        program.click(program.categories(), L"A");
        EXPECT_TRUE(soon([&] { return program.caption() == L"Vandrel - A" && program.siteCount() == 2; }));
    }
    void clickSearchBox() const
    {
        RECT area{};
        GetWindowRect(program.searchBox(), &area);
        program.clickAt({area.left + 5, (area.top + area.bottom) / 2});
        EXPECT_SOON(program.focus(), program.searchBox());
    }
    bool selectionIs(const Texts& names) const
    {
        Texts selected;
        for (const int row : program.controls().selectedRows(program.sites()))
            selected.push_back(program.controls().cell(program.sites(), row, 0));
        return selected == names;
    }
};

TEST_F(Keyboard, DelInTheSearchBoxDeletesALetterAndNoSite)
{
    clickSearchBox();
    program.retype(L"abc");
    program.key(VK_HOME);
    program.key(VK_DELETE);
    EXPECT_SOON(program.focusText(), std::wstring(L"bc"));
    EXPECT_FALSE(program.dialogIsOpen());
    EXPECT_EQ(program.siteCount(), 2);
}

TEST_F(Keyboard, DelInALabelDeletesALetterAndNoSite)
{
    program.choose(program.categories(), 0, popRenameCategory);
    EXPECT_TRUE(soon([&] { return program.labelEdit() != nullptr; }));
    program.retype(L"abc");
    program.key(VK_HOME);
    program.key(VK_DELETE);
    EXPECT_SOON(program.focusText(), std::wstring(L"bc"));
    EXPECT_FALSE(program.dialogIsOpen());
    program.key(VK_ESCAPE);
    EXPECT_SOON(program.labelEdit(), static_cast<HWND>(nullptr));
    EXPECT_EQ(program.siteCount(), 2);
    EXPECT_EQ(categoryFiles(), (Texts{L"A.udb", L"B.udb"}));
}

TEST_F(Keyboard, InTheSearchBoxTheCommandsHaveTheirKeysAndTheTextHasItsOwn)
{
    clickSearchBox();
    for (const auto& [key, caption] :
         {std::pair{VK_F2, L"Category Name"}, std::pair{VK_F3, L"Add Site..."}}) {
        program.key(static_cast<WORD>(key));
        program.dialog(caption);
        program.key(VK_ESCAPE);
        program.back();
        EXPECT_SOON(program.focus(), program.searchBox());
    }
    program.retype(L"xy");
    program.key(VK_HOME);
    program.key(VK_DELETE);
    EXPECT_SOON(program.focusText(), std::wstring(L"y"));
    EXPECT_FALSE(program.dialogIsOpen());
}

TEST_F(Keyboard, TabGoesFromTheCategoriesToTheSitesToTheSearchAndRound)
{
    program.key(VK_TAB);
    EXPECT_SOON(program.focus(), program.sites());
    program.key(VK_TAB);
    EXPECT_SOON(program.focus(), program.searchBox());
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"Quick Search"));
    EXPECT_NE(program.focus(), program.searchBox());
    program.key(VK_TAB);
    EXPECT_SOON(program.focus(), program.categories());
    program.key(VK_TAB, {VK_SHIFT});
    program.key(VK_TAB, {VK_SHIFT});
    EXPECT_SOON(program.focus(), program.searchBox());
}

TEST_F(Keyboard, TabInTheEditorGoesNameAddressDescriptionOkCancel)
{
    program.key(VK_F3);
    program.dialog(L"Add Site...");
    program.type(L"name");
    EXPECT_SOON(program.focusText(), std::wstring(L"name"));
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"http://"));
    program.key(VK_TAB);
    program.type(L"words");
    EXPECT_SOON(program.focusText(), std::wstring(L"words"));
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"OK"));
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"Cancel"));
    program.key(VK_RETURN); // the focused button, not the default one
    program.back();
    EXPECT_EQ(program.siteCount(), 2);
}

TEST_F(Keyboard, EscLeavesTheEditorFromEveryBoxWithoutAChange)
{
    for (int tabs = 0; tabs < 3; ++tabs) {
        program.key(VK_F3);
        program.dialog(L"Add Site...");
        for (int i = 0; i < tabs; ++i) program.key(VK_TAB);
        program.type(L"text");
        program.key(VK_ESCAPE);
        program.back();
        EXPECT_EQ(program.siteCount(), 2) << tabs;
    }
}

TEST_F(Keyboard, EscInTheQuestionForATitleAddsNoCategory)
{
    program.key(VK_F2);
    program.dialog(L"Category Name");
    program.type(L"C");
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(program.titles().size(), 2U);
    EXPECT_EQ(categoryFiles(), (Texts{L"A.udb", L"B.udb"}));
}

TEST_F(Keyboard, DelInTheEditorEditsItsText)
{
    program.key(VK_F3);
    program.dialog(L"Add Site...");
    program.type(L"abc");
    program.key(VK_HOME);
    program.key(VK_DELETE);
    EXPECT_SOON(program.focusText(), std::wstring(L"bc"));
    EXPECT_EQ(program.siteCount(), 2);
}

TEST_F(Keyboard, ArrowKeysInTheCategoryListLoadTheCategoryTheyReach)
{
    program.key(VK_DOWN);
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - B"));
    EXPECT_SOON(program.column(0), Texts{L"Three"});
    program.key(VK_UP);
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - A"));
    EXPECT_SOON(program.column(0), (Texts{L"One", L"Two"}));
}

TEST_F(Keyboard, ALetterSelectsTheCategoryThatBeginsWithIt)
{
    program.type(L"b");
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - B"));
    EXPECT_SOON(program.column(0), Texts{L"Three"});
}

TEST_F(Keyboard, ArrowKeysInTheSiteListShowTheSiteInTheStatusBar)
{
    program.key(VK_TAB);
    program.key(VK_HOME);
    program.key(VK_DOWN);
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: Two  "));
    EXPECT_SOON(program.panel(3), std::wstring(L"URL: http://2/  "));
}

TEST_F(Keyboard, CtrlASelectsEverySite)
{
    program.key(VK_TAB);
    EXPECT_SOON(program.focus(), program.sites());
    program.key('A', {VK_CONTROL});
    EXPECT_TRUE(soon([&] { return selectionIs({L"One", L"Two"}); }));
}

TEST_F(Keyboard, TheMenuKeyOpensThePopUpOfTheFocusedList)
{
    program.key(VK_APPS);
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    for (int entry = 0; entry <= popRenameCategory; ++entry) program.key(VK_DOWN);
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return program.labelEdit() != nullptr; }));
    program.key(VK_ESCAPE);
    EXPECT_SOON(program.labelEdit(), static_cast<HWND>(nullptr));

    program.click(program.sites(), 1);
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: Two  "));
    program.key(VK_APPS);
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    for (int entry = 0; entry <= popEdit; ++entry) program.key(VK_DOWN);
    program.key(VK_RETURN);
    program.dialog(L"Edit selected site...");
    EXPECT_EQ(program.focusText(), L"Two");
}

TEST_F(Keyboard, EscClosesAPopUpAndNothingIsDone)
{
    program.key(VK_APPS);
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    program.key(VK_DOWN);
    program.key(VK_ESCAPE);
    EXPECT_TRUE(soon([&] { return !program.menuIsOpen(); }));
    program.back();
    EXPECT_EQ(program.titles().size(), 2U);
}

TEST_F(Keyboard, AltFOpensTheFileMenuAndQQuits)
{
    program.key('F', {VK_MENU});
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    program.key('Q');
    EXPECT_EQ(program.waitForEnd(), 0U);
}

TEST_F(Keyboard, AltELeadsToAddCategoryByAccessKeys)
{
    program.key('E', {VK_MENU});
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    program.key('A');
    program.key('A');
    program.dialog(L"Category Name");
}

TEST_F(Keyboard, AltF4ClosesTheProgram)
{
    program.key(VK_F4, {VK_MENU});
    EXPECT_EQ(program.waitForEnd(), 0U);
}

} // namespace
} // namespace vandrel::test

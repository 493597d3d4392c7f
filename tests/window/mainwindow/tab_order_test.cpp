#include "store/site_operations.h"
#include "tests/support/input.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class TabOrder : public MainWindowTest {
  protected:
    std::string focus()
    {
        if (lstCategory().hasFocus()) return "categories";
        if (lstInfo().hasFocus()) return "sites";
        if (main->searchPanel().cmbSearch.hasFocus()) return "search box";
        if (main->searchPanel().cmdSearch.hasFocus()) return "search button";
        return "nowhere";
    }
    std::vector<std::string> focusAfterTabs(int count, bool shift)
    {
        std::vector<std::string> passed;
        for (int i = 0; i < count; ++i) {
            pressKey(VK_TAB, false, shift);
            passed.push_back(focus());
        }
        return passed;
    }
};

TEST_F(TabOrder, TheCategoryListHasTheFocusAtFirst)
{
    start();
    EXPECT_EQ(focus(), "categories");
}

TEST_F(TabOrder, TabGoesThroughTheListsTheSearchBoxAndItsButton)
{
    folder.write(L"Work.udb", threeSites);
    start();
    EXPECT_EQ(focusAfterTabs(4, false),
              (std::vector<std::string>{"sites", "search box", "search button", "categories"}));
}

TEST_F(TabOrder, ShiftTabGoesTheSameWayBack)
{
    folder.write(L"Work.udb", threeSites);
    start();
    EXPECT_EQ(focusAfterTabs(4, true),
              (std::vector<std::string>{"search button", "search box", "sites", "categories"}));
}

TEST_F(TabOrder, TheDisabledSearchPanelIsSkipped)
{
    start();
    EXPECT_EQ(focusAfterTabs(3, false), (std::vector<std::string>{"sites", "categories", "sites"}));
    EXPECT_EQ(focusAfterTabs(2, true), (std::vector<std::string>{"categories", "sites"}));
}

TEST_F(TabOrder, TheCategoryListGetsTheFocusWhenTheFocusedSearchPanelIsDisabled)
{
    folder.write(L"Work.udb", threeSites);
    start();
    for (Control* const control :
         std::initializer_list<Control*>{&main->searchPanel().cmbSearch, &main->searchPanel().cmdSearch}) {
        clickCategory(L"Work");
        ASSERT_TRUE(pumpUntil([&] { return main->searchPanel().enabled(); }));
        control->setFocus();
        siteRows().clear();
        ASSERT_TRUE(pumpUntil([&] { return !main->searchPanel().enabled(); }));
        EXPECT_EQ(focus(), "categories");
    }
}

// The question takes the keyboard away and gives it back before the panel is disabled.
TEST_F(TabOrder, TheCategoryListGetsTheFocusWhenTheLastSiteIsRemovedByTheMenu)
{
    for (const bool fromButton : {false, true}) {
        folder.write(L"Work.udb", "Only|http://o.example/|x|1/1/2001\r\n");
        start();
        lstInfo().setFocus();
        lstInfo().select(0);
        SearchPanel& panel = main->searchPanel();
        Control& control = fromButton ? static_cast<Control&>(panel.cmdSearch) : panel.cmbSearch;
        control.setFocus();
        Answers answers;
        answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
        main->run(mnuRemoveWebsite);
        EXPECT_ANSWERED(answers);
        ASSERT_TRUE(pumpUntil([&] { return !panel.enabled(); }));
        EXPECT_EQ(focus(), "categories");
        pressKey(VK_TAB);
        EXPECT_EQ(focus(), "sites");
        main.reset();
        pump();
    }
}

TEST_F(TabOrder, ADialogReturnsTheFocusEachTime)
{
    folder.write(L"Work.udb", threeSites);
    start();
    for (int time = 0; time < 3; ++time) {
        main->searchPanel().cmbSearch.setFocus();
        Answers answers;
        answers.expect(L"Add Site...", [](HWND dialog) { press(dialog, IDCANCEL); });
        AddURL(main->workspace());
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(pumpUntil([&] { return focus() == "search box"; })) << focus();
    }
}

TEST_F(TabOrder, TabInALabelStaysThere)
{
    folder.write(L"Work.udb", threeSites);
    start();
    main->run(mnuRenameCat);
    ASSERT_TRUE(lstCategory().editingLabel());
    pressKey(VK_TAB);
    EXPECT_EQ(focus(), "categories");
    pressKey(VK_ESCAPE);
}

TEST_F(TabOrder, CtrlTabDoesNothing)
{
    folder.write(L"Work.udb", threeSites);
    start();
    pressKey(VK_TAB, true);
    EXPECT_EQ(focus(), "categories");
}

} // namespace
} // namespace vandrel::test

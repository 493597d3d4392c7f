#include "tests/support/input.h"
#include "tests/window/mainwindow/window_parts.h"

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

TEST_F(TabOrder, TheDisabledSearchPanelIsPassedOver)
{
    start();
    EXPECT_EQ(focusAfterTabs(3, false), (std::vector<std::string>{"sites", "categories", "sites"}));
    EXPECT_EQ(focusAfterTabs(2, true), (std::vector<std::string>{"categories", "sites"}));
}

TEST_F(TabOrder, TheKeyboardIsNotLostWhenTheSearchBoxIsDisabledUnderIt)
{
    folder.write(L"Work.udb", threeSites);
    start();
    main->searchPanel().cmbSearch.setFocus();
    lstInfo().clear();
    ASSERT_TRUE(pumpUntil([&] { return !main->searchPanel().enabled(); }));
    EXPECT_TRUE(focus() == "categories" || focus() == "sites") << focus();
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

TEST_F(TabOrder, CtrlTabMovesNothing)
{
    folder.write(L"Work.udb", threeSites);
    start();
    pressKey(VK_TAB, true);
    EXPECT_EQ(focus(), "categories");
}

} // namespace
} // namespace vandrel::test

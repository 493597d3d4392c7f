#include "platform/base/runtime_error.h"
#include "tests/support/list_clicks.h"
#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListLabelEdit : public ListTest {
  protected:
    ListLabelEdit()
    {
        fillNames(categories, {L"Home", L"News", L"Work"});
        categories.select(1);
        categories.BeforeLabelEdit = [this](std::size_t row) { begun.push_back(row); };
        categories.AfterLabelEdit = [this](std::size_t row, const std::wstring& text) {
            ended.push_back(std::to_wstring(row) + L" " + text);
            if (accept) categories.rows.setText(row, 0, text);
            return accept;
        };
    }
    HWND field() const
    {
        return reinterpret_cast<HWND>(SendMessageW(categories.handle(), LVM_GETEDITCONTROL, 0, 0));
    }
    void edit(const std::wstring& text)
    {
        categories.editLabel(1);
        ASSERT_NE(field(), nullptr);
        SetWindowTextW(field(), text.c_str());
    }

    bool accept = true;
    RowNumbers begun;
    Names ended;
};

TEST_F(ListLabelEdit, StartsWithTheRowsTextInABoxThatHasTheFocus)
{
    EXPECT_FALSE(categories.editingLabel());
    categories.editLabel(1);
    EXPECT_TRUE(categories.editingLabel());
    EXPECT_EQ(windowText(field()), L"News");
    EXPECT_EQ(GetFocus(), field());
    EXPECT_TRUE(categories.hasFocus());
    EXPECT_EQ(begun, RowNumbers{1});
}

TEST_F(ListLabelEdit, IsNotAClickOnTheRow)
{
    categories.editLabel(1);
    typeKey(field(), VK_RETURN);
    EXPECT_EQ(selectedRows(categories), RowNumbers{1});
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListLabelEdit, EnterTakesTheNewText)
{
    edit(L"Papers");
    typeKey(field(), VK_RETURN);
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_EQ(ended, Names{L"1 Papers"});
    EXPECT_EQ(shownColumn(categories), (Names{L"Home", L"Papers", L"Work"}));
    EXPECT_EQ(categories.text(1), L"Papers");
}

TEST_F(ListLabelEdit, EscKeepsTheOldTextAndAsksNobody)
{
    edit(L"Papers");
    typeKey(field(), VK_ESCAPE);
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_TRUE(ended.empty());
    EXPECT_EQ(shownText(categories, 1), L"News");
}

TEST_F(ListLabelEdit, LeavingTheBoxTakesTheNewText)
{
    edit(L"Papers");
    sites.setFocus();
    pump();
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_EQ(ended, Names{L"1 Papers"});
    EXPECT_EQ(shownText(categories, 1), L"Papers");
}

TEST_F(ListLabelEdit, ATextThatIsRefusedLeavesTheOldOne)
{
    accept = false;
    edit(L"Papers");
    typeKey(field(), VK_RETURN);
    EXPECT_EQ(ended, Names{L"1 Papers"});
    EXPECT_EQ(shownText(categories, 1), L"News");
}

TEST_F(ListLabelEdit, AnEmptyTextThatIsRefusedLeavesTheOldOne)
{
    accept = false;
    edit(L"");
    typeKey(field(), VK_RETURN);
    // Wine takes an emptied box for a cancelled edit and asks nobody; Windows passes the empty text on.
    EXPECT_EQ(ended, runsUnderWine() ? Names{} : Names{L"1 "});
    EXPECT_EQ(shownText(categories, 1), L"News");
}

TEST_F(ListLabelEdit, AFailureIsShownAndKeepsTheOldText)
{
    int asked = 0;
    categories.AfterLabelEdit = [&](std::size_t, const std::wstring&) -> bool {
        ++asked;
        throw RuntimeError(error_number::fileAlreadyExists);
    };
    edit(L"Home");
    Answers answers;
    answers.expectBox(L"Vandrel", L"Run-time error '58':\n\nFile already exists", IDOK, MB_ICONHAND);
    typeKey(field(), VK_RETURN);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_EQ(shownColumn(categories), (Names{L"Home", L"News", L"Work"}));
}

TEST_F(ListLabelEdit, LettersTypedIntoTheBoxEditTheTextAndSearchNoRow)
{
    categories.editLabel(1);
    for (const wchar_t letter : {L'W', L'o'}) PostMessageW(field(), WM_CHAR, letter, 1);
    pump();
    EXPECT_EQ(windowText(field()), L"Wo"); // the old text was selected
    typeKey(field(), VK_RETURN);
    EXPECT_EQ(shownText(categories, 1), L"Wo");
}

TEST_F(ListLabelEdit, TheRowIsScrolledIntoViewFirst)
{
    fillNames(categories, Names(200, L"row"));
    categories.editLabel(150);
    ASSERT_TRUE(categories.editingLabel());
    RECT box{};
    GetWindowRect(field(), &box);
    RECT area{};
    GetWindowRect(categories.handle(), &area);
    EXPECT_TRUE(PtInRect(&area, {box.left, box.top}));
    typeKey(field(), VK_ESCAPE);
}

TEST_F(ListLabelEdit, AListWithoutEditableLabelsStartsNoEdit)
{
    fillNames(sites, {L"a"});
    sites.editLabel(0);
    EXPECT_FALSE(sites.editingLabel());
}

TEST_F(ListLabelEdit, AClickOnAHeaderStoresTheTextInTheRowThatWasEdited)
{
    categories.ColumnClick = [this](std::size_t) { categories.rows.sortBy(0, SortOrder::descending); };
    edit(L"Papers");
    clickHeader(categories, 0);
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_EQ(ended, Names{L"1 Papers"});
    EXPECT_EQ(shownColumn(categories), (Names{L"Work", L"Papers", L"Home"}));
}

TEST_F(ListLabelEdit, EndsBeforeRowsChangePlaces)
{
    edit(L"Papers");
    categories.rows.sortBy(0, SortOrder::descending);
    EXPECT_FALSE(categories.editingLabel());
    EXPECT_EQ(shownColumn(categories), (Names{L"Work", L"News", L"Home"}));
}

} // namespace
} // namespace vandrel::test

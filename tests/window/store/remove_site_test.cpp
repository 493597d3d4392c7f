#include "mainwindow/menu_entries.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class RemovingSites : public StoreTest {
  protected:
    void startWithTen()
    {
        std::string bytes;
        for (char site = '0'; site <= '9'; ++site) bytes += std::string(1, site) + "|u|d|1\r\n";
        folder.write(L"Work.udb", bytes);
        start();
    }
    void remove(int answer)
    {
        Answers answers;
        answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", answer, MB_ICONASTERISK);
        choose(mnuRemoveWebsite);
        EXPECT_ANSWERED(answers);
    }
    std::wstring outcome() { return workspace().StatusBar1.panelText(1); }
};

// Records what the progress bar is set to.
struct ProgressLog {
    bool shown = false;
    static LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR self)
    {
        if (message == WM_SHOWWINDOW && wParam != 0) reinterpret_cast<ProgressLog*>(self)->shown = true;
        return DefSubclassProc(window, message, wParam, lParam);
    }
};

TEST_F(RemovingSites, TakesExactlyTheSelectedOnesAndSavesTheOthers)
{
    startWithTen();
    selectSites({1, 5, 9});
    remove(IDYES);
    EXPECT_EQ(column(lstInfo()), (Lines{L"0", L"2", L"3", L"4", L"6", L"7", L"8"}));
    EXPECT_EQ(folder.read(L"Work.udb"),
              "0|u|d|1\r\n2|u|d|1\r\n3|u|d|1\r\n4|u|d|1\r\n6|u|d|1\r\n7|u|d|1\r\n8|u|d|1\r\n");
    EXPECT_EQ(outcome(), L"Remove successful.");
    EXPECT_EQ(lstInfo().selectedCount(), 0U);
}

TEST_F(RemovingSites, NoChangesNothing)
{
    startWithTen();
    selectSites({1, 5});
    const std::wstring before = outcome();
    remove(IDNO);
    EXPECT_EQ(lstInfo().count(), 10U);
    EXPECT_EQ(lstInfo().selectedCount(), 2U);
    EXPECT_EQ(outcome(), before);
}

TEST_F(RemovingSites, AsksForOneWithTheKeyboardOnYesAndForSeveralOnNo)
{
    startWithTen();
    const auto first = [this] {
        int id = 0;
        Answers answers;
        answers.expect(L"Remove site(s)", [&](HWND box) {
            id = GetDlgCtrlID(GetFocus());
            press(box, IDNO);
        });
        choose(mnuRemoveWebsite);
        EXPECT_ANSWERED(answers);
        return id;
    };
    selectSites({1});
    EXPECT_EQ(first(), IDYES);
    selectSites({1, 5});
    EXPECT_EQ(first(), IDNO);
}

TEST_F(RemovingSites, AsksWithOnlyYesAndNo)
{
    startWithTen();
    selectSites({1});
    std::vector<int> buttons;
    Answers answers;
    answers.expect(L"Remove site(s)", [&](HWND box) {
        buttons = buttonsOf(box);
        press(box, IDNO);
    });
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(buttons, (std::vector<int>{IDYES, IDNO}));
}

TEST_F(RemovingSites, InAnEmptyListNothingIsAsked)
{
    folder.write(L"Work.udb", "");
    start();
    Answers answers;
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_NE(outcome(), L"Remove successful.");
}

TEST_F(RemovingSites, WithoutASelectedOneNothingIsAskedOrWritten)
{
    startWithTen();
    folder.write(L"Work.udb", "untouched");
    Answers answers;
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(lstInfo().count(), 10U);
    EXPECT_EQ(folder.read(L"Work.udb"), "untouched");
}

TEST_F(RemovingSites, AllOfThemLeaveAnEmptyCategory)
{
    startWithTen();
    lstInfo().selectAll();
    remove(IDYES);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_TRUE(folder.has(L"Work.udb"));
    EXPECT_EQ(folder.read(L"Work.udb"), "");
}

TEST_F(RemovingSites, NeighboursAndTheEndsAreRemovedToo)
{
    startWithTen();
    selectSites({0, 1, 2, 8, 9});
    remove(IDYES);
    EXPECT_EQ(column(lstInfo()), (Lines{L"3", L"4", L"5", L"6", L"7"}));
}

TEST_F(RemovingSites, TheProgressBarShowsMeanwhileAndIsHiddenAfterwards)
{
    startWithTen();
    selectSites({3});
    ProgressLog log;
    const HWND bar = workspace().PB.handle();
    SetWindowSubclass(bar, ProgressLog::watch, 1, reinterpret_cast<DWORD_PTR>(&log));
    EXPECT_FALSE(workspace().PB.visible());
    remove(IDYES);
    RemoveWindowSubclass(bar, ProgressLog::watch, 1);
    EXPECT_TRUE(log.shown);
    EXPECT_FALSE(workspace().PB.visible());
    EXPECT_EQ(workspace().PB.maximum(), 10U);
    EXPECT_GE(workspace().PB.value(), 9U);
}

TEST_F(RemovingSites, InASortedListTheShownOrderIsSaved)
{
    startWithTen();
    lstInfo().ColumnClick(0); // descending
    selectSites({0, 1, 2, 3, 4, 5, 6});
    remove(IDYES);
    EXPECT_EQ(folder.read(L"Work.udb"), "2|u|d|1\r\n1|u|d|1\r\n0|u|d|1\r\n");
}

TEST_F(RemovingSites, WhenTheFileCannotBeWrittenTheListShowsThemGone)
{
    startWithTen();
    const std::string before = folder.read(L"Work.udb");
    makeReadOnly(L"Work.udb");
    lstInfo().selectAll();
    Answers answers;
    answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(folder.read(L"Work.udb"), before);
    EXPECT_FALSE(workspace().PB.visible());
}

TEST_F(RemovingSites, HalfOfManyAreRemovedInOneSave)
{
    std::string all;
    std::string odd;
    for (int i = 0; i < 2000; ++i) {
        const std::string line = std::to_string(i) + "|u|d|1\r\n";
        all += line;
        if (i % 2 == 1) odd += line;
    }
    folder.write(L"Work.udb", all);
    start();
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED;
    for (WPARAM row = 0; row < 2000; row += 2) {
        SendMessageW(lstInfo().handle(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    }
    remove(IDYES);
    EXPECT_TRUE(folder.read(L"Work.udb") == odd);
    EXPECT_EQ(lstInfo().count(), 1000U);
}

} // namespace
} // namespace vandrel::test

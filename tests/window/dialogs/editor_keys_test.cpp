#include "tests/support/input.h"
#include "tests/window/dialogs/editor_test.h"

namespace vandrel::test {
namespace {

class EditorKeys : public EditorTest {
  protected:
    static int focusedId() { return GetDlgCtrlID(GetFocus()); }
    static void giveFocus(HWND dialog, int id)
    {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
        EXPECT_EQ(focusedId(), id);
    }
    static bool wholeTextIsSelected(HWND dialog, int id)
    {
        DWORD from = 1;
        DWORD to = 0;
        SendDlgItemMessageW(dialog, id, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                            reinterpret_cast<LPARAM>(&to));
        return from == 0 && to == fieldText(dialog, id).size();
    }
};

TEST_F(EditorKeys, ItOpensInTheNameField)
{
    show([](HWND dialog) {
        EXPECT_EQ(focusedId(), editor::name);
        EXPECT_EQ(GetActiveWindow(), dialog);
        press(dialog, IDCANCEL);
    });
}

TEST_F(EditorKeys, TabGoesThroughTheFieldsThenOkCancelAndBrowse)
{
    std::vector<int> order;
    show([&](HWND dialog) {
        for (int stop = 0; stop < 7; ++stop) {
            order.push_back(focusedId());
            pressKey(VK_TAB);
        }
        press(dialog, IDCANCEL);
    });
    EXPECT_EQ(order, (std::vector<int>{editor::name, editor::address, editor::description, IDOK, IDCANCEL,
                                       editor::browse, editor::name}));
}

TEST_F(EditorKeys, EveryFieldThatGetsTheFocusHasItsWholeTextSelected)
{
    beginEditing(L"some name", L"http://address/", std::wstring(3000, L'd'));
    show([](HWND dialog) {
        for (const int field : editorFields) {
            EXPECT_EQ(focusedId(), field);
            EXPECT_TRUE(wholeTextIsSelected(dialog, field)) << field;
            pressKey(VK_TAB);
        }
        press(dialog, IDCANCEL);
    });
}

TEST_F(EditorKeys, TheWholeTextIsSelectedAgainEachTimeTheFieldGetsTheFocus)
{
    beginEditing(L"name", L"http://address/", L"description");
    show([](HWND dialog) {
        for (const int field : editorFields) {
            SendDlgItemMessageW(dialog, field, EM_SETSEL, 2, 2);
            SetFocus(GetDlgItem(dialog, IDOK));
            SetFocus(GetDlgItem(dialog, field));
            EXPECT_TRUE(wholeTextIsSelected(dialog, field)) << field;
        }
        press(dialog, IDCANCEL);
    });
}

TEST_F(EditorKeys, EnterInEveryFieldAccepts)
{
    for (const int field : editorFields) {
        SCOPED_TRACE(field);
        show([&](HWND dialog) {
            typeOver(dialog, editor::name, L"typed");
            giveFocus(dialog, field);
            pressKey(VK_RETURN);
        });
        EXPECT_FALSE(site.SiteDialogCancelled);
        EXPECT_EQ(site.newSiteName, L"typed");
    }
}

TEST_F(EditorKeys, EscInEveryFieldAndOnEveryButtonCancels)
{
    for (const int control :
         {editor::name, editor::address, editor::description, IDOK, IDCANCEL, editor::browse}) {
        SCOPED_TRACE(control);
        site.SiteDialogCancelled = false;
        site.newSiteName.clear();
        show([&](HWND dialog) {
            typeOver(dialog, editor::name, L"typed");
            giveFocus(dialog, control);
            pressKey(VK_ESCAPE);
        });
        EXPECT_TRUE(site.SiteDialogCancelled);
        EXPECT_EQ(site.newSiteName, L"");
    }
}

TEST_F(EditorKeys, EscInEditModeLeavesTheTextsOfEditing)
{
    beginEditing(L"old", L"http://old/", L"x");
    show([](HWND dialog) {
        typeOver(dialog, editor::name, L"typed");
        pressKey(VK_ESCAPE);
    });
    EXPECT_TRUE(site.SiteDialogCancelled);
    EXPECT_TRUE(site.SiteEditMode);
    EXPECT_EQ(site.SiteEditName, L"old");
}

TEST_F(EditorKeys, OkIsTheDefaultButton)
{
    const frmInput editor = load();
    const HWND dialog = editor.handle();
    const auto kindOf = [dialog](int id) {
        return GetWindowLongPtrW(GetDlgItem(dialog, id), GWL_STYLE) & BS_TYPEMASK;
    };
    EXPECT_EQ(kindOf(IDOK), BS_DEFPUSHBUTTON);
    EXPECT_EQ(kindOf(IDCANCEL), BS_PUSHBUTTON);
    EXPECT_EQ(kindOf(editor::browse), BS_PUSHBUTTON);
    EXPECT_EQ(LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDOK);
}

TEST_F(EditorKeys, EnterOnTheCancelButtonCancels)
{
    show([](HWND dialog) {
        giveFocus(dialog, IDCANCEL);
        pressKey(VK_RETURN);
    });
    EXPECT_TRUE(site.SiteDialogCancelled);
}

TEST_F(EditorKeys, TypedLettersReplaceTheSelectedText)
{
    show([](HWND dialog) {
        pressKey(VK_TAB);
        for (const wchar_t letter : std::wstring(L"ab|\u0105")) {
            PostMessageW(GetFocus(), WM_CHAR, letter, 0);
        }
        MessageLoop::current().dispatchPending();
        EXPECT_EQ(fieldText(dialog, editor::address), L"ab|\u0105");
        press(dialog, IDOK);
    });
    EXPECT_EQ(site.newSiteURL, L"ab-\u0105");
}

TEST_F(EditorKeys, WhileItShowsItsOwnerTakesNoInputAndAfterwardsIsActiveAgain)
{
    SetForegroundWindow(owner.handle());
    show([&](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner.handle());
        press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    EXPECT_TRUE(pumpUntil([&] { return GetActiveWindow() == owner.handle(); }));
}

} // namespace
} // namespace vandrel::test

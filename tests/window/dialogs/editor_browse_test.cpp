#include "platform/base/runtime_error.h"
#include "platform/windows/file_dialog.h"
#include "tests/support/temp_folder.h"
#include "tests/window/dialogs/editor_test.h"

#include <array>

namespace vandrel::test {
namespace {

constexpr const wchar_t* browseCaption = L"Browse for item...";
// Controls of the system's file dialog.
constexpr int nameField = 1148;
constexpr int filterList = 1136;

class EditorBrowse : public EditorTest {
  protected:
    // Opens the file dialog from the editor, answers it and returns the address that the editor shows
    // afterwards.
    std::wstring browse(std::function<void(HWND)> answer)
    {
        std::wstring shown;
        Answers answers;
        answers.expect(site.SiteEditMode ? editCaption : addCaption, [&](HWND dialog) {
            press(dialog, editor::browse);
            shown = fieldText(dialog, editor::address);
            press(dialog, IDOK);
        });
        answers.expect(browseCaption, std::move(answer));
        frmInput editor(owner.handle(), site, font);
        editor.showModal();
        EXPECT_ANSWERED(answers);
        return shown;
    }
    static std::function<void(HWND)> choosing(const std::wstring& path)
    {
        return [path](HWND dialog) {
            SendDlgItemMessageW(dialog, nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        };
    }
    static std::function<void(HWND)> cancelling()
    {
        return [](HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); };
    }
};

TEST_F(EditorBrowse, TheChosenFileBecomesTheAddress)
{
    const TempFolder folder;
    folder.write(L"page one.html", "");
    const std::wstring path = folder.file(L"page one.html");
    EXPECT_EQ(browse(choosing(path)), path);
    EXPECT_EQ(site.newSiteURL, path);
}

TEST_F(EditorBrowse, TheChosenFileBecomesTheAddressOfAStoredSite)
{
    const TempFolder folder;
    folder.write(L"x.txt", "");
    beginEditing(L"A", L"http://a/", L"about");
    browse(choosing(folder.file(L"x.txt")));
    EXPECT_EQ(site.SiteEditURL, folder.file(L"x.txt"));
    EXPECT_EQ(site.SiteEditName, L"A");
    EXPECT_EQ(site.SiteEditDesc, L"about");
}

TEST_F(EditorBrowse, AFileNameOfAnyLanguageIsTaken)
{
    const TempFolder folder;
    folder.write(L"Ksi\u0105\u017Cki \u65E5.htm", "");
    const std::wstring path = folder.file(L"Ksi\u0105\u017Cki \u65E5.htm");
    EXPECT_EQ(browse(choosing(path)), path);
}

TEST_F(EditorBrowse, CancellingChangesNothingAndShowsNoMessage)
{
    site.IncomingLink = L"http://kept/";
    EXPECT_EQ(browse(cancelling()), L"http://kept/");
    EXPECT_FALSE(site.SiteDialogCancelled) << "the editor itself was accepted";
    EXPECT_EQ(site.newSiteURL, L"http://kept/");
}

TEST_F(EditorBrowse, AllFilesAreOffered)
{
    std::wstring kinds;
    browse([&](HWND dialog) {
        const HWND list = GetDlgItem(dialog, filterList);
        EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 1);
        kinds = windowText(list);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(kinds, L"All Files (*.*)");
}

TEST_F(EditorBrowse, TheDialogBelongsToTheEditorWhichTakesNoInputMeanwhile)
{
    HWND ownerOfDialog = nullptr;
    bool enabled = true;
    browse([&](HWND dialog) {
        ownerOfDialog = GetWindow(dialog, GW_OWNER);
        enabled = IsWindowEnabled(ownerOfDialog);
        EXPECT_EQ(windowText(ownerOfDialog), addCaption);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_FALSE(enabled);
}

TEST_F(EditorBrowse, TheCurrentDirectoryStaysWhatItWas)
{
    const TempFolder folder;
    folder.write(L"x.txt", "");
    std::array<wchar_t, 1024> before{};
    std::array<wchar_t, 1024> after{};
    GetCurrentDirectoryW(1024, before.data());
    browse(choosing(folder.file(L"x.txt")));
    GetCurrentDirectoryW(1024, after.data());
    EXPECT_EQ(std::wstring(after.data()), std::wstring(before.data()));
}

// On Windows the dialog that opens a file goes to the folder that it shows, whatever it is asked to do.
TEST_F(EditorBrowse, TheCurrentDirectoryStaysWhatItWasAlsoWhenTheDialogLeavesAnother)
{
    const TempFolder folder;
    std::array<wchar_t, 1024> before{};
    std::array<wchar_t, 1024> after{};
    GetCurrentDirectoryW(1024, before.data());
    browse([&](HWND dialog) {
        SetCurrentDirectoryW(folder.path().c_str());
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    GetCurrentDirectoryW(1024, after.data());
    SetCurrentDirectoryW(before.data());
    EXPECT_EQ(std::wstring(after.data()), std::wstring(before.data()));
}

// ---- failures

class FailingEditor : public frmInput {
  public:
    FailingEditor(HWND owner, SiteHandOff& site, const DisplayFont& font, int number)
        : frmInput(owner, site, font), number_(number)
    {}

  protected:
    void showBrowse(FileDialog&) override { throw RuntimeError(number_); }

  private:
    int number_;
};

class EditorBrowseFailure : public EditorTest {
  protected:
    void browseInto(int error, Answers& answers)
    {
        site.IncomingLink = L"http://kept/";
        FailingEditor editor(owner.handle(), site, font, error);
        press(editor.handle(), editor::browse);
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(fieldText(editor.handle(), editor::address), L"http://kept/");
        EXPECT_FALSE(editor.unloaded());
    }
};

TEST_F(EditorBrowseFailure, IsShownByItsNumberAndItsDescription)
{
    Answers answers;
    answers.expectBox(L"Error #53", L"53 - File not found", IDOK, MB_ICONEXCLAMATION);
    browseInto(53, answers);
}

TEST_F(EditorBrowseFailure, ShowsEveryOtherErrorAlike)
{
    Answers answers;
    answers.expectBox(L"Error #71", L"71 - Disk not ready", IDOK, MB_ICONEXCLAMATION);
    browseInto(71, answers);
}

TEST_F(EditorBrowseFailure, OfCancellingIsNotAFailure)
{
    Answers answers;
    browseInto(32755, answers);
}

// An editor that records what it asks the file dialog for.
class AskedEditor : public frmInput {
  public:
    using frmInput::frmInput;
    std::wstring filter;
    std::wstring title;
    std::wstring fileName = L"(not asked)";
    bool cancelError = false;

  protected:
    void showBrowse(FileDialog& CD1) override
    {
        filter = CD1.filter;
        title = CD1.title;
        fileName = CD1.fileName;
        cancelError = CD1.cancelError;
        CD1.fileName.clear();
    }
};

TEST_F(EditorBrowse, ItAsksForAllFilesUnderItsTitleAndAnEmptyChoiceChangesNothing)
{
    site.IncomingLink = L"http://kept/";
    AskedEditor editor(owner.handle(), site, font);
    press(editor.handle(), editor::browse);
    EXPECT_EQ(editor.filter, L"All Files (*.*)|*.*");
    EXPECT_EQ(editor.title, L"Browse for item...");
    EXPECT_EQ(editor.fileName, L"");
    EXPECT_TRUE(editor.cancelError);
    EXPECT_EQ(fieldText(editor.handle(), editor::address), L"http://kept/");
}

} // namespace
} // namespace vandrel::test

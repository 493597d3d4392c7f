#include "exchange/ini_file.h"
#include "platform/files/file_layer.h"
#include "platform/windows/topmost.h"
#include "tests/support/import_test.h"
#include "tests/support/input.h"
#include "tests/support/menus_seen.h"

namespace vandrel::test {
namespace {

constexpr const wchar_t* saveCaption = L"Export URL File";
// Controls of the system's file dialog.
constexpr int nameField = 1148;
constexpr int filterList = 1136;

// A disk on which INI files cannot be written, or not the n-th value.
class RefusingIni : public FileLayer {
  public:
    bool leavesEmptyFile = false;
    int onlyCall = 0; // from 1; 0: every call

    bool writeProfileValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                           const std::wstring& path) override
    {
        if (onlyCall != 0 && ++call_ != onlyCall)
            return FileLayer::writeProfileValue(section, key, value, path);
        if (leavesEmptyFile) FileLayer::close(FileLayer::openForAppending(path));
        SetLastError(ERROR_DISK_FULL);
        return false;
    }

  private:
    int call_ = 0;
};

class ExportTest : public StoreTest {
  protected:
    // The only site of the category is selected.
    void startWith(const std::wstring& name, const std::wstring& url = L"http://news.example/")
    {
        folder.write(L"Work.udb", "");
        start();
        siteRows().add({name, url, L"about", L"1/1/2001"}, siteImage);
        lstInfo().select(0);
        EXPECT_TRUE(pumpUntil([&] { return isOffered(); }));
    }
    bool isOffered()
    {
        return (GetMenuState(GetMenu(main->handle()), mnuExport, MF_BYCOMMAND) & MF_GRAYED) == 0;
    }
    // Chooses the entry and answers the save dialog.
    void exportBy(const std::function<void()>& way, std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(saveCaption, std::move(answer));
        way();
        EXPECT_ANSWERED(answers);
    }
    void exportAs(const std::wstring& path)
    {
        exportBy([&] { choose(mnuExport); }, naming(path));
    }
    void exportInVain(const std::wstring& name, const std::wstring& message)
    {
        Answers answers;
        answers.expect(saveCaption, naming(target.file(name)));
        answers.expectBox(L"Error!", message, IDOK, MB_ICONHAND);
        choose(mnuExport);
        EXPECT_ANSWERED(answers);
    }
    static std::function<void(HWND)> naming(const std::wstring& path)
    {
        return [path](HWND dialog) {
            SendDlgItemMessageW(dialog, nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        };
    }
    static void cancel(HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }
    std::wstring proposal()
    {
        std::wstring proposed;
        exportBy([&] { choose(mnuExport); },
                 [&](HWND dialog) {
                     proposed = windowText(GetDlgItem(dialog, nameField));
                     cancel(dialog);
                 });
        return proposed;
    }
    static std::string exported(const std::string& url)
    {
        return "[DEFAULT]\r\nBaseURL=" + url + "\r\n[InternetShortcut]\r\nURL=" + url + "\r\n";
    }

    TempFolder target{L"target"};
};

// ---- the dialog

TEST_F(ExportTest, AsksForTheFileUnderItsTitleForShortcutFiles)
{
    startWith(L"News");
    HWND owner = nullptr;
    std::wstring kind;
    exportBy([&] { choose(mnuExport); },
             [&](HWND dialog) {
                 owner = GetWindow(dialog, GW_OWNER);
                 EXPECT_FALSE(IsWindowEnabled(owner));
                 const HWND list = GetDlgItem(dialog, filterList);
                 EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 1);
                 kind = windowText(list);
                 cancel(dialog);
             });
    EXPECT_EQ(owner, main->handle());
    EXPECT_EQ(kind, L"Internet Shortcut File (*.url)");
}

TEST_F(ExportTest, ProposesTheNameOfTheSite)
{
    startWith(L"News");
    EXPECT_EQ(proposal(), L"News");
}

TEST_F(ExportTest, ProposesANameThatAFileCanHave)
{
    startWith(L"a/b: \"c\"?");
    EXPECT_EQ(proposal(), L"a-b- -c--");
}

TEST_F(ExportTest, ProposesTheNameOfTheCurrentSiteOfSeveralSelected)
{
    startWith(L"first");
    siteRows().add({L"second", L"http://2/", L"", L""}, siteImage);
    siteRows().add({L"third", L"http://3/", L"", L""}, siteImage);
    selectSites({0, 2, 1});
    EXPECT_EQ(proposal(), L"second");
}

TEST_F(ExportTest, ASiteWithoutANameCanBeExportedUnderATypedOne)
{
    startWith(L"");
    EXPECT_EQ(proposal(), L"");
    exportAs(target.file(L"typed.url"));
    EXPECT_EQ(target.read(L"typed.url"), exported("http://news.example/"));
}

TEST_F(ExportTest, ANameThatIsMuchTooLongForAFileIsExportedUnderItsStart)
{
    startWith(std::wstring(5000, L'n'));
    const std::wstring proposed = proposal();
    EXPECT_FALSE(proposed.empty());
    EXPECT_EQ(proposed, std::wstring(proposed.size(), L'n'));
    exportAs(target.file(proposed));
    EXPECT_EQ(target.names(), Lines{proposed + L".url"});
}

TEST_F(ExportTest, AcceptingTheProposalWritesThatFile)
{
    startWith(L"News");
    // The dialog starts in the current directory when there are files of its kind.
    target.write(L"other.url", "");
    const CurrentFolder here(target.path());
    exportBy([&] { choose(mnuExport); }, [](HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(target.names(), (Lines{L"News.url", L"other.url"}));
    EXPECT_EQ(target.read(L"News.url"), exported("http://news.example/"));
}

TEST_F(ExportTest, CancellingWritesNothingAndShowsNothing)
{
    startWith(L"News");
    const CurrentFolder here(target.path());
    exportBy([&] { choose(mnuExport); }, cancel);
    EXPECT_EQ(target.names(), Lines{});
    EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
}

TEST_F(ExportTest, TheCurrentDirectoryStaysWhatItWas)
{
    startWith(L"News");
    const CurrentFolder here(folder.path());
    exportAs(target.file(L"News.url"));
    EXPECT_EQ(std::filesystem::current_path().wstring(), folder.path());
}

// ---- the file

TEST_F(ExportTest, ANewFileHoldsTheUrlTwiceTheDefaultSectionFirst)
{
    startWith(L"News");
    exportAs(target.file(L"News.url"));
    EXPECT_EQ(target.read(L"News.url"), "[DEFAULT]\r\nBaseURL=http://news.example/\r\n"
                                        "[InternetShortcut]\r\nURL=http://news.example/\r\n");
}

TEST_F(ExportTest, TheExtensionMayBeLeftOut)
{
    startWith(L"News");
    for (const wchar_t* const name : {L"News", L"My.Site", L"LOUD.URL"}) exportAs(target.file(name));
    EXPECT_EQ(target.names(), (Lines{L"LOUD.URL", L"My.Site.url", L"News.url"}));
}

TEST_F(ExportTest, AnExistingFileKeepsItsOtherContent)
{
    startWith(L"News");
    target.write(L"A.url", "[DEFAULT]\r\nBASEURL=http://old/\r\n[Other]\r\nx=y\r\n[InternetShortcut]\r\n"
                           "URL=http://old/\r\nIconIndex=1\r\n");
    exportAs(target.file(L"A.url"));
    const std::string bytes = target.read(L"A.url");
    EXPECT_EQ(bytes.find("old"), std::string::npos);
    EXPECT_NE(bytes.find("[Other]\r\nx=y\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("IconIndex=1\r\n"), std::string::npos);
    EXPECT_LT(bytes.find("[DEFAULT]"), bytes.find("[Other]"));
    EXPECT_LT(bytes.find("[Other]"), bytes.find("[InternetShortcut]"));
    EXPECT_EQ(std::ranges::count(bytes, '['), 3);
}

TEST_F(ExportTest, TheUrlOfTheSelectedSiteIsWritten)
{
    startWith(L"first", L"http://1/");
    siteRows().add({L"second", L"http://2/", L"", L""}, siteImage);
    selectSites({1});
    exportAs(target.file(L"A.url"));
    EXPECT_EQ(target.read(L"A.url"), exported("http://2/"));
}

TEST_F(ExportTest, ALongUrlIsWrittenWhole)
{
    const std::string url = "http://" + std::string(2000, 'x') + "/";
    startWith(L"News", std::wstring(url.begin(), url.end()));
    exportAs(target.file(L"A.url"));
    EXPECT_EQ(target.read(L"A.url"), exported(url));
}

TEST_F(ExportTest, AFileNameOutsideTheCodePageIsWritten)
{
    startWith(L"\u65E5\u672C\u8A9E \u043D\u043E\u0432");
    EXPECT_EQ(proposal(), L"\u65E5\u672C\u8A9E \u043D\u043E\u0432");
    exportAs(target.file(L"\u65E5\u672C\u8A9E \u043D\u043E\u0432"));
    EXPECT_EQ(target.names(), Lines{L"\u65E5\u672C\u8A9E \u043D\u043E\u0432.url"});
    EXPECT_EQ(target.read(L"\u65E5\u672C\u8A9E \u043D\u043E\u0432.url"), exported("http://news.example/"));
}

TEST_F(ExportTest, APathThatNoShortNameCoversIsWritten)
{
    startWith(L"News");
    std::wstring deep = target.path();
    for (int depth = 0; depth < 40; ++depth) {
        deep += L"\\\u0416";
        ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
    }
    exportAs(deep + L"\\\u0416.url");
    EXPECT_EQ(readBytes(deep + L"\\\u0416.url"), exported("http://news.example/"));
}

TEST_F(ExportTest, WhatWasExportedIsReadAgainByTheImport)
{
    startWith(L"News", L"http://news.example/?a=b&c=%20;d#e");
    exportAs(target.file(L"News.url"));
    EXPECT_EQ(Module1::ReadINIValue(L"InternetShortcut", L"URL", target.file(L"News.url")),
              L"http://news.example/?a=b&c=%20;d#e");
    EXPECT_EQ(Module1::ReadINIValue(L"DEFAULT", L"BaseURL", target.file(L"News.url")),
              L"http://news.example/?a=b&c=%20;d#e");
}

TEST_F(ExportTest, ChangesNeitherTheSiteNorTheCategoryNorTheStatusBar)
{
    startWith(L"News");
    const std::wstring before = workspace().StatusBar1.panelText(1);
    exportAs(target.file(L"A.url"));
    EXPECT_EQ(sites(), Lines{L"News|http://news.example/|about|1/1/2001"});
    EXPECT_EQ(folder.read(L"Work.udb"), "");
    EXPECT_EQ(workspace().StatusBar1.panelText(1), before);
}

// ---- failures

TEST_F(ExportTest, WithoutASelectedSiteTheErrorIsShownByNumberAndDescription)
{
    startWith(L"News");
    lstInfo().clearSelection();
    Answers answers;
    answers.expectBox(L"Error!", L"Error #91 - Object variable or With block variable not set", IDOK,
                      MB_ICONHAND);
    choose(mnuExport);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(ExportTest, AFileThatAnotherProgramHoldsIsAnErrorAndStaysAsItIs)
{
    startWith(L"News");
    target.write(L"A.url", shortcutOf("http://old/"));
    {
        const HeldFile held(target.file(L"A.url"));
        exportInVain(L"A.url", L"Error #70 - Permission denied");
    }
    EXPECT_EQ(target.read(L"A.url"), shortcutOf("http://old/"));
}

TEST_F(ExportTest, AFileThatCannotBeMadeIsAnErrorAndNothingIsLeft)
{
    startWith(L"News");
    RefusingIni files;
    const FilesInForce refused(files);
    exportInVain(L"A.url", L"Error #75 - Path/File access error");
    EXPECT_EQ(target.names(), Lines{});
}

TEST_F(ExportTest, AFileThatStaysEmptyIsAnErrorAndIsRemovedWhenItIsNew)
{
    startWith(L"News");
    RefusingIni files;
    files.leavesEmptyFile = true;
    const FilesInForce refused(files);
    exportInVain(L"A.url", L"Error #57 - Device I/O error");
    EXPECT_EQ(target.names(), Lines{});
    target.write(L"B.url", "");
    exportInVain(L"B.url", L"Error #57 - Device I/O error");
    EXPECT_EQ(target.names(), Lines{L"B.url"});
}

TEST_F(ExportTest, AFileThatTakesOneOfTheValuesOnlyIsAnError)
{
    startWith(L"News");
    for (const int refusedCall : {1, 2}) {
        RefusingIni files;
        files.onlyCall = refusedCall;
        const FilesInForce refused(files);
        exportInVain(L"A.url", L"Error #57 - Device I/O error");
        EXPECT_EQ(target.names(), Lines{});
    }
}

TEST_F(ExportTest, AValueThatTheSystemReadsDifferentlyIsNotAnError)
{
    startWith(L"News");
    for (const wchar_t* const url :
         {L"", L" http://blank/ ", L"\"http://quoted/\"", L"http://\u65E5\u672C/\uFF5C", L"http://lone\nend/",
          L"http://loose/\xDC81/"}) {
        siteRows().setText(0, 1, url);
        exportAs(target.file(L"A.url"));
        EXPECT_TRUE(target.has(L"A.url"));
    }
}

// ---- ways to start it

TEST_F(ExportTest, IsReachedByItsKey)
{
    startWith(L"News");
    lstInfo().setFocus();
    exportBy([] { pressKey('E', true); }, naming(target.file(L"key.url")));
    EXPECT_EQ(target.names(), Lines{L"key.url"});
}

TEST_F(ExportTest, IsReachedByThePopUpMenu)
{
    startWith(L"News");
    exportBy([&] { choose(mnuPExport); }, naming(target.file(L"menu.url")));
    EXPECT_EQ(target.names(), Lines{L"menu.url"});
}

TEST_F(ExportTest, IsReachedByItsButton)
{
    startWith(L"News");
    exportBy([&] { main->toolBar().ButtonClick(5); }, naming(target.file(L"button.url")));
    EXPECT_EQ(target.names(), Lines{L"button.url"});
}

TEST_F(ExportTest, IsNotOfferedWithoutSites)
{
    folder.write(L"Work.udb", "");
    start();
    ASSERT_TRUE(pumpUntil([&] { return !isOffered(); }));
    const HWND bar = main->toolBar().handle();
    TBBUTTON button{};
    SendMessageW(bar, TB_GETBUTTON, 4, reinterpret_cast<LPARAM>(&button));
    EXPECT_EQ(SendMessageW(bar, TB_ISBUTTONENABLED, static_cast<WPARAM>(button.idCommand), 0), 0);
    Answers answers; // neither the dialog nor a message appears
    RECT area{};
    SendMessageW(bar, TB_GETITEMRECT, 4, reinterpret_cast<LPARAM>(&area));
    const LPARAM point = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    PostMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(bar, WM_LBUTTONUP, 0, point);
    pump();
    lstInfo().setFocus();
    pressKey('E', true);
    EXPECT_ANSWERED(answers);
}

// ---- keep on top

TEST_F(ExportTest, AWindowThatIsKeptOnTopStaysThereAfterwards)
{
    setPreference(L"Config", L"KeepTop", L"1");
    startWith(L"News");
    exportBy([&] { choose(mnuExport); }, cancel);
    EXPECT_TRUE(isTopmost(main->handle()));
}

} // namespace
} // namespace vandrel::test

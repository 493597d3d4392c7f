// Runs one command of the program on a folder and ends itself at one of the calls that change the disk; see
// disk_call_test.cpp.
//   disk_call_child COMMAND FOLDER TARGET CALL WHEN
// CALL counts from 1, and is 0 for none. WHEN is before, within (half of what the call writes is written) or
// after. TARGET holds the shortcuts that are imported; pages, copies and shortcuts are written there, and a
// file "calls" with one letter per call. A COMMAND that begins with "refused-" runs in a data folder that
// takes no new files.
//   disk_call_child start FOLDER...
// Starts the program on each of them.

#include "mainwindow/frm_main.h"
#include "mainwindow/menu_entries.h"
#include "store/category_selection.h"
#include "store/site_operations.h"
#include "tests/program/files/disk_calls.h"
#include "tests/program/files/ending_files.h"
#include "tests/support/answers.h"
#include "tests/support/folder_browser.h"
#include "tests/support/site_editor.h"
#include "tests/support/wine.h"

#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <map>

namespace vandrel::test {
namespace {

// The program with a data folder.
class Program {
  public:
    explicit Program(const std::wstring& folder)
        : folder_(folder),
          main_({.dataFolder = folder,
                 .commandLine = L"",
                 .settings = SettingsStore(disk_calls::application),
                 .today = [] { return std::wstring(L"11/16/2002"); }})
    {
        main_.Form_Load();
        main_.show(SW_SHOW);
        pump();
    }

    Workspace& workspace() { return main_.workspace(); }
    HWND window() { return main_.handle(); }
    void openCategory(const std::wstring& title)
    {
        ListView& categories = workspace().lstCategory;
        for (std::size_t row = 0; row < categories.count(); ++row) {
            if (categories.text(row) == title) selectCategory(workspace(), row);
        }
        workspace().lstInfo.select(0);
    }
    void choose(int entry) { SendMessageW(window(), WM_COMMAND, static_cast<WPARAM>(entry), 0); }
    void renameCategory(const std::wstring& title)
    {
        SetCurrentDirectoryW(folder_.c_str());
        choose(mnuRenameCat);
        ListView& categories = workspace().lstCategory;
        const auto edit = reinterpret_cast<HWND>(SendMessageW(categories.handle(), LVM_GETEDITCONTROL, 0, 0));
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(title.c_str()));
        SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
        pumpUntil([&] { return !categories.editingLabel(); });
    }
    void moveTo(const std::wstring& title)
    {
        for (std::size_t i = 0; i < workspace().mnuMove.count(); ++i) {
            if (workspace().mnuMove.caption(i) == title) choose(firstMoveEntry + static_cast<int>(i));
        }
    }

  private:
    std::wstring folder_;
    frmMain main_;
};

// Answers the system's file dialog with this path.
std::function<void(HWND)> naming(const std::wstring& path)
{
    return [path](HWND dialog) {
        constexpr int nameField = 1148;
        SendDlgItemMessageW(dialog, nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    };
}

std::function<void(HWND)> browsingTo(const std::wstring& folder)
{
    return [folder](HWND browser) {
        selectFolder(browser, folder);
        press(browser, IDOK);
    };
}

// One command, with the answers to its windows.
struct Command {
    std::function<void(Answers&, const std::wstring& target)> expect;
    std::function<void(Program&)> run;
};

std::function<void(Program&)> choosing(int entry)
{
    return [entry](Program& program) {
        program.openCategory(L"News");
        program.choose(entry);
    };
}

void expectNothing(Answers&, const std::wstring&) {}

std::function<void(Answers&, const std::wstring&)> expectTitle(const std::wstring& title)
{
    return [title](Answers& answers, const std::wstring&) {
        answers.expectInput(L"Category Name", L"Please enter a title for the new category.", title);
    };
}

constexpr int importFiles = 103;
constexpr int importAllButton = 104;

void expectImportOfOne(Answers& answers, const std::wstring&)
{
    answers.expect(L"Import Favorites", [](HWND dialog) {
        SendDlgItemMessageW(dialog, importFiles, LB_SETCURSEL, 0, 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(importFiles, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, importFiles)));
        press(dialog, IDOK);
    });
    answers.expectInput(L"Site Description", L"Enter a description for the site.", L"imported");
}

void expectImportOfAll(Answers& answers, const std::wstring&)
{
    answers.expect(L"Import Favorites", [](HWND dialog) { press(dialog, importAllButton); });
    answers.expect(L"Import All", [](HWND box) { press(box, IDOK); });
}

void expectPage(Answers& answers, const std::wstring& target)
{
    answers.expect(L"Output an HTML file...", naming(target + L"\\page.htm"));
    answers.expect(L"Success!", [](HWND box) { press(box, IDNO); });
}

void expectBrowser(Answers& answers, const std::wstring& target)
{
    // The caption is the system's own.
    answers.expect(runsUnderWine() ? L"Browse for Folder" : L"Browse For Folder", browsingTo(target));
}

void expectExport(Answers& answers, const std::wstring& target)
{
    answers.expect(L"Export URL File", naming(target + L"\\Exported.url"));
}

std::map<std::wstring, Command> commands()
{
    const auto typing = [](const wchar_t* caption) {
        return [caption](Answers& answers, const std::wstring&) {
            answers.expect(caption, typeSite(L"Typed", L"zzz://typed.example/", L"by hand"));
        };
    };
    const auto yes = [](const wchar_t* caption) {
        return [caption](Answers& answers, const std::wstring&) {
            answers.expect(caption, [](HWND box) { press(box, IDYES); });
        };
    };
    const Command edit{typing(editCaption), choosing(mnuEditSel)};
    return {
        {L"add", {typing(addCaption), choosing(mnuAddWebsite)}},
        {L"edit", edit},
        {L"refused-edit", edit},
        {L"describe",
         {[](Answers& answers, const std::wstring&) {
              answers.expect(L"Enter Description", [](HWND box) {
                  const HWND field = FindWindowExW(box, nullptr, L"Edit", nullptr);
                  SendMessageW(field, EM_SETSEL, 0, -1);
                  SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"described"));
                  press(box, IDOK);
              });
          },
          [](Program& program) {
              program.openCategory(L"News");
              EditDescription(program.workspace());
          }}},
        {L"remove", {yes(L"Remove site(s)"), choosing(mnuRemoveWebsite)}},
        {L"refused-remove", {yes(L"Remove site(s)"), choosing(mnuRemoveWebsite)}},
        {L"move",
         {expectNothing,
          [](Program& program) {
              program.openCategory(L"News");
              program.moveTo(L"Tools");
          }}},
        {L"open", {expectNothing, choosing(mnuOpenURL)}},
        {L"add-category", {expectTitle(L"Fresh"), choosing(mnuAddCategory)}},
        {L"add-category-again", {expectTitle(L"Tools"), choosing(mnuAddCategory)}},
        {L"rename-category",
         {expectNothing,
          [](Program& program) {
              program.openCategory(L"News");
              program.renameCategory(L"Renamed");
          }}},
        {L"remove-category", {yes(L"Vandrel"), choosing(mnuRemoveCategory)}},
        {L"first-site",
         {[](Answers& answers, const std::wstring& target) {
              answers.expect(addCaption, typeSite(L"Typed", L"zzz://typed.example/", L"by hand"));
              answers.expect(L"No Categories", [](HWND box) { press(box, IDOK); });
              expectTitle(L"Fresh")(answers, target);
          },
          choosing(mnuAddWebsite)}},
        {L"import-one", {expectImportOfOne, choosing(mnuImport)}},
        {L"import-all", {expectImportOfAll, choosing(mnuImport)}},
        {L"export", {expectExport, choosing(mnuExport)}},
        {L"page-current", {expectPage, choosing(mnuCurrentCat)}},
        {L"page-all", {expectPage, choosing(mnuAllCats)}},
        {L"backup-current", {expectBrowser, choosing(mnuBUCurrentCat)}},
        {L"backup-all", {expectBrowser, choosing(mnuBUAllCat)}},
        {L"scan",
         {[](Answers& answers, const std::wstring&) {
              answers.expect(L"Check Internet Connection", [](HWND box) { press(box, IDOK); });
          },
          choosing(mnuScanAllURLs)}},
        {L"start-up", {expectNothing, [](Program&) {}}},
        {L"shutdown",
         {expectNothing, [](Program& program) { SendMessageW(program.window(), WM_CLOSE, 0, 0); }}},
    };
}

int runCommand(const std::wstring& name, const std::wstring& folder, const std::wstring& target, int call,
               When when)
{
    const auto known = commands();
    const auto command = known.find(name);
    if (command == known.end()) return disk_calls::unknown;
    EndingFiles files(folder, call, when, name.starts_with(L"refused-"));
    const FilesInForce counted(files);
    Program program(folder);
    program.workspace().favoritesFolder = target + L"\\favorites";
    Answers answers;
    command->second.expect(answers, target);
    command->second.run(program);
    if (!answers.done() || !answers.complaint().empty()) {
        std::fprintf(stderr, "%ls\n", answers.complaint().c_str());
        return disk_calls::unanswered;
    }
    FileLayer system;
    const FilesInForce uncounted(system);
    writeFile(target + L"\\calls", files.calls);
    return disk_calls::endedByItself;
}

} // namespace
} // namespace vandrel::test

int wmain(int argc, wchar_t** argv)
{
    using namespace vandrel::test;
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    const std::wstring command = argc > 1 ? argv[1] : L"";
    if (command == L"start") {
        for (int folder = 2; folder < argc; ++folder) const Program started(argv[folder]);
        return disk_calls::endedByItself;
    }
    if (argc != 6) return disk_calls::unknown;
    const std::wstring when = argv[5];
    return runCommand(command, argv[2], argv[3], _wtoi(argv[4]),
                      when == L"before"   ? When::before
                      : when == L"within" ? When::within
                                          : When::after);
}

#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"
#include "mainwindow/frm_main.h"
#include "platform/controls/simple_controls.h"
#include "tests/support/answers.h"

#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace vandrel::bench {
namespace {

constexpr std::size_t categoryCount = 50;
constexpr std::size_t sitesInCategory = 2'000;
constexpr int nameField = 1148; // of the system's file dialog

bool isDialog(HWND window)
{
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770";
}

// Answers the dialogs of one command and times it while the progress bar is visible: the dialogs' own time
// is not the command's. A page is done when the command asks whether to open it.
class OneCommand {
  public:
    OneCommand(frmMain& window, int entry, fs::path target)
        : target_(std::move(target)), bar_(window.workspace().PB.handle())
    {
        active() = this;
        hook_ = SetWindowsHookExW(WH_CBT, watchDialogs, nullptr, GetCurrentThreadId());
        SetWindowSubclass(bar_, watchBar, 1, 0);
        timer_ = SetTimer(nullptr, 0, 10, tick);
        window.run(entry);
    }
    OneCommand(const OneCommand&) = delete;
    OneCommand& operator=(const OneCommand&) = delete;
    ~OneCommand()
    {
        KillTimer(nullptr, timer_);
        RemoveWindowSubclass(bar_, watchBar, 1);
        UnhookWindowsHookEx(hook_);
        active() = nullptr;
    }

    double milliseconds() const { return end_ - begin_; }

  private:
    static OneCommand*& active()
    {
        static OneCommand* running = nullptr;
        return running;
    }
    void ends()
    {
        if (begin_ != 0 && end_ == 0) end_ = now();
    }
    static LRESULT CALLBACK watchDialogs(int code, WPARAM window, LPARAM parameter)
    {
        if (code == HCBT_CREATEWND && isDialog(reinterpret_cast<HWND>(window))) active()->ends();
        return CallNextHookEx(nullptr, code, window, parameter);
    }
    static LRESULT CALLBACK watchBar(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR)
    {
        if (message == WM_SHOWWINDOW && wParam == TRUE) active()->begin_ = now();
        if (message == WM_SHOWWINDOW && wParam == FALSE) active()->ends();
        return DefSubclassProc(window, message, wParam, lParam);
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
    {
        if (active() != nullptr) active()->look();
    }
    void look()
    {
        const HWND dialog = GetActiveWindow();
        if (!isDialog(dialog) || !IsWindowVisible(dialog)) return;
        const std::wstring path = target_.wstring();
        const auto text = reinterpret_cast<LPARAM>(path.c_str());
        if (GetDlgItem(dialog, IDNO) != nullptr) {
            test::press(dialog, IDNO);
        } else if (GetDlgItem(dialog, nameField) != nullptr) {
            SendDlgItemMessageW(dialog, nameField, WM_SETTEXT, 0, text);
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        } else if (const HWND tree = FindWindowExW(dialog, nullptr, WC_TREEVIEWW, nullptr)) {
            SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, text);
            // A new folder is not always found at the first attempt.
            if (SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0) != 0) test::press(dialog, IDOK);
        }
    }

    fs::path target_;
    HWND bar_;
    HHOOK hook_ = nullptr;
    UINT_PTR timer_ = 0;
    double begin_ = 0;
    double end_ = 0;
};

std::vector<fs::path> makeCategories(const fs::path& folder)
{
    std::vector<fs::path> files;
    for (std::size_t category = 0; category < categoryCount; ++category) {
        files.push_back(folder / (L"Category " + std::to_wstring(100 + category) + L".udb"));
        writeFile(files.back().c_str(), generatedSites(sitesInCategory, static_cast<unsigned>(category + 1)));
    }
    return files;
}

void pageRow(frmMain& window, const std::vector<fs::path>& files, const fs::path& folder)
{
    const fs::path page = folder / L"page.htm";
    std::string bytes;
    const auto ours = [&] {
        const double time = OneCommand(window, mnuAllCats, page).milliseconds();
        bytes = readWhole(page.c_str());
        return time;
    };
    const auto plain = [&] {
        for (const fs::path& file : files) readWhole(file.c_str());
        writeFile((folder / L"plain.htm").c_str(), bytes);
    };
    const auto times = timedInTurn({ours, timing(plain)});
    print({"a page of 100,000 sites in 50 categories", "reading the same files, writing the same bytes",
           times[0], times[1], "ms", 3});
}

void backupRow(frmMain& window, const std::vector<fs::path>& files, const fs::path& folder)
{
    const fs::path copies = folder / L"backup";
    fs::create_directories(copies);
    const fs::path plain = folder / L"plain";
    fs::create_directories(plain);
    const auto copyPlainly = [&] {
        for (const fs::path& file : files) CopyFileW(file.c_str(), (plain / file.filename()).c_str(), FALSE);
    };
    const auto copySafely = [&] {
        const fs::path beside = plain / L"beside.tmp";
        for (const fs::path& file : files) {
            CopyFileW(file.c_str(), beside.c_str(), FALSE);
            MoveFileExW(beside.c_str(), (plain / file.filename()).c_str(), MOVEFILE_REPLACE_EXISTING);
        }
    };
    const auto times = timedInTurn({[&] { return OneCommand(window, mnuBUAllCat, copies).milliseconds(); },
                                    timing(copyPlainly), timing(copySafely)});
    for (const fs::path& file : files) {
        if (!fs::exists(copies / file.filename())) std::printf("backup: a copy is missing\n");
    }
    print({"backup of the 50 categories over an earlier one", "copying the same files", times[0], times[1],
           "ms", 1.3});
    print({"the same", "copying each beside its target and moving it over", times[0], times[2], "ms", 1.2});
}

} // namespace

void outputRows()
{
    const fs::path folder = fs::current_path() / L"output";
    fs::create_directories(folder / L"data");
    const std::vector<fs::path> files = makeCategories(folder / L"data");
    frmMain window({.dataFolder = (folder / L"data").wstring(),
                    .commandLine = {},
                    .settings = SettingsStore(L"VandrelBench"),
                    .today = [] { return std::wstring(L"11/16/2002"); }});
    window.Form_Load();
    window.show(SW_SHOW);
    SetWindowPos(window.handle(), nullptr, 0, 0, 1100, 800, SWP_NOZORDER);
    test::pump();
    pageRow(window, files, folder);
    backupRow(window, files, folder);
}

} // namespace vandrel::bench

#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"
#include "mainwindow/frm_main.h"
#include "tests/support/answers.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <functional>

namespace fs = std::filesystem;

namespace vandrel::bench {
namespace {

constexpr std::size_t siteCount = 10'000;
constexpr std::size_t shortcutCount = 1'000;
constexpr int runs = 3;
constexpr int importAllButton = 104;

void overwrite(const fs::path& path, const char* bytes, std::size_t count)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes, static_cast<DWORD>(count), &written, nullptr);
    FlushFileBuffers(file);
    CloseHandle(file);
}

void overwrite(const fs::path& path, const std::string& bytes)
{
    overwrite(path, bytes.data(), bytes.size());
}

// Presses "Import All" in the dialog that opens next, and times it until the message that it is done.
class ImportAll {
  public:
    ImportAll()
    {
        active() = this;
        timer_ = SetTimer(nullptr, 0, 10, tick);
    }
    ImportAll(const ImportAll&) = delete;
    ImportAll& operator=(const ImportAll&) = delete;
    ~ImportAll()
    {
        KillTimer(nullptr, timer_);
        active() = nullptr;
    }

    double milliseconds() const { return done_ - pressed_; }

  private:
    static ImportAll*& active()
    {
        static ImportAll* running = nullptr;
        return running;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
    {
        if (active() != nullptr) active()->look();
    }
    void look()
    {
        if (const HWND message = FindWindowW(L"#32770", L"Import All"); message != nullptr && done_ == 0) {
            done_ = now();
            test::press(message, IDOK);
        }
        const HWND dialog = FindWindowW(L"#32770", L"Import Favorites");
        if (pressed_ != 0 || dialog == nullptr || !IsWindowVisible(dialog)) return;
        pressed_ = now();
        test::press(dialog, importAllButton);
    }

    UINT_PTR timer_ = 0;
    double pressed_ = 0;
    double done_ = 0;
};

void makeShortcuts(const fs::path& folder)
{
    fs::create_directories(folder);
    for (std::size_t i = 0; i < shortcutCount; ++i) {
        overwrite(folder / (L"Shortcut " + std::to_wstring(i) + L".url"),
                  "[InternetShortcut]\r\nURL=http://www.shortcut.example/" +
                      std::to_string(i * 7919 % shortcutCount) + "/page.html\r\n");
    }
}

void importRow(const fs::path& folder)
{
    const fs::path category = folder / L"Import.udb";
    const std::string before = generatedSites(siteCount);
    overwrite(category, before);
    frmMain window({.dataFolder = folder.wstring(),
                    .commandLine = {},
                    .settings = SettingsStore(L"VandrelBench"),
                    .today = [] { return std::wstring(L"11/16/2002"); }});
    window.Form_Load();
    window.show(SW_SHOW);
    SetWindowPos(window.handle(), nullptr, 0, 0, 1100, 800, SWP_NOZORDER);
    test::pump();
    Workspace& workspace = window.workspace();
    workspace.favoritesFolder = (folder / L"favorites").wstring();

    std::string after;
    const auto ours = [&] {
        overwrite(category, before);
        workspace.lstCategory.ItemClick(0);
        const ImportAll import;
        window.run(mnuImport);
        if (workspace.lstInfo.count() != siteCount + shortcutCount) std::printf("import: wrong count\n");
        after = readWhole(category.c_str());
        return import.milliseconds();
    };
    // What the category has after each of the imports.
    const auto writeEach = [&](const std::function<void(std::size_t count)>& write) {
        const std::size_t added = (after.size() - before.size()) / shortcutCount;
        for (std::size_t i = 1; i <= shortcutCount; ++i) write(before.size() + i * added);
    };
    const fs::path plain = folder / L"plain.txt";
    const fs::path beside = folder / L"beside.tmp";
    const auto writePlain = [&](std::size_t count) { overwrite(plain, after.data(), count); };
    const auto writeSafely = [&](std::size_t count) {
        overwrite(beside, after.data(), count);
        MoveFileExW(beside.c_str(), plain.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    };
    const auto times = timedInTurn(
        {ours, timing([&] { writeEach(writePlain); }), timing([&] { writeEach(writeSafely); })}, runs);
    print({"import of 1,000 shortcuts into a category of 10,000 sites", "writing the same bytes as often",
           times[0], times[1], "ms", 1.3});
    print({"the same", "writing each beside its target and moving it over", times[0], times[2], "ms", 1.3});
}

} // namespace

void exchangeRows()
{
    const fs::path folder = fs::current_path() / L"import";
    makeShortcuts(folder / L"favorites");
    importRow(folder);
}

} // namespace vandrel::bench

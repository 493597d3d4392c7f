#include "tests/program/support/day.h"

#include "tests/program/support/screen_picture.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel::test {

// A run that was killed leaves its folders behind, and a later one may get the same names.
Day::Day()
{
    for (const TempFolder* const used : {&folder, &favorites, &page_, &backup_}) {
        for (const std::wstring& name : used->names()) {
            if (name != L"Vandrel.exe") DeleteFileW(used->file(name).c_str());
        }
    }
}

void Day::spend(const DayPlan& plan)
{
    plan_ = plan;
    startForTheFirstTime();
    makeCategories();
    typeSite();
    dropLink();
    importShortcuts();
    program.quit();
    bringCollection();
    startWithCollection();
    searchCategoryAndOpen();
    searchAllAndOpen();
    scanLinks();
    makePage();
    backUp();
    changeFont();
    changeShape();
    startNextDay();
}

void Day::requireCollection(const std::wstring& name, UINT codePage)
{
    if (GetACP() != codePage) GTEST_SKIP() << "not under the settings that this day needs";
    const auto shared = sharedFolder(name);
    if (!shared) GTEST_SKIP() << "no collection beside the project";
    collection_ = *shared;
}

// ---- pictures

// Of a screen that no longer changes: the program may still be painting.
void Day::picture(const char* name)
{
    constexpr ULONGLONG unchangedMilliseconds = 150;
    ++pictures_;
    const auto folderName = environment(L"VANDREL_PICTURES");
    if (!folderName) return;
    const std::string number = (pictures_ < 10 ? "0" : "") + std::to_string(pictures_);
    const std::wstring path = nativePath(std::string(folderName->begin(), folderName->end()) + "/" +
                                         plan_.pictures + "-" + number + "-" + name + ".bmp");
    std::string last;
    ULONGLONG since = GetTickCount64();
    soon([&] {
        savePictureOfScreen(path);
        std::string now = readBytes(path);
        if (now == last) return GetTickCount64() - since > unchangedMilliseconds;
        last = std::move(now);
        since = GetTickCount64();
        return false;
    });
}

// ---- keys and mouse

void Day::menu(WORD letter, WORD entry, WORD subEntry) const
{
    constexpr DWORD altLimit = 3000; // a window that has only just got the focus may miss the Alt key
    const auto open = [&] { return program.menuIsOpen(); };
    program.key(letter, {VK_MENU});
    if (!soon(open, altLimit)) program.key(letter, {VK_MENU});
    EXPECT_TRUE(soon(open));
    program.key(entry);
    if (subEntry != 0) program.key(subEntry);
}

// The edge of a hidden column lies under its neighbour's.
void Day::dragColumnEdge(int column, LONG by) const
{
    const POINT middle = program.controls().headerPoint(program.sites(), column);
    const int width = program.controls().columnWidth(program.sites(), column);
    const LONG edge = width > 0 ? middle.x + width / 2 - 1 : middle.x + 2;
    program.drag({edge, middle.y}, {edge + by, middle.y});
}

// ---- files

std::string Day::ansi(const std::wstring& text)
{
    std::string bytes(text.size() * 2, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// Today in this day's date format, worked out without the system.
std::wstring Day::dated() const
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const auto two = [](WORD number) { return (number < 10 ? L"0" : L"") + std::to_wstring(number); };
    const std::wstring year = std::to_wstring(now.wYear);
    if (plan_.dateForm == L"dd.MM.yyyy") return two(now.wDay) + L"." + two(now.wMonth) + L"." + year;
    if (plan_.dateForm == L"yyyy/MM/dd") return year + L"/" + two(now.wMonth) + L"/" + two(now.wDay);
    return std::to_wstring(now.wMonth) + L"/" + std::to_wstring(now.wDay) + L"/" + year;
}

Texts Day::titlesOnDisk() const
{
    Texts titles;
    for (const std::wstring& name : folder.names()) {
        if (name.ends_with(L".udb")) titles.push_back(name.substr(0, name.size() - 4));
    }
    std::ranges::sort(titles);
    return titles;
}

std::map<std::wstring, std::string> Day::bytesOnDisk() const
{
    std::map<std::wstring, std::string> all;
    for (const std::wstring& title : titlesOnDisk()) all[title] = folder.read(title + L".udb");
    return all;
}

std::size_t Day::sitesIn(const std::wstring& title) const
{
    const std::string bytes = folder.read(title + L".udb");
    std::size_t sites = 0;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find("\r\n", start), bytes.size());
        const std::string line = bytes.substr(start, end - start);
        if (!line.starts_with(";") && line.find('|') != std::string::npos) ++sites;
        start = end + 2;
    }
    return sites;
}

std::size_t Day::sitesInAll() const
{
    std::size_t sites = 0;
    for (const std::wstring& title : titlesOnDisk()) sites += sitesIn(title);
    return sites;
}

// ---- what the screen shows

Texts Day::sortedTitles() const
{
    Texts titles = program.titles();
    std::ranges::sort(titles);
    return titles;
}

int Day::imageOf(int row) const
{
    DWORD id = 0;
    GetWindowThreadProcessId(program.window(), &id);
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
    void* const block = VirtualAllocEx(process, nullptr, sizeof(LVITEMW), MEM_COMMIT, PAGE_READWRITE);
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    item.iImage = -1;
    WriteProcessMemory(process, block, &item, sizeof item, nullptr);
    ask(program.sites(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(block));
    ReadProcessMemory(process, block, &item, sizeof item, nullptr);
    VirtualFreeEx(process, block, 0, MEM_RELEASE);
    CloseHandle(process);
    return item.iImage;
}

int Day::rowHeight() const
{
    // The heights for twenty rows and for none, the header included in both.
    const auto heightOf = [&](WPARAM rows) {
        return HIWORD(ask(program.sites(), LVM_APPROXIMATEVIEWRECT, rows, MAKELPARAM(100, 100)));
    };
    constexpr WPARAM rows = 20;
    return (heightOf(rows) - heightOf(0)) / static_cast<int>(rows);
}

std::vector<int> Day::columnWidths() const
{
    std::vector<int> widths;
    for (int column = 0; column < 4; ++column)
        widths.push_back(program.controls().columnWidth(program.sites(), column));
    return widths;
}

std::vector<LONG> Day::place() const
{
    RECT area{};
    GetWindowRect(program.window(), &area);
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}

LONG Day::widthOf(HWND window)
{
    RECT area{};
    GetWindowRect(window, &area);
    return area.right - area.left;
}

POINT Day::middleOf(HWND window)
{
    RECT area{};
    GetWindowRect(window, &area);
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

} // namespace vandrel::test

#include "tests/program/support/remote_controls.h"

#include <commctrl.h>

#include <stdexcept>

namespace vandrel::test {
namespace {

constexpr UINT answerMilliseconds = 15'000; // more than twice the longest wait for a held file
constexpr std::size_t blockSize = 64U << 10;
constexpr std::size_t textOffset = 1024; // after the structure that a message takes
constexpr std::size_t longestText = (blockSize - textOffset) / sizeof(wchar_t);

} // namespace

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, answerMilliseconds, &answer)) {
        throw std::runtime_error("a window did not answer message " + std::to_string(message));
    }
    return static_cast<LRESULT>(answer);
}

std::wstring textOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

RemoteControls::RemoteControls(HANDLE process)
    : process_(process),
      block_(static_cast<std::byte*>(
          VirtualAllocEx(process, nullptr, blockSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)))
{
    if (block_ == nullptr) throw std::runtime_error("no memory in the program under test");
}

RemoteControls::~RemoteControls() { VirtualFreeEx(process_, block_, 0, MEM_RELEASE); }

template <typename Value> void RemoteControls::put(const Value& value) const
{
    static_assert(sizeof value <= textOffset);
    if (!WriteProcessMemory(process_, block_, &value, sizeof value, nullptr))
        throw std::runtime_error("the program under test has ended");
}

template <typename Value> Value RemoteControls::get() const
{
    Value value{};
    if (!ReadProcessMemory(process_, block_, &value, sizeof value, nullptr))
        throw std::runtime_error("the program under test has ended");
    return value;
}

std::wstring RemoteControls::textFromBlock(std::size_t length) const
{
    std::wstring text(length, L'\0');
    if (!ReadProcessMemory(process_, block_ + textOffset, text.data(), length * sizeof(wchar_t), nullptr))
        throw std::runtime_error("the program under test has ended");
    return text;
}

int RemoteControls::rowCount(HWND list) { return static_cast<int>(ask(list, LVM_GETITEMCOUNT)); }

std::wstring RemoteControls::cell(HWND list, int row, int column) const
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(block_ + textOffset);
    item.cchTextMax = static_cast<int>(longestText);
    put(item);
    const LRESULT length = ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                               reinterpret_cast<LPARAM>(block_));
    return textFromBlock(static_cast<std::size_t>(length));
}

std::vector<std::wstring> RemoteControls::column(HWND list, int column) const
{
    std::vector<std::wstring> texts;
    for (int row = 0; row < rowCount(list); ++row) texts.push_back(cell(list, row, column));
    return texts;
}

std::vector<int> RemoteControls::selectedRows(HWND list) const
{
    std::vector<int> rows;
    for (int row = -1; (row = static_cast<int>(
                            ask(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0;) {
        rows.push_back(row);
    }
    return rows;
}

int RemoteControls::columnWidth(HWND list, int column) const
{
    return static_cast<int>(ask(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

POINT RemoteControls::rowPoint(HWND list, int row) const
{
    ask(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT area{};
    area.left = LVIR_LABEL;
    put(area);
    if (!ask(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(block_)))
        throw std::runtime_error("the list has no row " + std::to_string(row));
    area = get<RECT>();
    POINT point{area.left + 10, (area.top + area.bottom) / 2};
    ClientToScreen(list, &point);
    return point;
}

POINT RemoteControls::headerPoint(HWND list, int column) const
{
    const auto header = reinterpret_cast<HWND>(ask(list, LVM_GETHEADER));
    put(RECT{});
    if (!ask(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(block_)))
        throw std::runtime_error("the list has no column " + std::to_string(column));
    const RECT area = get<RECT>();
    POINT point{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(header, &point);
    return point;
}

std::wstring RemoteControls::panelText(HWND statusBar, int panel) const
{
    const auto length = LOWORD(ask(statusBar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(panel)));
    ask(statusBar, SB_GETTEXTW, static_cast<WPARAM>(panel), reinterpret_cast<LPARAM>(block_ + textOffset));
    return textFromBlock(length);
}

} // namespace vandrel::test

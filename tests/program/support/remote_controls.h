#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vandrel::test {

// Sends a message to a window of another process; throws std::runtime_error when it does not answer.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
std::wstring textOf(HWND window);

// Reads the common controls of another process. Their messages take addresses, which must lie in that
// process.
class RemoteControls {
  public:
    explicit RemoteControls(HANDLE process);
    RemoteControls(const RemoteControls&) = delete;
    RemoteControls& operator=(const RemoteControls&) = delete;
    ~RemoteControls();

    // Rows, columns and panels from 0.
    static int rowCount(HWND list);
    std::wstring cell(HWND list, int row, int column) const;
    std::vector<std::wstring> column(HWND list, int column) const;
    std::vector<int> selectedRows(HWND list) const;
    int columnWidth(HWND list, int column) const;
    // In screen coordinates: a point on the row's text, and the middle of the column's header.
    POINT rowPoint(HWND list, int row) const;
    POINT headerPoint(HWND list, int column) const;
    std::wstring panelText(HWND statusBar, int panel) const;

  private:
    template <typename Value> void put(const Value& value) const;
    template <typename Value> Value get() const;
    std::wstring textFromBlock(std::size_t length) const;

    HANDLE process_; // borrowed
    std::byte* block_;
};

} // namespace vandrel::test

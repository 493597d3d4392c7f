#pragma once

#include "store/category_file.h"
#include "store/category_list.h"
#include "store/category_making.h"
#include "store/category_selection.h"
#include "store/save_items.h"
#include "tests/support/error_of.h"
#include "tests/support/held_file.h"
#include "tests/support/main_window_test.h"

#include <initializer_list>

namespace vandrel::test {

// The main window, with what the tests of categories and sites need from it again and again.
class StoreTest : public MainWindowTest {
  protected:
    Workspace& workspace() { return main->workspace(); }

    // The shown sites, each as the line that it is saved as.
    std::vector<std::wstring> sites()
    {
        std::vector<std::wstring> lines;
        for (std::size_t row = 0; row < lstInfo().count(); ++row) {
            std::wstring line = lstInfo().text(row, 0);
            for (std::size_t field = 1; field < 4; ++field) line += L"|" + lstInfo().text(row, field);
            lines.push_back(line);
        }
        return lines;
    }
    // Selects rows of the site list, as clicks with Ctrl do. The last one is the current row.
    void selectSites(std::initializer_list<std::size_t> rows)
    {
        lstInfo().clearSelection();
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        for (const std::size_t row : rows) {
            SendMessageW(lstInfo().handle(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
        }
    }
    std::vector<std::wstring> titles() { return column(lstCategory()); }
    std::wstring selectedTitle()
    {
        const auto row = lstCategory().currentRow();
        return row ? lstCategory().text(*row) : L"(none)";
    }
    std::vector<std::wstring> moveEntries()
    {
        std::vector<std::wstring> captions;
        for (std::size_t i = 0; i < workspace().mnuMove.count(); ++i) {
            captions.push_back(workspace().mnuMove.caption(i));
        }
        return captions;
    }
    // Sends the command through the window, so that failures are handled as in the running program.
    void choose(int entry) { SendMessageW(main->handle(), WM_COMMAND, static_cast<WPARAM>(entry), 0); }

    void makeReadOnly(const std::wstring& name)
    {
        SetFileAttributesW(folder.file(name).c_str(), FILE_ATTRIBUTE_READONLY);
    }
    void makeFolder(const std::wstring& name) { CreateDirectoryW(folder.file(name).c_str(), nullptr); }
};

using Lines = std::vector<std::wstring>;

// The run-time error box as the user gets it.
inline void expectErrorBox(Answers& answers, int number, const std::wstring& description)
{
    answers.expectBox(L"Vandrel", L"Run-time error '" + std::to_wstring(number) + L"':\r\n\r\n" + description,
                      IDOK, MB_ICONHAND);
}

// The ids of a message box's buttons.
inline std::vector<int> buttonsOf(HWND box)
{
    std::vector<int> ids;
    for (const int id : {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO}) {
        if (IsWindowVisible(GetDlgItem(box, id))) ids.push_back(id);
    }
    return ids;
}

// Sets the process's current directory until the end of the test.
class CurrentFolder {
  public:
    explicit CurrentFolder(const std::wstring& path)
    {
        before_.resize(GetCurrentDirectoryW(0, nullptr));
        before_.resize(GetCurrentDirectoryW(static_cast<DWORD>(before_.size()), before_.data()));
        SetCurrentDirectoryW(path.c_str());
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { SetCurrentDirectoryW(before_.c_str()); }

  private:
    std::wstring before_;
};

} // namespace vandrel::test

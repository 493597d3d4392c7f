#pragma once

#include "platform/base/callback_error.h"

#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vandrel {

// The system's task dialog: set the fields, show it. The program's manifest must ask for common controls 6.
class TaskDialog {
  public:
    enum class Icon { none, information, warning, error };
    struct Link {
        int id; // from 100
        std::wstring text;
        std::wstring note;
    };

    std::wstring title;
    std::wstring instruction;
    std::wstring text;
    Icon icon = Icon::none;
    std::vector<Link> links;
    TASKDIALOG_COMMON_BUTTON_FLAGS button = TDCBF_CLOSE_BUTTON;

    // With `progress` it has a progress bar and calls it five times a second: for the part that is done, of
    // 1,000, or nothing once the dialog is to close. `cancelled` is called when the user cancels; the dialog
    // then stays until `progress` closes it.
    std::function<std::optional<int>()> progress;
    std::function<void()> cancelled;

    // Returns the id of the link that was chosen, or IDCANCEL or IDCLOSE. Throws RuntimeError (7, 51) if the
    // system cannot show it, or what the two functions throw.
    int show(HWND owner);

  private:
    static HRESULT CALLBACK callBack(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                     LONG_PTR dialog) noexcept;
    HRESULT onMessage(HWND window, UINT message, WPARAM wParam);
    void followProgress(HWND window);

    CallbackError error_;
    bool ended_ = false;
};

} // namespace vandrel

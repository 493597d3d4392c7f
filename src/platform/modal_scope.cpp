#include "platform/modal_scope.h"

namespace vandrel {
namespace {

struct Search {
    HWND dialog;
    HWND owner;
    std::vector<HWND>& found;
};

BOOL CALLBACK takeWindow(HWND window, LPARAM parameter)
{
    const Search& search = *reinterpret_cast<const Search*>(parameter);
    const bool hasCaption = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (window != search.dialog && window != search.owner && hasCaption && IsWindowVisible(window) != 0 &&
        IsWindowEnabled(window) != 0) {
        search.found.push_back(window);
    }
    return TRUE;
}

} // namespace

ModalScope::ModalScope(HWND dialog, HWND owner)
{
    Search search{dialog, owner, disabled_};
    EnumThreadWindows(GetCurrentThreadId(), takeWindow, reinterpret_cast<LPARAM>(&search));
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

ModalScope::~ModalScope()
{
    for (const HWND window : disabled_) EnableWindow(window, TRUE);
}

} // namespace vandrel

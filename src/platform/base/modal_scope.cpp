#include "platform/base/modal_scope.h"

#include "platform/base/callback_error.h"

namespace vandrel {
namespace {

struct Search {
    HWND dialog = nullptr;
    HWND owner = nullptr;
    std::vector<HWND>& found;
    CallbackError error{};
};

BOOL CALLBACK takeWindow(HWND window, LPARAM parameter)
{
    Search& search = *reinterpret_cast<Search*>(parameter);
    const bool hasCaption = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (window != search.dialog && window != search.owner && hasCaption && IsWindowVisible(window) != 0 &&
        IsWindowEnabled(window) != 0) {
        return search.error.keep(FALSE, [&] {
            search.found.push_back(window);
            return TRUE;
        });
    }
    return TRUE;
}

} // namespace

ModalScope::ModalScope(HWND dialog, HWND owner)
{
    Search search{dialog, owner, disabled_};
    EnumThreadWindows(GetCurrentThreadId(), takeWindow, reinterpret_cast<LPARAM>(&search));
    search.error.rethrow();
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

ModalScope::~ModalScope()
{
    for (const HWND window : disabled_) EnableWindow(window, TRUE);
}

} // namespace vandrel

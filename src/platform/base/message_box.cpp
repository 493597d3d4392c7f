#include "platform/base/message_box.h"

#include "platform/base/modal_scope.h"
#include "platform/base/program.h"
#include "platform/base/runtime_error.h"

namespace vandrel {
namespace {

int show(HWND owner, const std::wstring& text, const std::wstring& title, UINT style)
{
    const ModalScope others(nullptr, owner);
    return MessageBoxW(owner, text.c_str(), title.c_str(), style);
}

} // namespace

void tell(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon)
{
    show(owner, text, title, MB_OK | static_cast<UINT>(icon));
}

bool askYesNo(HWND owner, const std::wstring& text, const std::wstring& title, BoxIcon icon,
              FirstButton first)
{
    const UINT button = first == FirstButton::yes ? MB_DEFBUTTON1 : MB_DEFBUTTON2;
    return show(owner, text, title, MB_YESNO | button | static_cast<UINT>(icon)) == IDYES;
}

void showRuntimeError(HWND owner, const RuntimeError& error)
{
    tell(owner, L"Run-time error '" + std::to_wstring(error.number()) + L"':\r\n\r\n" + error.description(),
         programTitle, BoxIcon::critical);
}

} // namespace vandrel

#include "platform/controls/tool_tip.h"

#include "platform/base/system_error.h"
#include "platform/base/twips.h"

#include <commctrl.h>

namespace vandrel {
namespace {

// Wider texts are broken into lines.
constexpr Twips widestTip{9000};

TTTOOLINFOW toolOf(HWND window, std::wstring& text)
{
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(window);
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = text.data();
    return tool;
}

} // namespace

ToolTip::ToolTip(HWND window)
    : window_(window),
      tip_(CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           GetAncestor(window, GA_ROOT), nullptr, GetModuleHandleW(nullptr), nullptr))
{
    if (tip_ == nullptr) raiseLastError();
    TTTOOLINFOW tool = toolOf(window_, text_);
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    dpiChanged(GetDpiForWindow(window));
}

ToolTip::~ToolTip() { DestroyWindow(tip_); }

void ToolTip::dpiChanged(unsigned dpi)
{
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, toPixels(widestTip, dpi));
}

void ToolTip::setText(const std::wstring& text)
{
    if (text == text_) return;
    text_ = text;
    TTTOOLINFOW tool = toolOf(window_, text_);
    SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace vandrel

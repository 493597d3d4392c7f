#include "platform/windows/task_dialog.h"

#include "platform/base/modal_scope.h"
#include "platform/base/runtime_error.h"

namespace vandrel {
namespace {

constexpr int wholeBar = 1000;

PCWSTR iconOf(TaskDialog::Icon icon)
{
    switch (icon) {
    case TaskDialog::Icon::information: return TD_INFORMATION_ICON;
    case TaskDialog::Icon::warning: return TD_WARNING_ICON;
    case TaskDialog::Icon::error: return TD_ERROR_ICON;
    default: return nullptr;
    }
}

} // namespace

int TaskDialog::show(HWND owner)
{
    std::vector<std::wstring> captions;
    captions.reserve(links.size()); // the buttons point into it
    std::vector<TASKDIALOG_BUTTON> buttons;
    for (const Link& link : links) {
        captions.push_back(link.text + L"\n" + link.note);
        buttons.push_back({link.id, captions.back().c_str()});
    }

    TASKDIALOGCONFIG config{};
    config.cbSize = sizeof config;
    config.hwndParent = owner;
    config.hInstance = GetModuleHandleW(nullptr);
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION;
    if (!links.empty()) config.dwFlags |= TDF_USE_COMMAND_LINKS;
    if (progress) config.dwFlags |= TDF_SHOW_PROGRESS_BAR | TDF_CALLBACK_TIMER;
    config.dwCommonButtons = button;
    config.pszWindowTitle = title.c_str();
    config.pszMainIcon = iconOf(icon);
    config.pszMainInstruction = instruction.c_str();
    config.pszContent = text.empty() ? nullptr : text.c_str();
    config.cButtons = static_cast<UINT>(buttons.size());
    config.pButtons = buttons.data();
    config.pfCallback = callBack;
    config.lpCallbackData = reinterpret_cast<LONG_PTR>(this);

    ended_ = false;
    const ModalScope others(nullptr, owner);
    int chosen = IDCANCEL;
    const HRESULT shown = TaskDialogIndirect(&config, &chosen, nullptr, nullptr);
    error_.rethrow();
    if (FAILED(shown))
        throw RuntimeError(shown == E_OUTOFMEMORY ? error_number::outOfMemory : error_number::internalError);
    return chosen;
}

HRESULT CALLBACK TaskDialog::callBack(HWND window, UINT message, WPARAM wParam, LPARAM,
                                      LONG_PTR dialog) noexcept
{
    auto& self = *reinterpret_cast<TaskDialog*>(dialog);
    bool failed = true;
    const HRESULT answer = self.error_.keep(S_OK, [&] {
        const HRESULT given = self.onMessage(window, message, wParam);
        failed = false;
        return given;
    });
    if (failed && !std::exchange(self.ended_, true)) SendMessageW(window, TDM_CLICK_BUTTON, IDCANCEL, 0);
    return answer;
}

HRESULT TaskDialog::onMessage(HWND window, UINT message, WPARAM wParam)
{
    if (!progress) return S_OK;
    if (message == TDN_CREATED) {
        SendMessageW(window, TDM_SET_PROGRESS_BAR_RANGE, 0, MAKELPARAM(0, wholeBar));
    } else if (message == TDN_TIMER && !ended_) {
        followProgress(window);
    } else if (message == TDN_BUTTON_CLICKED && wParam == IDCANCEL && !ended_) {
        if (cancelled) cancelled();
        SendMessageW(window, TDM_ENABLE_BUTTON, IDCANCEL, FALSE);
        return S_FALSE; // stays open
    }
    return S_OK;
}

void TaskDialog::followProgress(HWND window)
{
    if (const auto part = progress()) {
        SendMessageW(window, TDM_SET_PROGRESS_BAR_POS, static_cast<WPARAM>(*part), 0);
        return;
    }
    ended_ = true;
    SendMessageW(window, TDM_ENABLE_BUTTON, IDCANCEL, TRUE);
    SendMessageW(window, TDM_CLICK_BUTTON, IDCANCEL, 0);
}

} // namespace vandrel

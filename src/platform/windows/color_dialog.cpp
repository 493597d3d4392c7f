#include "platform/windows/color_dialog.h"

#include "platform/base/modal_scope.h"

#include <commdlg.h>

namespace vandrel {

std::array<COLORREF, 16> ColorDialog::allWhite()
{
    std::array<COLORREF, 16> colors{};
    colors.fill(RGB(255, 255, 255));
    return colors;
}

void ColorDialog::show(HWND owner)
{
    CHOOSECOLORW settings{};
    settings.lStructSize = sizeof settings;
    settings.hwndOwner = owner;
    settings.lpCustColors = custom_.data();
    const ModalScope others(nullptr, owner);
    if (ChooseColorW(&settings)) color = settings.rgbResult;
}

} // namespace vandrel

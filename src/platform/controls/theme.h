#pragma once

#include <windows.h>

namespace vandrel {

// Whether the control is drawn in the system's visual style. In it, option buttons, check boxes and group boxes
// have the style's text colour, whatever the parent answers.
void setThemed(HWND control, bool on);

// The colour of the pages of a tab control: 0x00BBGGRR.
COLORREF tabPageColor(HWND tabs);

} // namespace vandrel

#pragma once

#include "shared/options_state.h"

namespace vandrel {

class Form;

// Puts the display font on every control of the form, in the form's control order. `color` is 0x00BBGGRR,
// `size` in points. A size that no font can have is ignored, and so is what a control does not support.
void ApplyFont(Form& form, const std::wstring& name, std::uint32_t color, int size, bool bold, bool italic);

inline void ApplyFont(Form& form, const DisplayFont& font)
{
    ApplyFont(form, font.name, font.color, font.size, font.bold, font.italic);
}

} // namespace vandrel

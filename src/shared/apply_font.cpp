#include "shared/apply_font.h"

#include "platform/controls/control.h"
#include "platform/windows/form.h"

namespace vandrel {

void ApplyFont(Form& form, const std::wstring& name, std::uint32_t color, int size, bool bold, bool italic)
{
    const bool usable = isFontSize(size);
    for (Control* const control : form.controls()) {
        control->setFont({name, usable ? size : control->font().size, bold, italic});
        control->setForeColor(color);
    }
    form.fontsChanged();
}

} // namespace vandrel

#include "platform/text/clock.h"

#include <windows.h>

#include <array>

namespace vandrel {

std::wstring todayAsText()
{
    std::array<wchar_t, 128> text{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                    static_cast<int>(text.size()), nullptr);
    return text.data();
}

} // namespace vandrel

#include "platform/text/date_reading.h"

#include <oleauto.h>
#include <array>

namespace vandrel {

std::wstring shortDatePattern()
{
    std::array<wchar_t, 128> pattern{};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTDATE, pattern.data(),
                    static_cast<int>(pattern.size()));
    return pattern.data();
}

std::optional<SYSTEMTIME> dateOfText(std::wstring text)
{
    DATE date = 0; // days since 30 December 1899, which is also the date of a time of day alone
    SYSTEMTIME parts{};
    if (FAILED(VarDateFromStr(text.data(), GetUserDefaultLCID(), 0, &date)) || (date >= 0 && date < 1) ||
        VariantTimeToSystemTime(date, &parts) == 0) {
        return std::nullopt;
    }
    return parts;
}

} // namespace vandrel

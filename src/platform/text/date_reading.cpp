#include "platform/text/date_reading.h"

#include <windows.h>

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

std::optional<std::chrono::year_month_day> dateOfText(std::wstring text)
{
    using namespace std::chrono;
    constexpr sys_days first = 1899y / December / 30; // also the date of a time of day alone
    DATE date = 0; // in days since then; what follows the point is the time of day
    if (FAILED(VarDateFromStr(text.data(), GetUserDefaultLCID(), 0, &date)) || (date >= 0 && date < 1))
        return std::nullopt;
    return first + days(static_cast<int>(date));
}

} // namespace vandrel

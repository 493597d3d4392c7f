#include "exchange_tool/local_days.h"

#include "platform/text/date_reading.h"
#include "shared/stored_date.h"

#include <array>

namespace vandrel {
namespace {

constexpr AddDate from1601To1970 = 11'644'473'600; // seconds
constexpr AddDate unitsInSecond = 10'000'000;
constexpr AddDate secondsInDay = AddDate{24} * 60 * 60;
constexpr std::size_t mostRemembered = 20'000;

std::optional<SYSTEMTIME> systemTimeOf(AddDate time)
{
    const auto units = static_cast<ULONGLONG>((time + from1601To1970) * unitsInSecond);
    const FILETIME file{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    SYSTEMTIME system{};
    return FileTimeToSystemTime(&file, &system) != 0 ? std::optional(system) : std::nullopt;
}

std::wstring textOf(AddDate day)
{
    const auto time = systemTimeOf(day * secondsInDay);
    std::array<wchar_t, 128> text{};
    if (time) {
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &*time, nullptr, text.data(),
                        static_cast<int>(text.size()), nullptr);
    }
    return text.data();
}

} // namespace

LocalDays::LocalDays() : order_(dateOrderOf(shortDatePattern())) { GetTimeZoneInformation(&zone_); }

// What the user's clock showed at that time, as if it were a time of Coordinated Universal Time.
std::optional<AddDate> LocalDays::localTimeOf(AddDate time) const
{
    const auto system = systemTimeOf(time);
    SYSTEMTIME local{};
    FILETIME file{};
    if (!system || SystemTimeToTzSpecificLocalTime(&zone_, &*system, &local) == 0 ||
        SystemTimeToFileTime(&local, &file) == 0) {
        return std::nullopt;
    }
    const AddDate units = static_cast<AddDate>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
    return units / unitsInSecond - from1601To1970;
}

std::wstring LocalDays::shortDate(AddDate added)
{
    const auto local = localTimeOf(added);
    if (!local) return {};
    const AddDate day = (*local >= 0 ? *local : *local - secondsInDay + 1) / secondsInDay;
    if (texts_.size() > mostRemembered) texts_.clear();
    const auto [found, isNew] = texts_.try_emplace(day);
    if (isNew) found->second = textOf(day);
    return found->second;
}

std::optional<AddDate> LocalDays::noonOf(const std::wstring& stored)
{
    if (noons_.size() > mostRemembered) noons_.clear();
    const auto [found, isNew] = noons_.try_emplace(stored);
    if (!isNew) return found->second;
    const auto date = storedDate(stored, order_);
    const auto noon = date ? addDateOf(*date) : std::nullopt;
    const auto local = noon ? localTimeOf(*noon) : std::nullopt;
    // By the user's clock: noon by that of Greenwich is the next day in New Zealand.
    if (local) found->second = *noon - (*local - *noon);
    return found->second;
}

} // namespace vandrel

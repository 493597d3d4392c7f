#pragma once

#include "bookmarks/add_date.h"
#include "model/site_date.h"

#include <windows.h>

#include <optional>
#include <string>
#include <unordered_map>

namespace vandrel {

// The days on which things happened, as the user's clock had it, and their texts.
class LocalDays {
  public:
    LocalDays();

    // The day in the user's short form; empty for a time that the system cannot reckon with.
    std::wstring shortDate(AddDate added);
    // Noon of the day in a site's stored text; none when that is no date, or one before 1970.
    std::optional<AddDate> noonOf(const std::wstring& stored);

  private:
    std::optional<AddDate> localTimeOf(AddDate time) const;

    DateOrder order_;
    TIME_ZONE_INFORMATION zone_{}; // asked for once: the system looks it up in the registry each time
    std::unordered_map<AddDate, std::wstring> texts_; // by the days since 1970
    std::unordered_map<std::wstring, std::optional<AddDate>> noons_;
};

} // namespace vandrel

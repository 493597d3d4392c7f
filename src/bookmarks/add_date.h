#pragma once

#include "model/site_date.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vandrel {

// Pages of bookmarks say when a bookmark was added: in seconds since the beginning of 1970, in Coordinated
// Universal Time.
using AddDate = std::int64_t;

// The time that an ADD_DATE writes. Some writers count milliseconds or microseconds. None for 0, which others
// write when they do not know, and for what is no number.
std::optional<AddDate> addDateOf(std::string_view attribute);

// Noon of that day, which is the same day almost everywhere on Earth. None before 1970.
std::optional<AddDate> addDateOf(const SiteDate& day);

} // namespace vandrel

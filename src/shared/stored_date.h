#pragma once

#include "model/site_date.h"

#include <string>

namespace vandrel {

// The date in a site's stored text: of three numbers in whichever order, or with the name of its month in the
// user's language. `order` is tried first.
std::optional<SiteDate> storedDate(const std::wstring& stored, const DateOrder& order);

} // namespace vandrel

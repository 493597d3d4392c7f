#pragma once

#include "model/site_record.h"
#include "platform/base/twips.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

// How a failed test shows the program's own types.
namespace vandrel {

inline void PrintTo(Twips length, std::ostream* out) { *out << length.value << " twips"; }

inline void PrintTo(const SiteRecord& site, std::ostream* out)
{
    for (const std::wstring_view field : {site.name, site.url, site.description, site.date}) {
        *out << '<' << testing::PrintToString(std::wstring(field)) << '>';
    }
}

} // namespace vandrel

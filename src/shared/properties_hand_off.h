#pragma once

#include <string>

namespace vandrel {

// The site whose properties are shown; the texts are those of its row.
struct PropertiesHandOff {
    std::wstring PropSiteName;
    std::wstring PropSiteURL;
    std::wstring PropSiteDate; // empty when the site was never opened
    std::wstring PropSiteDesc;
};

} // namespace vandrel

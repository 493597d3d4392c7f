#pragma once

#include <string>

namespace vandrel {

// What the site commands and the site editor exchange.
struct SiteHandOff {
    // A link waiting to become a site: an address, or address + "~-~" + name. The editor empties it.
    std::wstring IncomingLink;
    // True from the moment the editor loads until its OK.
    bool SiteDialogCancelled = false;
    // True while the editor edits a stored site; the three texts below then go in and come back.
    bool SiteEditMode = false;
    std::wstring SiteEditName;
    std::wstring SiteEditURL;
    std::wstring SiteEditDesc;

    // The site that is being added.
    std::wstring newSiteName;
    std::wstring newSiteURL = L"http://";
    std::wstring newSiteDescription;

    // Called once the site has been added.
    // Contract: the description is kept.
    void forgetNewSite()
    {
        newSiteName.clear();
        newSiteURL = L"http://";
    }
};

} // namespace vandrel

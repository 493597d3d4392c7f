#pragma once

#include <string>

namespace vandrel {

// What the commands on sites and the site editor hand each other.
struct SiteHandOff {
    // A link that waits to become a site: an address, or address + "~-~" + name. The editor empties it.
    std::wstring IncomingLink;
    // True from the moment the editor loads until its OK.
    bool SiteDialogCancelled = false;
    // True while the editor edits a stored site; then the three texts below go in and come back.
    bool SiteEditMode = false;
    std::wstring SiteEditName;
    std::wstring SiteEditURL;
    std::wstring SiteEditDesc;

    // The site that is being added.
    std::wstring newSiteName;
    std::wstring newSiteURL = L"http://";
    std::wstring newSiteDescription;

    // Once it was added; the description stays.
    void forgetNewSite()
    {
        newSiteName.clear();
        newSiteURL = L"http://";
    }
};

} // namespace vandrel

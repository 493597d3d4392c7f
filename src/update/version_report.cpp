#include "update/version_report.h"

// Set by the build from the project's version, as the version resource is.
#ifndef VANDREL_VERSION
# error "VANDREL_VERSION is to be the version as a wide string"
#endif

namespace vandrel {

std::wstring runningVersion() { return VANDREL_VERSION; }

std::wstring noUpdateText(const std::wstring& latest)
{
    return L"You have the current version of Vandrel, which is " + latest + L". No update is necessary.";
}

std::wstring newVersionText(const std::wstring& running, const std::wstring& latest)
{
    return L"There is an update to this program.\r\nYou are running version " + running +
           L". The latest version is " + latest + L"\r\n\r\nWould you like to download the update?";
}

std::wstring declinedText()
{
    // Contract: "Check For Updates", though the menu has "Check for Updates".
    return L"You have chosen not to update this program. Just choose Check For Updates\r\n"
           L"from the Help menu if you ever need to update in the future.";
}

} // namespace vandrel

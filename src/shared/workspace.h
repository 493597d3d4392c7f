#pragma once

#include "shared/keep_on_top.h"
#include "shared/options_state.h"
#include "shared/properties_hand_off.h"
#include "shared/site_hand_off.h"

#include <functional>
#include <optional>
#include <string>

namespace vandrel {

class InternetTransfer;
class ListView;
class MenuFamily;
class ProgressBar;
class StatusBar;

// What the commands work on: the main window's controls and the program's state. The main window makes it and
// owns everything it refers to; commands get it as their first argument. A test can have as many as it likes.
struct Workspace {
    HWND window; // the main window
    ListView& lstCategory;
    ListView& lstInfo;
    StatusBar& StatusBar1;
    ProgressBar& PB;
    MenuFamily& mnuMove;
    InternetTransfer& inetScan;
    std::wstring dataFolder;             // no backslash at its end
    std::function<std::wstring()> today; // the date in the user's short form

    KeepOnTop keepOnTop{};
    OptionsState options{};
    SiteHandOff site{};
    PropertiesHandOff properties{};
    std::wstring favoritesFolder{};
    // The title of the category that was there but could not be read when it was selected last. Saving the list
    // over it would throw away what nobody has seen.
    std::optional<std::wstring> unreadCategory{};
};

// Images of the lists, from 1.
inline constexpr int siteImage = 1;
inline constexpr int closedFolderImage = 3;
inline constexpr int openFolderImage = 4;
inline constexpr int deadSiteImage = 5;

} // namespace vandrel

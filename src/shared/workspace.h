#pragma once

#include "shared/keep_on_top.h"
#include "shared/list_images.h"
#include "shared/options_state.h"
#include "shared/properties_hand_off.h"
#include "shared/shown_category.h"
#include "shared/site_hand_off.h"

#include <functional>
#include <string>

namespace vandrel {

class InternetTransfer;
class ListView;
class MenuFamily;
class ProgressBar;
class StatusBar;

// What the commands work on: the main window's controls and the program's state. The main window makes it
// and owns everything it refers to; commands get it as their first argument.
struct Workspace {
    HWND window;          // the main window
    RowTable& categories; // their titles
    ShownCategory& shown;
    ListView& lstCategory; // shows the categories
    ListView& lstInfo;     // shows the sites of the shown one
    StatusBar& StatusBar1;
    ProgressBar& PB;
    MenuFamily& mnuMove;
    InternetTransfer& inetScan;
    std::wstring dataFolder;             // without a trailing backslash
    std::function<std::wstring()> today; // the date in the user's short-date form

    KeepOnTop keepOnTop{};
    OptionsState options{};
    SiteHandOff site{};
    PropertiesHandOff properties{};
    std::wstring favoritesFolder{};
    bool categoriesListed = false; // false if listing them at start-up failed
};

} // namespace vandrel

#pragma once

#include <optional>

namespace vandrel {

class RowTable;
class MenuTree;
class ToolBar;
class SearchPanel;

// Enables and disables the commands that need an entry in a list. Asked thousands of times for every change,
// so it touches the menus only when a list has become empty or has ceased to be.
class Availability {
  public:
    Availability(const RowTable& categories, const RowTable& sites, MenuTree& menus, ToolBar& toolBar,
                 SearchPanel& search);

    void tmrClipboard_Timer();

  private:
    void setSiteCommands(bool on);
    void setCategoryCommands(bool on);

    const RowTable& categories_;
    const RowTable& sites_;
    MenuTree& menus_;
    ToolBar& toolBar_;
    SearchPanel& search_;
    std::optional<bool> hadCategories_; // none before the first tick
    std::optional<bool> hadSites_;
};

} // namespace vandrel

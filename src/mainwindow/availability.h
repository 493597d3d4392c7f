#pragma once

#include "mainwindow/commands.h"

namespace vandrel {

class RowTable;
class MenuTree;
class ToolBar;
class SearchPanel;

// Enables and disables the commands that need an entry in a list. Asked thousands of times for every change,
// so it touches the menus only when a list has become empty or has ceased to be.
class Availability {
  public:
    Availability(CommandTable commands, const RowTable& categories, const RowTable& sites, MenuTree& menus,
                 ToolBar& toolBar, SearchPanel& search);

    void tmrClipboard_Timer();

  private:
    void enableOnToolBar(const CommandTraits& command, bool on);

    CommandTable commands_;
    const RowTable& categories_;
    const RowTable& sites_;
    MenuTree& menus_;
    ToolBar& toolBar_;
    SearchPanel& search_;
    std::optional<Filled> before_; // none before the first tick
};

} // namespace vandrel

#pragma once

#include "mainwindow/commands.h"

namespace vandrel {

class RowTable;
class MenuTree;
class ToolBar;
class SearchPanel;

// Enables and disables the commands that need a row in a list. The timer asks far more often than anything
// changes, so the menus are touched only when a list has become empty or is so no longer.
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

#pragma once

#include "mainwindow/commands.h"
#include "platform/controls/menu.h"
#include "platform/controls/tool_bar.h"

#include <vector>

namespace vandrel {

// What the menus and the tool bar are made of, from the table of commands. The texts stay the table's.
std::vector<MenuRow> menuRows(CommandTable table);
std::vector<ToolBar::ButtonRow> buttonRows(CommandTable table);
std::vector<ToolBar::MenuRow> dropDownRows(CommandTable table);
// The position of the button that has the drop-down menu; 0 where there is none.
int dropDownButton(CommandTable table);

} // namespace vandrel

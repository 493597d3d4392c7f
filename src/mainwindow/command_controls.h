#pragma once

#include "mainwindow/commands.h"
#include "platform/controls/menu.h"
#include "platform/controls/tool_bar.h"

#include <vector>

namespace vandrel {

// The rows of the menus and of the tool bar, made from the table of commands, which still owns their texts.
std::vector<MenuRow> menuRows(CommandTable table);
std::vector<ToolBar::ButtonRow> buttonRows(CommandTable table);
std::vector<ToolBar::MenuRow> dropDownRows(CommandTable table);
// The position of the button with the drop-down menu; 0 if there is none.
int dropDownButton(CommandTable table);

} // namespace vandrel

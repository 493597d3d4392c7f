#include "mainwindow/availability.h"

#include "mainwindow/search_panel.h"
#include "model/row_table.h"
#include "platform/controls/menu.h"
#include "platform/controls/tool_bar.h"

namespace vandrel {

Availability::Availability(CommandTable commands, const RowTable& categories, const RowTable& sites,
                           MenuTree& menus, ToolBar& toolBar, SearchPanel& search)
    : commands_(commands),
      categories_(categories),
      sites_(sites),
      menus_(menus),
      toolBar_(toolBar),
      search_(search)
{}

void Availability::tmrClipboard_Timer()
{
    // Contract: it matters whether a list has rows, not whether one is selected.
    const Filled now{.sites = !sites_.empty(), .categories = !categories_.empty()};
    if (now == before_) return;
    for (const CommandRow& row : commands_) {
        if (const auto on = switched(entryNeeds(commands_, row), before_, now))
            menus_.setEnabled(row.id, *on);
        if (const auto on = switched(buttonNeeds(commands_, row), before_, now))
            enableOnToolBar(row.traits, *on);
    }
    if (const auto on = switched(Needs::sites, before_, now)) search_.setEnabled(*on);
    before_ = now;
}

void Availability::enableOnToolBar(const CommandTraits& command, bool on)
{
    if (command.button.position != 0) toolBar_.setButtonEnabled(command.button.position, on);
    if (*command.dropDown.key != 0) toolBar_.setButtonMenuEnabled(command.dropDown.key, on);
}

} // namespace vandrel

#include "mainwindow/availability.h"

#include "mainwindow/command_tables.h"
#include "mainwindow/search_panel.h"
#include "model/row_table.h"

#include <utility>

namespace vandrel {

Availability::Availability(const RowTable& categories, const RowTable& sites, MenuTree& menus,
                           ToolBar& toolBar, SearchPanel& search)
    : categories_(categories), sites_(sites), menus_(menus), toolBar_(toolBar), search_(search)
{}

void Availability::tmrClipboard_Timer()
{
    const bool sites = !sites_.empty();
    const bool categories = !categories_.empty();
    if (std::exchange(hadSites_, sites) != sites) setSiteCommands(sites);
    if (std::exchange(hadCategories_, categories) != categories) setCategoryCommands(categories);
}

void Availability::setSiteCommands(bool on)
{
    for (const MenuEntry entry : entriesThatNeedSites()) menus_.setEnabled(entry, on);
    for (const int position : buttonsThatNeedSites()) toolBar_.setButtonEnabled(position, on);
    for (const ToolBar::MenuRow& row : scanButtonMenu()) toolBar_.setButtonMenuEnabled(row.key, on);
    search_.setEnabled(on);
}

void Availability::setCategoryCommands(bool on)
{
    for (const MenuEntry entry : entriesThatNeedCategories()) menus_.setEnabled(entry, on);
}

} // namespace vandrel

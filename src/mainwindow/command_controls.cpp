#include "mainwindow/command_controls.h"

namespace vandrel {
namespace {

Shortcut shortcutOf(const CommandKey& key)
{
    const int modifiers = (key.control ? FCONTROL : 0) | (key.shift ? FSHIFT : 0);
    return {static_cast<BYTE>(modifiers), static_cast<WORD>(key.code)};
}

// A position without a command is a separator.
ToolBar::ButtonRow buttonRow(const CommandRow* row)
{
    if (row == nullptr) return {L"", L"", ToolBar::Kind::separator};
    const CommandButton& button = row->traits.button;
    return {button.toolTip, button.picture, button.hasMenu ? ToolBar::Kind::dropDown : ToolBar::Kind::button};
}

} // namespace

std::vector<MenuRow> menuRows(CommandTable table)
{
    std::vector<MenuRow> rows;
    for (const CommandRow& row : table) {
        rows.push_back({.depth = row.level,
                        .id = row.id,
                        .caption = row.caption,
                        .shortcut = shortcutOf(row.traits.key),
                        .hidden = row.kind == RowKind::popUpMenu,
                        .hasSubmenu = row.kind == RowKind::menu || row.kind == RowKind::popUpMenu});
    }
    return rows;
}

std::vector<ToolBar::ButtonRow> buttonRows(CommandTable table)
{
    int last = 0;
    for (const CommandRow& row : table) last = std::max(last, row.traits.button.position);
    std::vector<ToolBar::ButtonRow> rows;
    for (int position = 1; position <= last; ++position) {
        rows.push_back(buttonRow(rowOfButton(table, position)));
    }
    return rows;
}

std::vector<ToolBar::MenuRow> dropDownRows(CommandTable table)
{
    std::vector<ToolBar::MenuRow> rows;
    for (const CommandRow& row : table) {
        const DropDownEntry& entry = row.traits.dropDown;
        if (*entry.key != 0) rows.push_back({entry.caption, entry.key});
    }
    return rows;
}

int dropDownButton(CommandTable table)
{
    const auto row = std::ranges::find_if(table, [](const CommandRow& r) { return r.traits.button.hasMenu; });
    return row != table.end() ? row->traits.button.position : 0;
}

} // namespace vandrel

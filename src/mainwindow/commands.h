#pragma once

#include "mainwindow/menu_entries.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

namespace vandrel {

class frmMain;

// The list that must have rows before a command is of any use.
enum class Needs { nothing, sites, categories };

struct CommandKey {
    unsigned code = 0; // virtual key code; 0: no key
    bool control = false;
    bool shift = false;
    bool operator==(const CommandKey&) const = default;
};

// Where a command has its key; elsewhere the key goes to the text that is being edited.
enum class KeyWorks {
    outsideText,   // the key edits text as well
    outsideTitles, // in the search box too, but not in a category's title
    everywhere,    // in titles too: the command neither edits text nor acts on the lists
};

struct CommandButton {
    int position = 0;                 // in the tool bar, from 1; 0: no button
    const wchar_t* picture = nullptr; // name of the icon resource
    const wchar_t* toolTip = nullptr;
    bool hasMenu = false; // it opens the tool bar's one drop-down menu
};

// An entry of the tool bar's drop-down menu.
struct DropDownEntry {
    const wchar_t* key = L""; // empty: no entry
    const wchar_t* caption = nullptr;
};

struct CommandTraits {
    CommandKey key{};
    KeyWorks keyWorks = KeyWorks::outsideTitles;
    Needs needs = Needs::nothing;
    CommandButton button{};
    DropDownEntry dropDown{};
};

enum class RowKind { menu, popUpMenu, separator, command };

// A line of the menus. It belongs to the last menu above it that has a lower level.
struct CommandRow {
    RowKind kind = RowKind::separator;
    int level = 0; // 0 is the menu bar
    MenuEntry id = noEntry;
    const wchar_t* caption = nullptr;
    MenuEntry repeats = noEntry; // the command that this entry offers again
    void (*procedure)(frmMain&) = nullptr;
    CommandTraits traits{};
};

using CommandTable = std::span<const CommandRow>;

// ---- looking rows up; null if there is none

constexpr const CommandRow* rowOf(CommandTable table, int id)
{
    const auto row = std::ranges::find(table, id, [](const CommandRow& r) -> int { return r.id; });
    return id != noEntry && row != table.end() ? &*row : nullptr;
}

constexpr const CommandRow* rowOfKey(CommandTable table, const CommandKey& key)
{
    const auto row = std::ranges::find(table, key, [](const CommandRow& r) { return r.traits.key; });
    return key.code != 0 && row != table.end() ? &*row : nullptr;
}

constexpr const CommandRow* rowOfButton(CommandTable table, int position)
{
    const auto row = std::ranges::find(table, position,
                                       [](const CommandRow& r) { return r.traits.button.position; });
    return position != 0 && row != table.end() ? &*row : nullptr;
}

constexpr const CommandRow* rowOfDropDown(CommandTable table, std::wstring_view key)
{
    const auto row = std::ranges::find_if(table, [key](const CommandRow& r) {
        return key == r.traits.dropDown.key;
    });
    return !key.empty() && row != table.end() ? &*row : nullptr;
}

// ---- what can be used when

enum class Typing { nowhere, inSearchBox, inTitle };

constexpr bool worksWhile(Typing typing, KeyWorks works)
{
    switch (typing) {
    case Typing::inSearchBox: return works != KeyWorks::outsideText;
    case Typing::inTitle: return works == KeyWorks::everywhere;
    default: return true;
    }
}

// What a command needs wherever it is offered: what its row says, or else the menu around it. `row` must be
// a row of `table`.
constexpr Needs needsOf(CommandTable table, const CommandRow& row)
{
    if (const CommandRow* const repeated = rowOf(table, row.repeats)) return needsOf(table, *repeated);
    auto at = static_cast<std::size_t>(&row - table.data());
    Needs needs = row.traits.needs;
    for (int level = row.level; needs == Needs::nothing && at-- > 0;) {
        if (table[at].level >= level) continue;
        level = table[at].level;
        needs = table[at].traits.needs;
    }
    return needs;
}

// What its entry in the menus needs. Where a menu is disabled as a whole, its entries need nothing of their
// own.
constexpr Needs entryNeeds(CommandTable table, const CommandRow& row)
{
    return row.repeats != noEntry ? needsOf(table, row) : row.traits.needs;
}

// What its button and its entry in the drop-down menu need.
// Contract: the tool bar follows the site list alone; "Remove Category" can be pressed without a category,
// and does nothing.
constexpr Needs buttonNeeds(CommandTable table, const CommandRow& row)
{
    return needsOf(table, row) == Needs::sites ? Needs::sites : Needs::nothing;
}

// Which lists have rows.
struct Filled {
    bool sites = false;
    bool categories = false;
    bool operator==(const Filled&) const = default;
};

constexpr bool usable(Needs needs, Filled filled)
{
    switch (needs) {
    case Needs::sites: return filled.sites;
    case Needs::categories: return filled.categories;
    default: return true;
    }
}

// Whether to enable or disable something as the lists fill and empty; none if it stays as it is. There is
// no `before` at first. What needs nothing is left to its own command.
constexpr std::optional<bool> switched(Needs needs, std::optional<Filled> before, Filled now)
{
    const bool on = usable(needs, now);
    if (needs == Needs::nothing || (before && usable(needs, *before) == on)) return std::nullopt;
    return on;
}

// ---- the table as a whole

// Whether every row belongs to a menu, does what its kind does, and shares its id, its key and its button
// with no other.
constexpr bool consistent(CommandTable table)
{
    int deepest = 0; // level that the next row may have
    for (const CommandRow& row : table) {
        const bool holdsRows = row.kind == RowKind::menu || row.kind == RowKind::popUpMenu;
        const CommandRow* const repeated = rowOf(table, row.repeats);
        const bool runs = row.procedure != nullptr || (repeated != nullptr && repeated->procedure != nullptr);
        const CommandTraits& traits = row.traits;
        if (row.level < 0 || row.level > deepest || (row.level == 0 && !holdsRows)) return false;
        if (row.level != 0 && row.kind == RowKind::popUpMenu) return false;
        if (rowOf(table, row.id) != &row || runs != (row.kind == RowKind::command)) return false;
        if (traits.key.code != 0 && rowOfKey(table, traits.key) != &row) return false;
        if (traits.button.position != 0 && rowOfButton(table, traits.button.position) != &row) return false;
        if (*traits.dropDown.key != 0 && rowOfDropDown(table, traits.dropDown.key) != &row) return false;
        deepest = holdsRows ? row.level + 1 : row.level;
    }
    return true;
}

} // namespace vandrel

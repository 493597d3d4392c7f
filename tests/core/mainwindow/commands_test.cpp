#include "mainwindow/commands.h"

#include "print.h"

#include <array>
#include <vector>

namespace vandrel {
namespace {

void doNothing(frmMain&) {}
void doSomething(frmMain&) {}

// A menu bar that the program does not have, with every kind of row. Its names are borrowed.
constexpr std::array commands{
    CommandRow{.kind = RowKind::menu, .level = 0, .id = mnuFile, .caption = L"Garden"},
    CommandRow{.kind = RowKind::command,
               .level = 1,
               .id = mnuFind,
               .caption = L"Dig",
               .procedure = doNothing,
               .traits = {.key = {.code = 'D', .control = true}, .button = {4, L"spade", L"Dig a hole"}}},
    CommandRow{.kind = RowKind::menu,
               .level = 1,
               .id = mnuScan,
               .caption = L"Water",
               .traits = {.needs = Needs::sites}},
    CommandRow{.kind = RowKind::command,
               .level = 2,
               .id = mnuScanSelected,
               .caption = L"The beds",
               .procedure = doSomething,
               .traits = {.key = {.code = 'D', .control = true, .shift = true},
                          .button = {2, L"can", L"Water", true},
                          .dropDown = {L"beds", L"Beds"}}},
    CommandRow{.kind = RowKind::menu,
               .level = 2,
               .id = mnuMoveTo,
               .caption = L"To the bed",
               .traits = {.needs = Needs::categories}},
    CommandRow{.kind = RowKind::menu, .level = 2, .id = mnuSelected, .caption = L"Pots"},
    CommandRow{.kind = RowKind::command,
               .level = 3,
               .id = mnuScanAllURLs,
               .caption = L"Every pot",
               .procedure = doNothing,
               .traits = {.key = {.code = 'W'}, .dropDown = {L"pots", L"Pots"}}},
    CommandRow{.kind = RowKind::separator, .level = 1, .id = sep1, .caption = L"-"},
    CommandRow{.kind = RowKind::command,
               .level = 1,
               .id = mnuRenameCat,
               .caption = L"Name a bed",
               .procedure = doNothing,
               .traits = {.needs = Needs::categories}},
    CommandRow{.kind = RowKind::popUpMenu, .level = 0, .id = mnuPopUp, .caption = L"Popup"},
    CommandRow{.kind = RowKind::command,
               .level = 1,
               .id = mnuPScanSel,
               .caption = L"Water",
               .repeats = mnuScanSelected},
    CommandRow{.kind = RowKind::command,
               .level = 1,
               .id = mnuPRenameCat,
               .caption = L"Name",
               .repeats = mnuRenameCat},
    CommandRow{.kind = RowKind::command,
               .level = 1,
               .id = mnuPAddSite,
               .caption = L"Dig here",
               .repeats = mnuFind},
};
static_assert(consistent(commands));

MenuEntry idOf(const CommandRow* row) { return row != nullptr ? row->id : noEntry; }
const CommandRow& command(MenuEntry id) { return *rowOf(commands, id); }

// ---- looking a row up

TEST(CommandLookUp, FindsARowByItsId)
{
    EXPECT_EQ(rowOf(commands, mnuScanSelected), &commands[3]);
    EXPECT_EQ(rowOf(commands, mnuPopUp), &commands[9]);
    EXPECT_EQ(rowOf(commands, mnuQuit), nullptr);
    EXPECT_EQ(rowOf(commands, noEntry), nullptr);
    EXPECT_EQ(rowOf(commands, firstMoveEntry), nullptr);
}

TEST(CommandLookUp, FindsAKeyTogetherWithWhatIsHeld)
{
    EXPECT_EQ(idOf(rowOfKey(commands, {.code = 'W'})), mnuScanAllURLs);
    EXPECT_EQ(idOf(rowOfKey(commands, {.code = 'D', .control = true})), mnuFind);
    EXPECT_EQ(idOf(rowOfKey(commands, {.code = 'D', .control = true, .shift = true})), mnuScanSelected);
    for (const CommandKey& other : {CommandKey{.code = 'D'}, CommandKey{.code = 'D', .shift = true},
                                    CommandKey{.code = 'W', .control = true},
                                    CommandKey{.code = 'W', .shift = true}, CommandKey{.code = 'X'}}) {
        EXPECT_EQ(rowOfKey(commands, other), nullptr) << other.code;
    }
}

TEST(CommandLookUp, NoKeyIsNoKeyOfACommandWithoutOne) { EXPECT_EQ(rowOfKey(commands, {}), nullptr); }

TEST(CommandLookUp, FindsAButtonByItsPosition)
{
    EXPECT_EQ(idOf(rowOfButton(commands, 2)), mnuScanSelected);
    EXPECT_EQ(idOf(rowOfButton(commands, 4)), mnuFind);
    for (const int other : {-1, 0, 1, 3, 5, 1000}) EXPECT_EQ(rowOfButton(commands, other), nullptr) << other;
}

TEST(CommandLookUp, FindsAnEntryOfTheDropDownMenuByItsKey)
{
    EXPECT_EQ(idOf(rowOfDropDown(commands, L"beds")), mnuScanSelected);
    EXPECT_EQ(idOf(rowOfDropDown(commands, L"pots")), mnuScanAllURLs);
    for (const wchar_t* const other : {L"", L"Beds", L"bed", L"bedstead"}) {
        EXPECT_EQ(rowOfDropDown(commands, other), nullptr);
    }
}

// ---- what can be used when

TEST(CommandKeys, AreTheCommandsWhereNoTextIsEdited)
{
    for (const KeyWorks works : {KeyWorks::outsideText, KeyWorks::outsideTitles, KeyWorks::everywhere}) {
        EXPECT_TRUE(worksWhile(Typing::nowhere, works));
    }
}

TEST(CommandKeys, BelongToTheSearchBoxWhenTheyEditText)
{
    EXPECT_FALSE(worksWhile(Typing::inSearchBox, KeyWorks::outsideText));
    EXPECT_TRUE(worksWhile(Typing::inSearchBox, KeyWorks::outsideTitles));
    EXPECT_TRUE(worksWhile(Typing::inSearchBox, KeyWorks::everywhere));
}

TEST(CommandKeys, WorkInATitleOnlyWhenTheyWorkEverywhere)
{
    EXPECT_FALSE(worksWhile(Typing::inTitle, KeyWorks::outsideText));
    EXPECT_FALSE(worksWhile(Typing::inTitle, KeyWorks::outsideTitles));
    EXPECT_TRUE(worksWhile(Typing::inTitle, KeyWorks::everywhere));
}

TEST(CommandNeeds, AreWhatTheRowSays)
{
    EXPECT_EQ(needsOf(commands, command(mnuFind)), Needs::nothing);
    EXPECT_EQ(needsOf(commands, command(mnuScan)), Needs::sites);
    EXPECT_EQ(needsOf(commands, command(mnuRenameCat)), Needs::categories);
}

TEST(CommandNeeds, AreThoseOfAMenuThatTheRowLiesInHoweverDeep)
{
    EXPECT_EQ(needsOf(commands, command(mnuScanSelected)), Needs::sites);
    EXPECT_EQ(needsOf(commands, command(mnuScanAllURLs)), Needs::sites);
    EXPECT_EQ(needsOf(commands, command(mnuMoveTo)), Needs::categories) << "what it needs itself comes first";
    EXPECT_EQ(needsOf(commands, command(sep1)), Needs::nothing) << "the menu above it is not around it";
}

TEST(CommandNeeds, AreThoseOfTheCommandThatIsRepeated)
{
    EXPECT_EQ(needsOf(commands, command(mnuPScanSel)), Needs::sites);
    EXPECT_EQ(needsOf(commands, command(mnuPRenameCat)), Needs::categories);
    EXPECT_EQ(needsOf(commands, command(mnuPAddSite)), Needs::nothing);
}

TEST(CommandNeeds, OfAnEntryLeaveTheMenuAroundItOut)
{
    EXPECT_EQ(entryNeeds(commands, command(mnuScan)), Needs::sites);
    EXPECT_EQ(entryNeeds(commands, command(mnuScanSelected)), Needs::nothing);
    EXPECT_EQ(entryNeeds(commands, command(mnuScanAllURLs)), Needs::nothing);
    EXPECT_EQ(entryNeeds(commands, command(mnuRenameCat)), Needs::categories);
    EXPECT_EQ(entryNeeds(commands, command(mnuPScanSel)), Needs::sites) << "it lies in another menu";
}

TEST(CommandNeeds, OfAButtonAreSitesOrNothing)
{
    EXPECT_EQ(buttonNeeds(commands, command(mnuFind)), Needs::nothing);
    EXPECT_EQ(buttonNeeds(commands, command(mnuScanSelected)), Needs::sites) << "as the menu around it";
    EXPECT_EQ(buttonNeeds(commands, command(mnuScanAllURLs)), Needs::sites);
    EXPECT_EQ(buttonNeeds(commands, command(mnuRenameCat)), Needs::nothing);
}

constexpr Filled neither{false, false};
constexpr Filled categoriesAlone{false, true};
constexpr Filled both{true, true};
constexpr Filled sitesAlone{true, false}; // sites that no category could take

TEST(CommandAvailability, DependsOnTheListThatTheCommandNeeds)
{
    for (const Filled filled : {neither, categoriesAlone, both, sitesAlone}) {
        EXPECT_TRUE(usable(Needs::nothing, filled));
    }
    EXPECT_FALSE(usable(Needs::sites, neither));
    EXPECT_FALSE(usable(Needs::sites, categoriesAlone));
    EXPECT_TRUE(usable(Needs::sites, both));
    EXPECT_TRUE(usable(Needs::sites, sitesAlone));
    EXPECT_FALSE(usable(Needs::categories, neither));
    EXPECT_TRUE(usable(Needs::categories, categoriesAlone));
    EXPECT_TRUE(usable(Needs::categories, both));
    EXPECT_FALSE(usable(Needs::categories, sitesAlone));
}

TEST(CommandAvailability, IsSetOnceAtTheStart)
{
    EXPECT_EQ(switched(Needs::sites, std::nullopt, categoriesAlone), false);
    EXPECT_EQ(switched(Needs::sites, std::nullopt, both), true);
    EXPECT_EQ(switched(Needs::categories, std::nullopt, neither), false);
    EXPECT_EQ(switched(Needs::categories, std::nullopt, categoriesAlone), true);
}

TEST(CommandAvailability, IsSetAgainOnlyWhenTheListEmptiesOrFills)
{
    EXPECT_EQ(switched(Needs::sites, both, categoriesAlone), false);
    EXPECT_EQ(switched(Needs::sites, categoriesAlone, both), true);
    EXPECT_EQ(switched(Needs::sites, neither, categoriesAlone), std::nullopt);
    EXPECT_EQ(switched(Needs::sites, both, both), std::nullopt);
    EXPECT_EQ(switched(Needs::categories, neither, categoriesAlone), true);
    EXPECT_EQ(switched(Needs::categories, categoriesAlone, neither), false);
    EXPECT_EQ(switched(Needs::categories, categoriesAlone, both), std::nullopt);
}

TEST(CommandAvailability, OfWhatNeedsNothingIsNeverSet)
{
    EXPECT_EQ(switched(Needs::nothing, std::nullopt, both), std::nullopt);
    EXPECT_EQ(switched(Needs::nothing, std::nullopt, neither), std::nullopt);
    EXPECT_EQ(switched(Needs::nothing, both, neither), std::nullopt);
}

// ---- the table as a whole

class CommandTableRules : public testing::Test {
  protected:
    bool hold() const { return consistent(rows); }
    CommandRow& row(MenuEntry id)
    {
        return *std::ranges::find(rows, id, [](const CommandRow& r) { return r.id; });
    }

    std::vector<CommandRow> rows{commands.begin(), commands.end()};
};

TEST_F(CommandTableRules, HoldForAWholeTable) { EXPECT_TRUE(hold()); }

TEST_F(CommandTableRules, ARowLiesInAMenu)
{
    for (const int level : {-1, 0, 2, 3}) {
        rows.back().level = level;
        EXPECT_FALSE(hold()) << level;
    }
    rows.back().level = 1;
    row(mnuScanSelected).level = 3;
    EXPECT_FALSE(hold()) << "two levels below the menu";
}

TEST_F(CommandTableRules, APopUpMenuLiesInNoOther)
{
    row(mnuPopUp).level = 1;
    EXPECT_FALSE(hold());
}

TEST_F(CommandTableRules, EveryRowHasAnIdOfItsOwn)
{
    CommandRow& separator = row(sep1);
    separator.id = mnuFind;
    EXPECT_FALSE(hold());
    separator.id = noEntry;
    EXPECT_FALSE(hold());
}

TEST_F(CommandTableRules, CommandsAndNoOtherRowsHaveAProcedure)
{
    row(mnuScanAllURLs).procedure = nullptr;
    EXPECT_FALSE(hold());
    row(mnuScanAllURLs).procedure = doNothing;
    row(sep1).procedure = doNothing;
    EXPECT_FALSE(hold());
}

TEST_F(CommandTableRules, WhatIsRepeatedIsACommandWithAProcedure)
{
    for (const MenuEntry wrong : {mnuQuit, mnuScan, sep1, mnuPScanSel, mnuPRenameCat}) {
        row(mnuPScanSel).repeats = wrong;
        EXPECT_FALSE(hold()) << wrong;
    }
}

TEST_F(CommandTableRules, NoKeyIsGivenTwice)
{
    row(mnuRenameCat).traits.key = {.code = 'W'};
    EXPECT_FALSE(hold());
    row(mnuRenameCat).traits.key = {.code = 'W', .shift = true};
    EXPECT_TRUE(hold());
}

TEST_F(CommandTableRules, NoButtonIsGivenTwice)
{
    row(mnuRenameCat).traits.button.position = 4;
    EXPECT_FALSE(hold());
    row(mnuRenameCat).traits.button.position = 5;
    EXPECT_TRUE(hold());
}

TEST_F(CommandTableRules, NoKeyOfTheDropDownMenuIsGivenTwice)
{
    row(mnuRenameCat).traits.dropDown = {L"beds", L"More beds"};
    EXPECT_FALSE(hold());
    row(mnuRenameCat).traits.dropDown = {L"trees", L"Trees"};
    EXPECT_TRUE(hold());
}

} // namespace
} // namespace vandrel

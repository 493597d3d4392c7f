#include "store/site_operations.h"
#include "tests/support/input.h"
#include "tests/support/message_watch.h"
#include "tests/support/window_parts.h"

#include <algorithm>
#include <tuple>

namespace vandrel::test {
namespace {

struct Key {
    WORD key;
    bool control;
    bool shift;
    int entry;
    bool needsSites;
    bool needsCategories;
    bool inLabel;     // stays a command while a title is being edited
    bool inSearchBox; // and there
};

constexpr Key expectedKeys[] = {
    {'F', true, false, mnuFind, false, false, true, true},
    {'I', true, false, mnuImport, false, false, false, true},
    {'E', true, false, mnuExport, true, false, false, true},
    {'Q', true, false, mnuQuit, false, false, true, true},
    {VK_F2, false, false, mnuAddCategory, false, false, false, true},
    {VK_F2, false, true, mnuRemoveCategory, false, true, false, true},
    {VK_F3, false, false, mnuAddWebsite, false, false, false, true},
    {VK_DELETE, false, false, mnuRemoveWebsite, true, false, false, false},
    {'C', true, false, mnuCopyURL, true, false, false, false},
    {'O', true, false, mnuOpenURL, true, false, false, true},
    {'P', true, false, mnuProperties, true, false, false, true},
    {VK_F1, false, false, mnuViewHelp, false, false, true, true},
};

class Shortcuts : public MainWindowTest {
  protected:
    void startWithSites()
    {
        folder.write(L"Work.udb", threeSites);
        start();
    }
    // The commands that a key leads to, with the focus where it is.
    std::vector<int> commandsOf(const Key& key)
    {
        const CommandRecorder recorder(main->handle());
        pressKey(key.key, key.control, key.shift);
        return recorder.commands;
    }
};

TEST_F(Shortcuts, TheAcceleratorTableHasExactlyTheKeysOfTheMenus)
{
    start();
    const AcceleratorHandle table = main->menus().accelerators();
    std::vector<ACCEL> keys(static_cast<std::size_t>(CopyAcceleratorTableW(table.get(), nullptr, 0)));
    CopyAcceleratorTableW(table.get(), keys.data(), static_cast<int>(keys.size()));
    std::vector<std::tuple<int, int, int>> actual;
    for (const ACCEL& key : keys) {
        actual.emplace_back(key.fVirt & (FVIRTKEY | FCONTROL | FSHIFT | FALT), key.key, key.cmd);
    }
    std::vector<std::tuple<int, int, int>> expected;
    for (const Key& key : expectedKeys) {
        expected.emplace_back(FVIRTKEY | (key.control ? FCONTROL : 0) | (key.shift ? FSHIFT : 0), key.key,
                              key.entry);
    }
    std::ranges::sort(actual);
    std::ranges::sort(expected);
    EXPECT_EQ(actual, expected);
}

TEST_F(Shortcuts, EachKeyRunsItsEntryFromEitherList)
{
    startWithSites();
    for (ListView* const list : {&lstCategory(), &lstInfo()}) {
        list->setFocus();
        for (const Key& key : expectedKeys) {
            EXPECT_EQ(commandsOf(key), std::vector<int>{key.entry}) << key.key;
        }
    }
}

TEST_F(Shortcuts, EachKeyRunsItsEntryFromTheSearchButton)
{
    startWithSites();
    main->searchPanel().cmdSearch.setFocus();
    for (const Key& key : expectedKeys) {
        EXPECT_EQ(commandsOf(key), std::vector<int>{key.entry}) << key.key;
    }
}

TEST_F(Shortcuts, AKeyWithAnotherModifierRunsNothing)
{
    startWithSites();
    lstInfo().setFocus();
    for (Key key : expectedKeys) {
        if (key.key == VK_F2) continue; // both of its forms are keys
        key.control = !key.control;
        EXPECT_TRUE(commandsOf(key).empty()) << key.key;
        key.control = !key.control;
        key.shift = !key.shift;
        EXPECT_TRUE(commandsOf(key).empty()) << key.key;
    }
}

TEST_F(Shortcuts, TheKeyOfADisabledEntryRunsNothing)
{
    folder.write(L"Empty.udb", "");
    start();
    lstInfo().setFocus();
    for (const Key& key : expectedKeys) {
        EXPECT_EQ(commandsOf(key).empty(), key.needsSites) << key.key;
    }
}

TEST_F(Shortcuts, WithoutCategoriesOnlyTheKeysThatNeedNoneRun)
{
    start();
    lstCategory().setFocus();
    for (const Key& key : expectedKeys) {
        EXPECT_EQ(commandsOf(key).empty(), key.needsSites || key.needsCategories) << key.key;
    }
}

TEST_F(Shortcuts, DelOnTheSiteListAsksToRemoveTheSelectedSites)
{
    startWithSites();
    lstInfo().select(1);
    lstInfo().setFocus();
    Answers answers;
    answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
    pressKey(VK_DELETE);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(column(lstInfo()), (std::vector<std::wstring>{L"Beta", L"Gamma"}));
}

TEST_F(Shortcuts, DelInTheSearchBoxDeletesALetter)
{
    startWithSites();
    lstInfo().select(1);
    ComboBox& box = main->searchPanel().cmbSearch;
    box.setText(L"news");
    box.setFocus();
    SendMessageW(box.handle(), CB_SETEDITSEL, 0, MAKELPARAM(0, 0));
    Answers none;
    pressKey(VK_DELETE);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(box.text(), L"ews");
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(Shortcuts, InTheSearchBoxOnlyEditingKeysAreNotCommands)
{
    startWithSites();
    main->searchPanel().cmbSearch.setFocus();
    for (const Key& key : expectedKeys) {
        EXPECT_EQ(commandsOf(key), key.inSearchBox ? std::vector<int>{key.entry} : std::vector<int>{})
            << key.key;
    }
}

TEST_F(Shortcuts, TheSearchBoxKeepsItsOtherKeys)
{
    startWithSites();
    ComboBox& box = main->searchPanel().cmbSearch;
    box.setText(L"news");
    box.setFocus();
    const LONG bar = placeOf(splitterBar(*main)).left;
    struct Press {
        WORD key;
        bool control;
        bool shift;
    };
    const Press presses[] = {
        {'A', true, false},       {'V', true, false},       {'X', true, false},       {'Z', true, false},
        {VK_DELETE, true, false}, {VK_DELETE, false, true}, {VK_INSERT, true, false}, {VK_HOME, false, false},
        {VK_END, false, false},   {VK_LEFT, false, false},  {VK_RIGHT, true, true},   {VK_UP, false, false},
        {VK_BACK, false, false},
    };
    for (const Press& press : presses) {
        const CommandRecorder recorder(main->handle());
        pressKey(press.key, press.control, press.shift);
        EXPECT_TRUE(recorder.commands.empty()) << press.key;
    }
    EXPECT_EQ(placeOf(splitterBar(*main)).left, bar);
}

TEST_F(Shortcuts, CtrlCInTheSearchBoxCopiesItsText)
{
    startWithSites();
    lstInfo().select(1);
    ComboBox& box = main->searchPanel().cmbSearch;
    box.setText(L"news");
    box.setFocus();
    SendMessageW(box.handle(), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    int copies = 0;
    const MessageWatch watch(GetFocus(), WM_KEYDOWN, [&] { ++copies; });
    pressKey('C', true);
    EXPECT_EQ(copies, 1) << "the key reaches the box";
}

TEST_F(Shortcuts, ASearchAndTheCommandsAfterItNeedNoMouse)
{
    startWithSites();
    ComboBox& box = main->searchPanel().cmbSearch;
    box.setFocus();
    box.setText(L"gamma");
    pressKey(VK_RETURN);
    ASSERT_TRUE(box.hasFocus());
    Answers answers;
    answers.expect(L"Gamma's Properties", [](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
    pressKey('P', true);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(pumpUntil([&] { return box.hasFocus(); })) << "and comes back to the box";
}

TEST_F(Shortcuts, DelInALabelDeletesALetter)
{
    startWithSites();
    lstInfo().select(1);
    main->run(mnuRenameCat);
    ASSERT_TRUE(lstCategory().editingLabel());
    const HWND label = GetFocus();
    SendMessageW(label, EM_SETSEL, 0, 0);
    Answers none;
    pressKey(VK_DELETE);
    EXPECT_ANSWERED(none);
    EXPECT_TRUE(lstCategory().editingLabel());
    EXPECT_EQ(windowText(label), L"ork");
    EXPECT_EQ(lstInfo().count(), 3U);
    pressKey(VK_ESCAPE);
}

TEST_F(Shortcuts, InALabelOnlyKeysThatDoNotEditAreCommands)
{
    startWithSites();
    main->run(mnuRenameCat);
    for (const Key& key : expectedKeys) {
        ASSERT_TRUE(lstCategory().editingLabel()) << key.key;
        EXPECT_EQ(commandsOf(key).empty(), !key.inLabel) << key.key;
    }
    pressKey(VK_ESCAPE);
}

TEST_F(Shortcuts, KeysInADialogAreNotCommandsOfTheMainWindow)
{
    startWithSites();
    lstInfo().select(1);
    const CommandRecorder recorder(main->handle());
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        for (const Key& key : expectedKeys) pressKey(key.key, key.control, key.shift);
        press(dialog, IDCANCEL);
    });
    AddURL(main->workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(recorder.commands.empty());
}

} // namespace
} // namespace vandrel::test

#include "platform/controls/folder_list.h"

#include "tests/support/error_of.h"
#include "tests/support/input.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace vandrel::test {
namespace {

using FolderNames = std::vector<std::wstring>;

class FolderListTest : public testing::Test {
  protected:
    FolderListTest()
    {
        list.setFont({});
        list.place(0, 0, 200, 400);
        window.show();
    }
    ~FolderListTest() override { pump(); }

    FolderNames names() const
    {
        FolderNames shown;
        for (std::size_t entry = 0; entry < list.count(); ++entry) shown.push_back(list.text(entry));
        return shown;
    }
    // The entries below the shown folder.
    FolderNames subfolders() const
    {
        const FolderNames all = names();
        return {all.begin() + static_cast<std::ptrdiff_t>(*list.selected()) + 1, all.end()};
    }
    void make(const std::wstring& name) const { CreateDirectoryW(folder.file(name).c_str(), nullptr); }
    std::wstring selected() const
    {
        const auto entry = list.selected();
        return entry ? list.text(*entry) : L"(none)";
    }
    std::size_t entryOf(const std::wstring& name) const
    {
        const FolderNames all = names();
        return static_cast<std::size_t>(std::ranges::find(all, name) - all.begin());
    }
    static std::wstring nameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

    TempFolder folder;
    TestWindow window;
    FolderList list{window.handle(), 1};
};

TEST_F(FolderListTest, ShowsThePathFromTheDriveThenTheSubfolders)
{
    make(L"one");
    make(L"two");
    folder.write(L"file", "");
    list.setPath(folder.path());
    std::wstring way;
    const FolderNames all = names();
    ASSERT_GE(all.size(), 4U);
    EXPECT_EQ(all[0], folder.path().substr(0, 3));
    for (std::size_t entry = 0; entry <= *list.selected(); ++entry) {
        way += all[entry];
        if (entry > 0 && entry < *list.selected()) way += L'\\';
    }
    EXPECT_EQ(way, folder.path());
    EXPECT_EQ(subfolders(), (FolderNames{L"one", L"two"}));
    EXPECT_EQ(list.path(), folder.path());
}

TEST_F(FolderListTest, ADrivesRootIsTheFirstEntryAndKeepsItsBackslash)
{
    const std::wstring root = folder.path().substr(0, 3);
    list.setPath(root);
    EXPECT_EQ(list.path(), root);
    EXPECT_EQ(list.text(0), root);
    EXPECT_EQ(list.selected(), 0U);
    EXPECT_GT(list.count(), 1U);
}

TEST_F(FolderListTest, BackslashesAtTheEndMakeNoDifference)
{
    list.setPath(folder.path() + L"\\");
    EXPECT_EQ(list.path(), folder.path());
    list.setPath(folder.path() + L"\\\\");
    EXPECT_EQ(list.path(), folder.path());
}

TEST_F(FolderListTest, SortsSubfoldersWhateverTheCaseOfTheirLetters)
{
    for (const wchar_t* const name : {L"b", L"A", L"C", L"B2", L"z"}) make(name);
    list.setPath(folder.path());
    EXPECT_EQ(subfolders(), (FolderNames{L"A", L"b", L"B2", L"C", L"z"}));
}

TEST_F(FolderListTest, FoldersThatTheSystemHidesAreLeftOut)
{
    make(L"seen");
    make(L"hidden");
    ASSERT_TRUE(SetFileAttributesW(folder.file(L"hidden").c_str(), FILE_ATTRIBUTE_HIDDEN));
    list.setPath(folder.path());
    EXPECT_EQ(subfolders(), FolderNames{L"seen"});
    SetFileAttributesW(folder.file(L"hidden").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FolderListTest, WhatCannotBeShownIsAnErrorAndTheListStaysAsItWas)
{
    make(L"one");
    folder.write(L"file", "");
    list.setPath(folder.path());
    const FolderNames before = names();
    int changes = 0;
    list.Change = [&] { ++changes; };
    EXPECT_EQ(errorOf([&] { list.setPath(folder.file(L"missing")); }), 76);
    EXPECT_EQ(errorOf([&] { list.setPath(folder.file(L"missing\\deeper")); }), 76);
    EXPECT_EQ(errorOf([&] { list.setPath(folder.file(L"file")); }), 76);
    EXPECT_NE(errorOf([&] { list.setPath(L"\\\\no-such-machine-here\\share"); }), 0);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(list.path(), folder.path());
    EXPECT_EQ(changes, 0);
}

TEST_F(FolderListTest, AnotherFolderIsReportedOnce)
{
    make(L"one");
    list.setPath(folder.path());
    FolderNames reported;
    list.Change = [&] { reported.push_back(list.path()); };
    list.setPath(folder.file(L"one"));
    EXPECT_EQ(reported, FolderNames{folder.file(L"one")});
}

TEST_F(FolderListTest, ADoubleClickOnAnEntryOpensIt)
{
    make(L"one");
    CreateDirectoryW(folder.file(L"one\\inner").c_str(), nullptr);
    list.setPath(folder.path());
    const std::size_t entry = entryOf(L"one");
    RECT area{};
    SendMessageW(list.handle(), LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
    const LPARAM at = MAKELPARAM(area.left + 5, (area.top + area.bottom) / 2);
    clickAt(list.handle(), {area.left + 5, (area.top + area.bottom) / 2});
    EXPECT_EQ(list.path(), folder.path()) << "one click selects only";
    SendMessageW(list.handle(), WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    SendMessageW(list.handle(), WM_LBUTTONUP, 0, at);
    EXPECT_EQ(list.path(), folder.file(L"one"));
    EXPECT_EQ(selected(), L"one");
    EXPECT_EQ(subfolders(), FolderNames{L"inner"});
}

TEST_F(FolderListTest, EnterOpensAndBackspaceGoesUp)
{
    make(L"one");
    list.setPath(folder.path());
    list.setFocus();
    list.select(entryOf(L"one"));
    typeKey(list.handle(), VK_RETURN);
    EXPECT_EQ(list.path(), folder.file(L"one"));
    typeKey(list.handle(), VK_BACK);
    EXPECT_EQ(list.path(), folder.path());
    EXPECT_EQ(selected(), nameOf(folder.path()));
}

TEST_F(FolderListTest, EnterOnAFolderOfThePathGoesThere)
{
    list.setPath(folder.path());
    list.setFocus();
    list.select(0);
    typeKey(list.handle(), VK_RETURN);
    EXPECT_EQ(list.path(), folder.path().substr(0, 3));
}

TEST_F(FolderListTest, BackspaceStaysInTheRoot)
{
    const std::wstring root = folder.path().substr(0, 3);
    list.setPath(root);
    list.setFocus();
    typeKey(list.handle(), VK_BACK);
    EXPECT_EQ(list.path(), root);
}

TEST_F(FolderListTest, ALetterSelectsTheFolderThatBeginsWithIt)
{
    make(L"qapple");
    make(L"Qbanana");
    make(L"xcherry");
    list.setPath(folder.path());
    list.setFocus();
    SendMessageW(list.handle(), WM_CHAR, L'x', 1);
    EXPECT_EQ(selected(), L"xcherry");
}

TEST_F(FolderListTest, ANameThatIsWiderThanTheListCanBeScrolledTo)
{
    const std::wstring wide(120, L'W');
    make(wide);
    list.setPath(folder.path());
    const HFONT font = fontHandleOf(list.handle());
    // The picture and the indentation add to the text.
    EXPECT_GT(SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0), textSize(font, wide).cx);
}

TEST_F(FolderListTest, NamesOfEveryLanguageAreShownAndOpened)
{
    make(L"\u65E5\u672C\u8A9E");
    list.setPath(folder.path());
    EXPECT_EQ(subfolders(), FolderNames{L"\u65E5\u672C\u8A9E"});
    list.setPath(folder.file(L"\u65E5\u672C\u8A9E"));
    EXPECT_EQ(selected(), L"\u65E5\u672C\u8A9E");
}

TEST_F(FolderListTest, EntriesArePaintedDeeperWithAPicture)
{
    make(L"one");
    list.setPath(folder.path());
    UpdateWindow(list.handle());
    const HDC screen = GetDC(list.handle());
    // The first pixel in an entry's row that is not in the list's background colour.
    const auto inkStart = [&](std::size_t entry) {
        RECT area{};
        SendMessageW(list.handle(), LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
        const COLORREF empty = GetPixel(screen, area.left, area.top);
        for (int x = area.left; x < area.right; ++x) {
            for (int y = area.top; y < area.bottom; ++y) {
                if (GetPixel(screen, x, y) != empty) return x - static_cast<int>(area.left);
            }
        }
        return -1;
    };
    const int root = inkStart(0);
    const int child = inkStart(entryOf(L"one"));
    ReleaseDC(list.handle(), screen);
    EXPECT_GE(root, 0);
    EXPECT_GT(child, root);
}

} // namespace
} // namespace vandrel::test

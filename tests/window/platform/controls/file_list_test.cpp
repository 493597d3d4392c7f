#include "platform/controls/file_list.h"

#include "tests/support/input.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using FileNames = std::vector<std::wstring>;

class FileListTest : public testing::Test {
  protected:
    FileListTest()
    {
        list.setFont({});
        list.place(0, 0, 200, 300);
        window.show();
    }
    ~FileListTest() override { pump(); }

    FileNames names() const
    {
        FileNames shown;
        for (std::size_t entry = 0; entry < list.count(); ++entry) shown.push_back(list.text(entry));
        return shown;
    }
    void make(const FileNames& files) const
    {
        for (const std::wstring& name : files) folder.write(name, "");
    }
    std::wstring selected() const
    {
        const auto entry = list.selected();
        return entry ? list.text(*entry) : L"(none)";
    }
    POINT middleOf(std::size_t entry) const
    {
        RECT area{};
        SendMessageW(list.handle(), LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
        return {area.left + 5, (area.top + area.bottom) / 2};
    }

    TempFolder folder;
    TestWindow window;
    FileList list{window.handle(), 1, L".url"};
};

TEST_F(FileListTest, ShowsTheFilesOfItsKindInWhateverCase)
{
    make({L"a.url", L"B.URL", L"c.Url", L"d.txt", L"e.url.bak", L"url", L".url"});
    CreateDirectoryW(folder.file(L"folder.url").c_str(), nullptr);
    list.setPath(folder.path());
    EXPECT_EQ(names(), (FileNames{L".url", L"a.url", L"B.URL", L"c.Url"}));
}

TEST_F(FileListTest, SortsNamesWhateverTheCaseOfTheirLetters)
{
    make({L"b.url", L"A.url", L"c.url", L"B2.url", L"\u00E4.url", L"z.url"});
    list.setPath(folder.path());
    EXPECT_EQ(names(), (FileNames{L"A.url", L"\u00E4.url", L"b.url", L"B2.url", L"c.url", L"z.url"}));
}

TEST_F(FileListTest, AMissingFolderHasNoFiles)
{
    make({L"a.url"});
    list.setPath(folder.path());
    list.setPath(folder.file(L"missing"));
    EXPECT_EQ(list.count(), 0U);
    EXPECT_EQ(list.path(), folder.file(L"missing"));
}

TEST_F(FileListTest, NothingIsSelectedInANewlyShownFolder)
{
    make({L"a.url", L"b.url"});
    list.setPath(folder.path());
    list.select(1);
    EXPECT_EQ(selected(), L"b.url");
    list.setPath(folder.path());
    EXPECT_EQ(selected(), L"(none)");
}

TEST_F(FileListTest, AClickSelectsAndIsReportedOnce)
{
    make({L"a.url", L"b.url"});
    list.setPath(folder.path());
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    clickAt(list.handle(), middleOf(1));
    EXPECT_EQ(selected(), L"b.url");
    EXPECT_EQ(clicks, 1);
}

TEST_F(FileListTest, AnArrowKeySelectsAndIsReported)
{
    make({L"a.url", L"b.url"});
    list.setPath(folder.path());
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    list.setFocus();
    typeKey(list.handle(), VK_DOWN);
    EXPECT_NE(selected(), L"(none)");
    EXPECT_EQ(clicks, 1);
}

TEST_F(FileListTest, ALetterSelectsTheNameThatBeginsWithIt)
{
    make({L"apple.url", L"Banana.url", L"cherry.url"});
    list.setPath(folder.path());
    list.setFocus();
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    SendMessageW(list.handle(), WM_CHAR, L'b', 1);
    EXPECT_EQ(selected(), L"Banana.url");
    EXPECT_EQ(clicks, 1);
}

TEST_F(FileListTest, ADoubleClickIsReported)
{
    make({L"a.url"});
    list.setPath(folder.path());
    std::wstring opened;
    list.DblClick = [&] { opened = selected(); };
    const POINT at = middleOf(0);
    clickAt(list.handle(), at);
    SendMessageW(list.handle(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(list.handle(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    EXPECT_EQ(opened, L"a.url");
}

TEST_F(FileListTest, ANameThatIsWiderThanTheListCanBeScrolledTo)
{
    make({L"a.url"});
    list.setPath(folder.path());
    const LRESULT narrow = SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0);
    const std::wstring wide = std::wstring(100, L'W') + L".url";
    make({wide});
    list.setPath(folder.path());
    const HFONT font = fontHandleOf(list.handle());
    EXPECT_GE(SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0), textSize(font, wide).cx);
    EXPECT_NE(GetWindowLongPtrW(list.handle(), GWL_STYLE) & WS_HSCROLL, 0);
    DeleteFileW(folder.file(wide).c_str());
    list.setPath(folder.path());
    EXPECT_EQ(SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0), narrow);
}

TEST_F(FileListTest, ALargerFontWidensTheScrolledArea)
{
    make({std::wstring(100, L'W') + L".url"});
    list.setPath(folder.path());
    const LRESULT before = SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0);
    list.setFont({.name = L"Arial", .size = 24, .bold = false, .italic = false});
    EXPECT_GT(SendMessageW(list.handle(), LB_GETHORIZONTALEXTENT, 0, 0), 2 * before);
}

} // namespace
} // namespace vandrel::test

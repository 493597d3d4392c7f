#include "tests/window/search/search_test.h"

#include <windows.h>

namespace vandrel::test {
namespace {

// Wine does not count these either, so they are added up.
std::size_t privateBytes()
{
    std::size_t bytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
    }
    return bytes;
}

// Wine does not count them; there a handle is found by its place in the table.
std::size_t drawingObjects()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); counted != 0)
        return counted;
    std::size_t count = 0;
    for (std::uintptr_t place = 1; place < 0x4000; ++place) {
        if (GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0) ++count;
    }
    return count;
}

std::size_t windows()
{
    std::size_t count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            ++*reinterpret_cast<std::size_t*>(param);
            EnumChildWindows(
                window,
                [](HWND, LPARAM inner) -> BOOL {
                    ++*reinterpret_cast<std::size_t*>(inner);
                    return TRUE;
                },
                param);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

class SearchResources : public SearchTest {
  protected:
    void openAndClose()
    {
        open();
        find(L"site");
        press(dialog(), IDCANCEL);
        ASSERT_TRUE(pumpUntil([this] { return main->searchWindow() == nullptr; }));
    }
};

TEST_F(SearchResources, ManySearchesTakeNoMoreMemoryThanAFew)
{
    constexpr std::size_t tolerance = 3U << 20; // the hits of 200 searches would be more than 6 MB
    folder.write(L"A.udb", manySites("site", 600));
    folder.write(L"B.udb", manySites("site", 200) + manySites("other", 600));
    start();
    open();
    // Both ways of keeping hits: the category's whole text, and a copy of a few.
    const auto searchTwice = [this] {
        find(L"site");
        find(L"site 77");
    };
    for (int i = 0; i < 5; ++i) searchTwice();
    const std::size_t before = privateBytes();
    for (int i = 0; i < 100; ++i) searchTwice();
    EXPECT_LT(privateBytes(), before + tolerance);
    {
        const std::vector<char> visible(2 * tolerance, 'x');
        EXPECT_GT(privateBytes(), before + tolerance) << "what is measured must show what is taken";
    }
}

TEST_F(SearchResources, OpeningAndClosingLeavesNoDrawingObjectsAndNoWindowsBehind)
{
    folder.write(L"A.udb", manySites("site", 20));
    start();
    for (int i = 0; i < 3; ++i) openAndClose();
    const std::size_t windowsBefore = windows();
    const std::size_t objectsBefore = drawingObjects();
    for (int i = 0; i < 50; ++i) openAndClose();
    EXPECT_EQ(windows(), windowsBefore);
    EXPECT_LE(drawingObjects(), objectsBefore + 5) << "what the system itself keeps may differ a little";
    const HFONT font = CreateFontW(77, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    const std::size_t withFont = drawingObjects();
    DeleteObject(font);
    EXPECT_EQ(withFont, drawingObjects() + 1) << "what is measured must show what is made";
}

} // namespace
} // namespace vandrel::test

#include "tests/support/resources.h"
#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

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
    // Both ways of keeping hits: with the category's whole text, and with copies of a few.
    const auto searchTwice = [this] {
        find(L"site");
        find(L"site 77");
    };
    for (int i = 0; i < 5; ++i) searchTwice();
    const std::size_t before = counting::privateBytes();
    for (int i = 0; i < 100; ++i) searchTwice();
    EXPECT_LT(counting::privateBytes(), before + tolerance);
    {
        const std::vector<char> visible(2 * tolerance, 'x');
        EXPECT_GT(counting::privateBytes(), before + tolerance) << "what is measured must show what is taken";
    }
}

TEST_F(SearchResources, OpeningAndClosingLeavesNoDrawingObjectsAndNoWindowsBehind)
{
    folder.write(L"A.udb", manySites("site", 20));
    start();
    for (int i = 0; i < 3; ++i) openAndClose();
    const std::size_t windowsBefore = counting::windows();
    const std::size_t objectsBefore = counting::drawingObjects();
    for (int i = 0; i < 50; ++i) openAndClose();
    EXPECT_EQ(counting::windows(), windowsBefore);
    EXPECT_LE(counting::drawingObjects(), objectsBefore + 5)
        << "what the system itself keeps may differ a little";
    const HFONT font = CreateFontW(77, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    const std::size_t withFont = counting::drawingObjects();
    DeleteObject(font);
    EXPECT_EQ(withFont, counting::drawingObjects() + 1) << "what is measured must show what is made";
}

} // namespace
} // namespace vandrel::test

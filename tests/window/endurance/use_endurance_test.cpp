#include "tests/window/endurance/endurance_test.h"

namespace vandrel::test {
namespace {

class UseEndurance : public EnduranceTest {};

TEST_F(UseEndurance, LeavesNothingBehindWhenTheCategoryIsChangedAgainAndAgain)
{
    startSmall();
    const Lines shown = titles();
    int row = 0;
    endure(rounds(5000), [&] {
        row = (row + 1) % 3;
        clickRow(lstCategory(), row);
        ASSERT_EQ(main->caption(), L"Vandrel - " + shown[static_cast<std::size_t>(row)]);
    });
}

TEST_F(UseEndurance, LeavesNothingBehindWhenAllCategoriesAreSearchedAgainAndAgain)
{
    startSmall();
    SearchTest::open();
    bool some = false;
    endure(rounds(1000), [&] {
        some = !some;
        find(some ? L"daily" : L"nowhere");
        ASSERT_EQ(found().size(), some ? 3U : 1U) << "none is told in a row of its own";
    });
}

// The measurement must show what is taken.
TEST_F(UseEndurance, SeesWhatIsLeftBehind)
{
    pump();
    const Resources before = resourcesInUse();
    EXPECT_TRUE(heldAsBefore(before, resourcesInUse()));
    const auto seesMore = [&](std::size_t Resources::*kind) {
        const Resources now = resourcesInUse();
        return now.*kind > before.*kind + tolerance.*kind && !heldAsBefore(before, now);
    };

    std::vector<HFONT> fonts(tolerance.drawing + 1);
    for (HFONT& font : fonts) font = CreateFontW(77, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    EXPECT_TRUE(seesMore(&Resources::drawing));
    for (const HFONT font : fonts) DeleteObject(font);

    std::vector<HMENU> menus(tolerance.user + 1);
    for (HMENU& menu : menus) menu = CreatePopupMenu();
    EXPECT_TRUE(seesMore(&Resources::user));
    for (const HMENU menu : menus) DestroyMenu(menu);

    std::vector<HANDLE> events(tolerance.handles + 1);
    for (HANDLE& event : events) event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_TRUE(seesMore(&Resources::handles));
    for (const HANDLE event : events) CloseHandle(event);

    {
        const std::vector<char> taken(2 * tolerance.bytes, 'x');
        EXPECT_TRUE(seesMore(&Resources::bytes));
    }
    EXPECT_TRUE(heldAsBefore(before, resourcesInUse()));
}

} // namespace
} // namespace vandrel::test

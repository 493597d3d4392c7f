#include "platform/controls/font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vandrel::test {
namespace {

// As the system lists them, some of them several times.
std::vector<std::wstring> fontsOfTheSystem()
{
    std::vector<std::wstring> names;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(
        screen, nullptr,
        [](const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM param) {
            reinterpret_cast<std::vector<std::wstring>*>(param)->emplace_back(font->lfFaceName);
            return 1;
        },
        reinterpret_cast<LPARAM>(&names));
    ReleaseDC(nullptr, screen);
    return names;
}

TEST(ScreenFonts, AreAllThoseOfTheSystemOnceEach)
{
    const std::vector<std::wstring> fonts = screenFonts();
    const std::set<std::wstring> once(fonts.begin(), fonts.end());
    EXPECT_EQ(once.size(), fonts.size());
    const std::vector<std::wstring> all = fontsOfTheSystem();
    EXPECT_EQ(once, std::set<std::wstring>(all.begin(), all.end()));
    EXPECT_TRUE(once.contains(L"Arial") ||
                once.contains(L"Liberation Sans")); // which takes its place under Wine
}

TEST(ScreenFonts, AreInTheSystemsOrder)
{
    const std::vector<std::wstring> all = fontsOfTheSystem();
    std::size_t last = 0;
    for (const std::wstring& name : screenFonts()) {
        const auto place = static_cast<std::size_t>(std::ranges::find(all, name) - all.begin());
        EXPECT_GE(place, last) << testing::PrintToString(name);
        last = place;
    }
}

TEST(ScreenFonts, AreTheSameEveryTime) { EXPECT_EQ(screenFonts(), screenFonts()); }

} // namespace
} // namespace vandrel::test

#include "shared/vendor.h"
#include "tests/support/input.h"
#include "tests/support/list_clicks.h"
#include "tests/support/recorder.h"
#include "tests/window/dialogs/about_test.h"

namespace vandrel::test {
namespace {

class AboutLinks : public AboutTest {
  protected:
    std::wstring mail() const { return recorder.opening(L"mailto:" + makersEmail); }
    std::wstring site() const { return recorder.opening(makersSite); }
    static void focus(const AboutBox& box, int id)
    {
        SendMessageW(box.window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box.part(id)), TRUE);
        EXPECT_EQ(GetFocus(), box.part(id));
    }

    Recorder recorder;
    RegistryValue mailProgram{HKEY_CLASSES_ROOT, L"mailto\\shell\\open\\command", L"",
                              recorder.opening(L"%1")};
};

TEST_F(AboutLinks, AClickOpensTheSiteOrAMessageToTheMakerAndLeavesTheBoxOpen)
{
    const AboutBox box = open();
    clickAt(box.part(about::site), {4, 4});
    EXPECT_EQ(recorder.linesOf(1), std::vector{site()});
    clickAt(box.part(about::email), {4, 4});
    EXPECT_EQ(recorder.linesOf(2), (std::vector{site(), mail()}));
    EXPECT_FALSE(loaded->unloaded());
    EXPECT_TRUE(IsWindowVisible(box.window));
}

TEST_F(AboutLinks, SpaceAndEnterActLikeAClick)
{
    const AboutBox box = open();
    focus(box, about::site);
    pressKey(VK_SPACE);
    EXPECT_EQ(recorder.linesOf(1), std::vector{site()});
    pressKey(VK_RETURN);
    EXPECT_EQ(recorder.linesOf(2).size(), 2U);
    focus(box, about::email);
    pressKey(VK_SPACE);
    EXPECT_EQ(recorder.linesOf(3).size(), 3U);
    pressKey(VK_RETURN);
    EXPECT_EQ(recorder.linesOf(4), (std::vector{site(), site(), mail(), mail()}));
    EXPECT_FALSE(loaded->unloaded());
}

TEST_F(AboutLinks, NeitherMouseMovesNorClosingOpenThem)
{
    const AboutBox box = open();
    AboutBox::moveOver(box.part(about::site));
    AboutBox::moveOver(box.part(about::email));
    focus(box, about::email);
    pressKey(VK_ESCAPE);
    EXPECT_TRUE(loaded->unloaded());
    EXPECT_TRUE(recorder.nothingWasStarted());
}

} // namespace
} // namespace vandrel::test

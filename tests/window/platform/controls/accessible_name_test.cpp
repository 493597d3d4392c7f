#include "platform/controls/accessible_name.h"

#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "tests/support/name_keeper.h"
#include "tests/support/registered_class.h"
#include "tests/support/test_window.h"

namespace vandrel::test {
namespace {

class AccessibleNames : public testing::Test {
  protected:
    TestWindow window;
    NameKeeper keeper;
    RegisteredClass registered{CLSID_AccPropServices, &keeper};
};

TEST_F(AccessibleNames, AreKeptBesideTheTextUntilTheControlGoes)
{
    HWND bar = nullptr;
    {
        ProgressBar progress(window.handle());
        bar = progress.handle();
        progress.setAccessibleName(L"Progress");
        EXPECT_EQ(keeper.names[bar], L"Progress");
        EXPECT_EQ(progress.text(), L"Progress");
    }
    EXPECT_FALSE(keeper.names.contains(bar));
}

TEST_F(AccessibleNames, OfAStatusBarLeaveItsPanelsAlone)
{
    StatusBar status(window.handle());
    status.setPanelEdges(100, 200);
    status.setPanelText(1, L"Saved.");
    status.setAccessibleName(L"Status");
    EXPECT_EQ(keeper.names[status.handle()], L"Status");
    EXPECT_EQ(status.panelText(1), L"Saved.");
}

TEST_F(AccessibleNames, GoAlsoWhenTheParentTakesTheControlAlong)
{
    auto parent = std::make_unique<TestWindow>();
    Button button(parent->handle(), 1, L"...");
    button.setAccessibleName(L"Browse");
    const HWND gone = button.handle();
    parent.reset();
    EXPECT_FALSE(keeper.names.contains(gone));
}

} // namespace
} // namespace vandrel::test

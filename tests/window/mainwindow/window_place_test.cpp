#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class WindowPlace : public MainWindowTest {
  protected:
    void startAt(const wchar_t* left, const wchar_t* top, const wchar_t* width, const wchar_t* height)
    {
        setPreference(L"Config", L"Left", left);
        setPreference(L"Config", L"Top", top);
        setPreference(L"Config", L"Width", width);
        setPreference(L"Config", L"Height", height);
        start();
    }
    RECT place() { return outerPlace(main->handle()); }
    void expectPlace(int left, int top, int width, int height)
    {
        const RECT area = place();
        EXPECT_EQ(area.left, left);
        EXPECT_EQ(area.top, top);
        EXPECT_EQ(widthOf(area), width);
        EXPECT_EQ(heightOf(area), height);
    }
    static RECT workArea()
    {
        RECT area{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        return area;
    }
    void expectSeen()
    {
        const RECT area = place();
        EXPECT_NE(MonitorFromRect(&area, MONITOR_DEFAULTTONULL), nullptr)
            << area.left << "," << area.top << "," << area.right << "," << area.bottom;
        EXPECT_LE(widthOf(area), widthOf(workArea()));
        EXPECT_LE(heightOf(area), heightOf(workArea()));
        EXPECT_TRUE(IsWindowVisible(main->handle()));
    }
};

TEST_F(WindowPlace, AFirstRunIsInTheCornerInTheSmallestSize)
{
    start();
    expectPlace(0, 0, px(*main, 9135), px(*main, 5685));
}

TEST_F(WindowPlace, AStoredPlaceIsRestored)
{
    startAt(L"1500", L"750", L"12000", L"9000");
    expectPlace(px(*main, 1500), px(*main, 750), px(*main, 12000), px(*main, 9000));
}

TEST_F(WindowPlace, ANegativeLeftAloneBecomesZero)
{
    startAt(L"-3000", L"750", L"12000", L"9000");
    expectPlace(0, px(*main, 750), px(*main, 12000), px(*main, 9000));
}

TEST_F(WindowPlace, ANegativeTopAloneBecomesZero)
{
    startAt(L"1500", L"-3000", L"12000", L"9000");
    expectPlace(px(*main, 1500), 0, px(*main, 12000), px(*main, 9000));
}

TEST_F(WindowPlace, BothEdgesCanBecomeZero)
{
    startAt(L"-15", L"-15", L"12000", L"9000");
    expectPlace(0, 0, px(*main, 12000), px(*main, 9000));
}

TEST_F(WindowPlace, WhollyBeyondTheScreenItComesBackWithItsSize)
{
    startAt(L"60000", L"60000", L"12000", L"9000");
    expectSeen();
    EXPECT_EQ(widthOf(place()), px(*main, 12000));
    EXPECT_EQ(heightOf(place()), px(*main, 9000));
}

TEST_F(WindowPlace, PartlyBeyondTheScreenItStaysWhereItWas)
{
    setPreference(L"Config", L"Left", L"15000");
    setPreference(L"Config", L"Width", L"12000");
    // Not shown: the window manager of the tests' display moves what it shows onto the screen; Windows does
    // not.
    main = std::make_unique<frmMain>(
        frmMain::Startup{.dataFolder = folder.path(), .commandLine = L"", .settings = store, .today = [] {
                             return std::wstring();
                         }});
    main->Form_Load();
    expectPlace(px(*main, 15000), 0, px(*main, 12000), px(*main, 5685));
}

TEST_F(WindowPlace, AMillionTwipsFitOnTheScreen)
{
    startAt(L"1000000", L"1000000", L"1000000", L"1000000");
    expectSeen();
}

TEST_F(WindowPlace, AMillionTwipsToTheLeftBecomeZero)
{
    startAt(L"-1000000", L"-1000000", L"12000", L"9000");
    expectPlace(0, 0, px(*main, 12000), px(*main, 9000));
}

TEST_F(WindowPlace, AbsurdNumbersDoNoHarm)
{
    startAt(L"1e300", L"-1e300", L"99999999999999999999", L"-5");
    expectSeen();
    EXPECT_GE(widthOf(place()), px(*main, 9135));
    EXPECT_GE(heightOf(place()), px(*main, 5685));
}

TEST_F(WindowPlace, TextsThatAreNotNumbersReadAsZero)
{
    startAt(L"abc", L"", L"wide", L"--4");
    expectPlace(0, 0, px(*main, 9135), px(*main, 5685));
}

TEST_F(WindowPlace, FractionsAreRead)
{
    startAt(L"1500.4", L"750.25", L"12000.5", L"9000.0");
    expectPlace(px(*main, 1500), px(*main, 750), px(*main, 12000), px(*main, 9000));
}

} // namespace
} // namespace vandrel::test

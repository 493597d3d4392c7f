#include "mainwindow/window_place.h"

#include "print.h"

#include <array>
#include <cmath>

namespace vandrel {
namespace {

struct Monitor {
    int left, right;
    unsigned dpi;
};

// One at 96 DPI in the middle and one at 144 on either side. The system's DPI may be that of any of them.
constexpr std::array monitors{Monitor{-2560, 0, 144}, Monitor{0, 1920, 96}, Monitor{1920, 4480, 144}};

unsigned dpiAt(int left)
{
    for (const Monitor& monitor : monitors) {
        if (left >= monitor.left && left < monitor.right) return monitor.dpi;
    }
    return 96;
}

struct Window {
    ScreenCorner corner;
    ScreenSize size;
};

StoredPlace inWholeTwips(const StoredPlace& place)
{
    return {Twips{std::round(place.left.value)}, Twips{std::round(place.top.value)},
            Twips{std::round(place.width.value)}, Twips{std::round(place.height.value)}};
}

StoredPlace save(const Window& window, unsigned systemDpi)
{
    return inWholeTwips(placeToStore(window.corner, window.size, systemDpi, dpiAt(window.corner.left)));
}

Window restore(const StoredPlace& place, unsigned systemDpi)
{
    const ScreenCorner corner = cornerOf(place, systemDpi);
    return {corner, sizeOf(place, dpiAt(corner.left))};
}

TEST(WindowPlaces, ComeBackToThePixelFromEveryMonitor)
{
    for (const unsigned systemDpi : {96U, 120U, 144U, 168U}) {
        for (const int left : {-2560, -1999, -1, 0, 7, 1919, 1920, 2001, 4479}) {
            for (const int top : {-1080, -3, 0, 11, 1079}) {
                const Window window{{left, top}, {1013, 747}};
                const Window back = restore(save(window, systemDpi), systemDpi);
                EXPECT_EQ(back.corner.left, left) << systemDpi;
                EXPECT_EQ(back.corner.top, top) << systemDpi;
                EXPECT_EQ(back.size.width, 1013) << left;
                EXPECT_EQ(back.size.height, 747) << left;
            }
        }
    }
}

TEST(WindowPlaces, AreMeasuredInTheSystemsDpiAndSizesInTheWindows)
{
    const StoredPlace place = placeToStore({2000, -300}, {1200, 900}, 96, 144);
    EXPECT_EQ(place.left, 30'000_twips);
    EXPECT_EQ(place.top, Twips{-4500});
    EXPECT_EQ(place.width, 12'000_twips);
    EXPECT_EQ(place.height, 9000_twips);
}

TEST(WindowPlaces, OnASingleMonitorAreMeasuredInItsDpiAlone)
{
    for (const unsigned dpi : {96U, 144U}) {
        const StoredPlace place = placeToStore({100, 50}, {800, 600}, dpi, dpi);
        EXPECT_EQ(place.left, toTwips(100, dpi));
        EXPECT_EQ(place.top, toTwips(50, dpi));
        EXPECT_EQ(place.width, toTwips(800, dpi));
        EXPECT_EQ(place.height, toTwips(600, dpi));
    }
}

} // namespace
} // namespace vandrel

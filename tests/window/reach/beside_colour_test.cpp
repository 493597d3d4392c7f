#include "tests/support/scan_test.h"

namespace vandrel::test {
namespace {

// Whatever a colour shows is shown by something else as well.
class BesideColour : public ScanTest {
  protected:
    // The shape of a picture: whether each pixel is drawn, in whatever colour.
    std::vector<bool> shapeOf(int image)
    {
        const auto list = reinterpret_cast<HIMAGELIST>(
            SendMessageW(lstInfo().handle(), LVM_GETIMAGELIST, LVSIL_SMALL, 0));
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(list, &width, &height);
        const HDC screen = GetDC(nullptr);
        const HDC context = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ old = SelectObject(context, bitmap);
        const RECT area{0, 0, width, height};
        FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        ImageList_Draw(list, image, context, 0, 0, ILD_TRANSPARENT);
        std::vector<bool> dark;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const COLORREF color = GetPixel(context, x, y);
                dark.push_back(GetRValue(color) + GetGValue(color) + GetBValue(color) < 600);
            }
        }
        SelectObject(context, old);
        DeleteObject(bitmap);
        DeleteDC(context);
        ReleaseDC(nullptr, screen);
        return dark;
    }
};

TEST_F(BesideColour, ADeadSiteHasAPictureOfAnotherShape)
{
    begin({});
    const std::vector<bool> alive = shapeOf(siteImage);
    const std::vector<bool> gone = shapeOf(deadSiteImage);
    ASSERT_EQ(alive.size(), gone.size());
    int different = 0;
    for (std::size_t i = 0; i < alive.size(); ++i) different += alive[i] != gone[i] ? 1 : 0;
    EXPECT_GE(different, static_cast<int>(alive.size() / 20)) << "told apart by colour alone";
}

TEST_F(BesideColour, ADeadLinkIsMarkedReportedAndLogged)
{
    const std::wstring nobody = server.refusedAddress();
    begin({{L"Alive", at(L"/ok")}, {L"Dead", nobody}});
    Answers answers;
    answers.expectBox(L"Unavailable Site", oneUnavailable, IDOK, MB_ICONASTERISK);
    main->run(mnuScanAllURLs);
    EXPECT_EQ(images(), (Images{siteImage, deadSiteImage}));
    EXPECT_NE(log().find(success(L"Alive", at(L"/ok"))), std::string::npos);
    EXPECT_NE(log().find(failed(L"Dead", nobody)), std::string::npos);
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test

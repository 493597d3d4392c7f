#include "platform/controls/image_list.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace vandrel::test {
namespace {

constexpr const wchar_t* pictures[] = {L"site", L"folder", L"folder-open", L"dead"};

std::pair<int, int> sizeOf(const IconHandle& icon)
{
    ICONINFO parts{};
    if (!GetIconInfo(icon.get(), &parts)) return {};
    BITMAP picture{};
    GetObjectW(parts.hbmColor != nullptr ? parts.hbmColor : parts.hbmMask, sizeof picture, &picture);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return {picture.bmWidth, picture.bmHeight};
}

TEST(ProgramIcons, AreDrawnForTheSizeAskedFor)
{
    for (const int size : {16, 20, 24, 32, 40, 48}) {
        const IconHandle icon = loadIcon(L"site", size);
        ASSERT_TRUE(icon) << size;
        EXPECT_EQ(sizeOf(icon), std::pair(size, size));
    }
}

TEST(ProgramIcons, OfAnUnknownNameDoNotExist) { EXPECT_FALSE(loadIcon(L"no such picture", 16)); }

TEST(ProgramImages, AreOneForEachNameAndHaveTheSizeAskedFor)
{
    for (const int size : {16, 24, 40}) {
        const ImageListHandle images = loadImages(pictures, size);
        ASSERT_TRUE(images);
        EXPECT_EQ(ImageList_GetImageCount(images.get()), 4);
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(images.get(), &width, &height);
        EXPECT_EQ(width, size);
        EXPECT_EQ(height, size);
    }
}

// The pixels of one picture drawn on white.
std::vector<COLORREF> drawn(HIMAGELIST images, int index, int size)
{
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size, size);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, size, size, WHITENESS);
    ImageList_Draw(images, index, memory, 0, 0, ILD_TRANSPARENT);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) pixels.push_back(GetPixel(memory, x, y));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
}

TEST(ProgramImages, AreInTheOrderOfTheirNames)
{
    const ImageListHandle images = loadImages(pictures, 16);
    for (int i = 0; i < 4; ++i) {
        const wchar_t* const alone[] = {pictures[i]};
        const ImageListHandle one = loadImages(alone, 16);
        EXPECT_EQ(drawn(images.get(), i, 16), drawn(one.get(), 0, 16)) << i;
        EXPECT_NE(drawn(images.get(), i, 16), drawn(images.get(), (i + 1) % 4, 16)) << i;
    }
}

TEST(ProgramImages, HaveATransparentBackground)
{
    const ImageListHandle images = loadImages(pictures, 32);
    for (int i = 0; i < 4; ++i) {
        const auto pixels = drawn(images.get(), i, 32);
        EXPECT_EQ(pixels.front(), RGB(255, 255, 255)) << i;
        EXPECT_NE(pixels, std::vector<COLORREF>(pixels.size(), RGB(255, 255, 255))) << i;
    }
}

} // namespace
} // namespace vandrel::test

#include "platform/font.h"

#include <algorithm>

namespace vandrel {

FontHandle makeFont(const FontDescription& description, unsigned dpi)
{
    LOGFONTW font{};
    font.lfHeight = -MulDiv(description.size, static_cast<int>(dpi), 72);
    font.lfWeight = description.bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = description.italic ? TRUE : FALSE;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    description.name.copy(font.lfFaceName, std::min<std::size_t>(description.name.size(), LF_FACESIZE - 1));
    return FontHandle(CreateFontIndirectW(&font));
}

std::vector<std::wstring> screenFonts()
{
    std::vector<std::wstring> names;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(
        screen, nullptr,
        [](const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM param) {
            auto& found = *reinterpret_cast<std::vector<std::wstring>*>(param);
            // Some systems give a font once for each of its scripts.
            if (std::ranges::find(found, font->lfFaceName) == found.end())
                found.emplace_back(font->lfFaceName);
            return 1;
        },
        reinterpret_cast<LPARAM>(&names));
    ReleaseDC(nullptr, screen);
    return names;
}

SIZE textSize(HFONT font, const std::wstring& text)
{
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font);
    SIZE size{};
    GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
    TEXTMETRICW metrics{};
    if (GetTextMetricsW(screen, &metrics)) size.cy = metrics.tmHeight;
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size;
}

} // namespace vandrel

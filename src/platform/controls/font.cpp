#include "platform/controls/font.h"

#include "platform/base/callback_error.h"

#include <algorithm>

namespace vandrel {

FontHandle makeFont(const FontDescription& description, unsigned dpi)
{
    LOGFONTW font{};
    font.lfHeight = -MulDiv(description.size, static_cast<int>(dpi), 72);
    font.lfWeight = description.bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = description.italic ? TRUE : FALSE;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = DEFAULT_QUALITY; // as the user has set the smoothing of letters
    description.name.copy(font.lfFaceName, std::min<std::size_t>(description.name.size(), LF_FACESIZE - 1));
    return FontHandle(CreateFontIndirectW(&font));
}

std::vector<std::wstring> screenFonts()
{
    struct Search {
        std::vector<std::wstring> names;
        CallbackError error;
    } search;
    const HDC screen = GetDC(nullptr);
    LOGFONTW every{};
    every.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExW(
        screen, &every,
        [](const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM param) {
            Search& found = *reinterpret_cast<Search*>(param);
            return found.error.keep(0, [&] {
                // A font is listed once for each of its scripts.
                if (std::ranges::find(found.names, font->lfFaceName) == found.names.end())
                    found.names.emplace_back(font->lfFaceName);
                return 1;
            });
        },
        reinterpret_cast<LPARAM>(&search), 0);
    ReleaseDC(nullptr, screen);
    search.error.rethrow();
    return std::move(search.names);
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

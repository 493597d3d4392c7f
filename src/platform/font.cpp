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

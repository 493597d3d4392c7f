#include "platform/controls/list_view.h"

namespace vandrel {
namespace {

struct RowColors {
    COLORREF ground;
    COLORREF text;
};

bool highContrast()
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// `share` percent of `a`, the rest of `b`.
BYTE mixed(BYTE a, BYTE b, int share)
{
    return static_cast<BYTE>((a * share + b * (100 - share) + 50) / 100);
}

// Of a selected row while the keyboard is elsewhere: Explorer's grey, #D9D9D9 on white. A high-contrast theme has
// no greys, so that the row looks there as it does with the keyboard.
RowColors selectedWithoutFocus()
{
    if (highContrast()) return {GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)};
    constexpr int groundShare = 85;
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    return {RGB(mixed(GetRValue(ground), GetRValue(text), groundShare),
                mixed(GetGValue(ground), GetGValue(text), groundShare),
                mixed(GetBValue(ground), GetBValue(text), groundShare)),
            text};
}

} // namespace

// The native control would paint such a row in the colour of a dialog's surface, which can hardly be told from
// white. Only then is it asked for row after row.
LRESULT ListView::onCustomDraw(NMLVCUSTOMDRAW& drawing) const
{
    NMCUSTOMDRAW& stage = drawing.nmcd;
    if (stage.dwDrawStage == CDDS_PREPAINT) {
        return GetFocus() != handle() && selectedCount() > 0 ? CDRF_NOTIFYITEMDRAW : CDRF_DODEFAULT;
    }
    // CDIS_SELECTED is set for every row of a list that always shows its selection.
    if (stage.dwDrawStage != CDDS_ITEMPREPAINT || !isSelected(stage.dwItemSpec)) return CDRF_DODEFAULT;
    const RowColors colors = selectedWithoutFocus();
    stage.uItemState &= ~static_cast<UINT>(CDIS_SELECTED); // else these colours are not looked at
    drawing.clrTextBk = colors.ground;
    drawing.clrText = colors.text;
    return CDRF_NEWFONT;
}

} // namespace vandrel

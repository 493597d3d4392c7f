#include "mainwindow/search_panel.h"

#include "platform/controls/image_list.h"
#include "search/quick_search.h"

namespace vandrel {
namespace {

enum ControlId { idSearchText = 301, idSearchButton };

constexpr Twips pictureSize{240};
constexpr Twips openListHeight{3000};
constexpr Twips gap{45};

int buttonWidthFor(int boxHeight) { return boxHeight + 2; } // square, plus its edges

} // namespace

SearchPanel::SearchPanel(HWND parent)
    : Window({.className = L"Vandrel.SearchPanel",
              .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
              .extendedStyle = WS_EX_CONTROLPARENT,
              .parent = parent}),
      lblSearch(handle(), L"Quick Search"),
      cmbSearch(handle(), idSearchText),
      cmdSearch(handle(), idSearchButton, L"Quick Search")
{
    startAnswering();
    cmbSearch.setText(searchPrompt);
    drawForDpi();
}

void SearchPanel::drawForDpi() { cmdSearch.setIcon(loadIcon(L"search", cmdSearch.pixels(pictureSize))); }

void SearchPanel::setEnabled(bool on)
{
    // A disabled control would keep the focus, and keys would go nowhere.
    if (!on && IsChild(handle(), GetFocus())) SetFocus(GetParent(handle()));
    EnableWindow(handle(), on);
    // Disabling the panel blocks its controls; this makes them look disabled.
    cmbSearch.setEnabled(on);
    cmdSearch.setEnabled(on);
}

int SearchPanel::fittingWidth() const
{
    const int arrow = GetSystemMetricsForDpi(SM_CXVSCROLL, cmbSearch.dpi());
    const int margins = cmbSearch.pixels(300_twips) +
                        cmbSearch.sizeOf(searchPrompt).cy / 2; // slanted letters overhang
    return cmbSearch.sizeOf(searchPrompt).cx + arrow + margins + cmbSearch.pixels(gap) +
           buttonWidthFor(cmbSearch.height());
}

LRESULT SearchPanel::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_SIZE) return Window::onMessage(message, wParam, lParam);
    layOut();
    return 0;
}

void SearchPanel::layOut()
{
    RECT area{};
    GetClientRect(handle(), &area);
    const int width = area.right;
    const int boxHeight = cmbSearch.height();
    const int boxTop = (area.bottom - boxHeight) / 2;
    const int buttonWidth = buttonWidthFor(boxHeight);
    cmbSearch.place(0, boxTop, width - buttonWidth - cmbSearch.pixels(gap),
                    boxHeight + cmbSearch.pixels(openListHeight));
    cmbSearch.clearTextSelection();
    cmdSearch.place(width - buttonWidth, boxTop, buttonWidth, boxHeight);
}

} // namespace vandrel

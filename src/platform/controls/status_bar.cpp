#include "platform/controls/status_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace vandrel {

StatusBar::StatusBar(HWND parent) : Control(parent, STATUSCLASSNAMEW, SBARS_SIZEGRIP | WS_CLIPCHILDREN, 0, -1)
{}

std::wstring StatusBar::panelText(int panel) const
{
    const auto part = static_cast<WPARAM>(panel - 1);
    std::wstring text(LOWORD(SendMessageW(handle(), SB_GETTEXTLENGTHW, part, 0)), L'\0');
    SendMessageW(handle(), SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void StatusBar::setPanelText(int panel, const std::wstring& text)
{
    // The control counts characters in 16 bits, and no panel is wide enough for more.
    const std::wstring shown = text.substr(0, 0xFFFF);
    waiting_[static_cast<std::size_t>(panel - 1)].reset();
    SendMessageW(handle(), SB_SETTEXTW, static_cast<WPARAM>(panel - 1),
                 reinterpret_cast<LPARAM>(shown.c_str()));
}

void StatusBar::setPanelTextSoon(int panel, std::wstring text)
{
    text.resize(std::min<std::size_t>(text.size(), 0xFFFF));
    std::optional<std::wstring>& waiting = waiting_[static_cast<std::size_t>(panel - 1)];
    const bool isFirst = !waiting;
    waiting = std::move(text);
    if (!isFirst) return;
    const RECT area = panelArea(panel);
    InvalidateRect(handle(), &area, FALSE);
}

void StatusBar::passTextsOn()
{
    for (std::size_t part = 0; part < waiting_.size(); ++part) {
        // Taken out first: the bar may be painted within the call.
        const auto text = std::exchange(waiting_[part], std::nullopt);
        if (text) SendMessageW(handle(), SB_SETTEXTW, part, reinterpret_cast<LPARAM>(text->c_str()));
    }
}

LRESULT StatusBar::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT:
    case SB_GETTEXTW:
    case SB_GETTEXTA:
    case SB_GETTEXTLENGTHW:
    case SB_GETTEXTLENGTHA: passTextsOn(); break;
    default: break;
    }
    return Control::onMessage(message, wParam, lParam);
}

RECT StatusBar::panelArea(int panel) const
{
    RECT area{};
    SendMessageW(handle(), SB_GETRECT, static_cast<WPARAM>(panel - 1), reinterpret_cast<LPARAM>(&area));
    return area;
}

void StatusBar::setPanelEdges(int first, int second) { setEdges(std::array{first, second, -1}); }

void StatusBar::setPanelEdge(int first) { setEdges(std::array{first, -1}); }

// The native bar repaints itself whenever it is told, even if nothing changes.
template <std::size_t Count> void StatusBar::setEdges(const std::array<int, Count>& edges)
{
    std::array<int, panelCount> now{};
    const auto count = static_cast<std::size_t>(
        SendMessageW(handle(), SB_GETPARTS, now.size(), reinterpret_cast<LPARAM>(now.data())));
    if (count == Count && std::equal(edges.begin(), edges.end(), now.begin())) return;
    SendMessageW(handle(), SB_SETPARTS, Count, reinterpret_cast<LPARAM>(edges.data()));
}

void StatusBar::dock() { SendMessageW(handle(), WM_SIZE, 0, 0); }

} // namespace vandrel

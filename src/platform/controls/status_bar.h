#pragma once

#include "platform/controls/control.h"

#include <array>

namespace vandrel {

// Panels count from 1.
class StatusBar : public Control {
  public:
    static constexpr int panelCount = 3;

    explicit StatusBar(HWND parent);

    std::wstring panelText(int panel) const;
    void setPanelText(int panel, const std::wstring& text);
    // Pixels, from the bar's own left edge.
    RECT panelArea(int panel) const;
    // Right edges of the panels in pixels; the last panel reaches the end.
    void setPanelEdges(int first, int second);
    // Two panels alone.
    void setPanelEdge(int first);
    int height() const { return outerHeight(); }
    // Back to the lower edge of the parent, after that was resized.
    void dock();
};

} // namespace vandrel

#pragma once

#include "platform/controls/control.h"

#include <array>

namespace vandrel {

// Panels count from 1.
class StatusBar : public Control {
  public:
    static constexpr int panelCount = 3;

    explicit StatusBar(HWND parent);

    void setAccessibleName(const std::wstring& name) override { annotateName(name); } // its text is a panel's
    std::wstring panelText(int panel) const;
    void setPanelText(int panel, const std::wstring& text);
    // Pixels, relative to the bar.
    RECT panelArea(int panel) const;
    // Right edges of the first two panels in pixels; the third takes the rest.
    void setPanelEdges(int first, int second);
    // The same with two panels only.
    void setPanelEdge(int first);
    int height() const { return outerHeight(); }
    // Moves to the bottom of the parent, after that has been resized.
    void dock();

  private:
    template <std::size_t Count> void setEdges(const std::array<int, Count>& edges);
};

} // namespace vandrel

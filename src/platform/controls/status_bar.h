#pragma once

#include "platform/controls/control.h"

#include <array>
#include <optional>
#include <string>

namespace vandrel {

// Panels count from 1.
class StatusBar : public Control {
  public:
    static constexpr int panelCount = 3;

    explicit StatusBar(HWND parent);

    void setAccessibleName(const std::wstring& name) override { annotateName(name); } // its text is a panel's
    std::wstring panelText(int panel) const;
    void setPanelText(int panel, const std::wstring& text);
    // The same, but the native bar gets the text only when it is painted or asked for it. For texts that
    // change faster than anybody could read: some systems paint each at once.
    void setPanelTextSoon(int panel, std::wstring text);
    // Pixels, relative to the bar.
    RECT panelArea(int panel) const;
    // Right edges of the first two panels in pixels; the third takes the rest.
    void setPanelEdges(int first, int second);
    // The same with two panels only.
    void setPanelEdge(int first);
    int height() const { return outerHeight(); }
    // Moves to the bottom of the parent, after that has been resized.
    void dock();

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    template <std::size_t Count> void setEdges(const std::array<int, Count>& edges);
    void passTextsOn();

    std::array<std::optional<std::wstring>, panelCount> waiting_; // that the native bar does not have yet
};

} // namespace vandrel

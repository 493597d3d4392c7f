#pragma once

#include <windows.h>

#include <array>

namespace vandrel::test {

// Sets light colours on dark, like the system's high-contrast themes, for one test.
class LightOnDark {
  public:
    LightOnDark()
    {
        for (std::size_t i = 0; i < elements.size(); ++i) before_[i] = GetSysColor(elements[i]);
        SetSysColors(static_cast<int>(elements.size()), elements.data(), colors.data());
        contrast_.cbSize = sizeof contrast_;
        SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast_, &contrast_, 0);
        HIGHCONTRASTW on = contrast_;
        on.dwFlags |= HCF_HIGHCONTRASTON;
        SystemParametersInfoW(SPI_SETHIGHCONTRAST, sizeof on, &on, 0);
    }
    LightOnDark(const LightOnDark&) = delete;
    LightOnDark& operator=(const LightOnDark&) = delete;
    ~LightOnDark()
    {
        SystemParametersInfoW(SPI_SETHIGHCONTRAST, sizeof contrast_, &contrast_, 0);
        SetSysColors(static_cast<int>(elements.size()), elements.data(), before_.data());
    }

  private:
    static constexpr std::array elements{COLOR_WINDOW,    COLOR_WINDOWTEXT,   COLOR_3DFACE,
                                         COLOR_BTNTEXT,   COLOR_HOTLIGHT,     COLOR_GRAYTEXT,
                                         COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};
    static constexpr std::array<COLORREF, elements.size()> colors{0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF,
                                                                  0x00FFFF, 0x00FF00, 0xFFEB1A, 0x000000};
    std::array<COLORREF, elements.size()> before_{};
    HIGHCONTRASTW contrast_{};
};

} // namespace vandrel::test

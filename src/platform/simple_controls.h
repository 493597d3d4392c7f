#pragma once

#include "platform/control.h"

#include <functional>

namespace vandrel {

class Label : public Control {
  public:
    Label(HWND parent, const std::wstring& text);
};

// A group box.
class Frame : public Control {
  public:
    Frame(HWND parent, const std::wstring& text);
};

class Button : public Control {
  public:
    Button(HWND parent, int id, const std::wstring& text, bool isDefault = false);

    std::function<void()> Click;

    // Shows the picture instead of the text, which stays the accessible name.
    void setIcon(IconHandle icon);
    void onCommand(WORD code, WORD id) override;

  private:
    IconHandle icon_;
};

class TextBox : public Control {
  public:
    TextBox(HWND parent, int id);

    std::function<void()> GotFocus;

    // What was set, to the letter, until the user changes it: the native box drops what it cannot show.
    std::wstring text() const override;
    void setText(const std::wstring& text) override;
    // Characters; a length beyond the end selects up to it.
    void select(int start, int length);
    void onCommand(WORD code, WORD id) override;

  private:
    std::wstring textSet_;
};

// A drop-down list with a text box that takes any text.
class ComboBox : public Control {
  public:
    ComboBox(HWND parent, int id);

    // Pixels of the open list's height; the closed box has its font's height.
    int height() const;
    void clearTextSelection();
};

class ProgressBar : public Control {
  public:
    explicit ProgressBar(HWND parent);

    void setMaximum(std::size_t maximum);
    std::size_t maximum() const { return maximum_; }
    // Repaints at once, and only when the bar is longer than before on the screen.
    void setValue(std::size_t value);
    std::size_t value() const { return value_; }

  private:
    std::size_t maximum_ = 1;
    std::size_t value_ = 0;
    int shown_ = 0;
};

} // namespace vandrel

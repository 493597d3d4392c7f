#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

class Label : public Control {
  public:
    enum class Ampersand { letter, accessKey }; // an access key leads to the control after the label
    Label(HWND parent, const std::wstring& text, Ampersand ampersand = Ampersand::letter);

    void center();
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

class CheckBox : public Control {
  public:
    CheckBox(HWND parent, int id, const std::wstring& text);

    std::function<void()> Click;

    bool checked() const;
    void setChecked(bool on);
    void onCommand(WORD code, WORD id) override;
};

// One of several, of which one is on. The first of a group begins it, the arrow keys go through it, and Tab
// leads to the one that is on.
class OptionButton : public Control {
  public:
    enum class Place { first, following };
    OptionButton(HWND parent, int id, const std::wstring& text, Place place);

    bool on() const;
    // Only this one; the others of the group are the caller's to switch off.
    void setOn(bool on);
};

class TextBox : public Control {
  public:
    enum class Lines { one, many };
    TextBox(HWND parent, int id, Lines lines = Lines::one);

    std::function<void()> GotFocus;

    // What the box shows. While that is what it showed of the text set last, it is that text to the letter:
    // the native box drops what it cannot show.
    std::wstring text() const override;
    void setText(const std::wstring& text) override;
    // Characters; a length beyond the end selects up to it.
    void select(int start, int length);
    void setGrey(); // the colours of a surface instead of a field's
    void onCommand(WORD code, WORD id) override;
    std::optional<LRESULT> onColor(HDC context, UINT message) override;

  private:
    std::wstring textSet_;
    std::wstring shownForSet_; // the native text right after that one was set
    bool grey_ = false;
};

// A drop-down list with a text box that takes any text.
class ComboBox : public Control {
  public:
    ComboBox(HWND parent, int id);

    std::function<void()> GotFocus;
    std::function<void()> Click; // the user chose an entry of the list, whose text is in the box now

    std::size_t count() const;
    std::wstring entry(std::size_t index) const;
    void add(const std::wstring& text); // behind the last entry

    // Pixels of the open list's height; the closed box has its font's height.
    int height() const { return outerHeight(); }
    void clearTextSelection();
    bool listIsOpen() const;
    // Closes the open list; the highlighted entry, if there is one, is the box's text. Raises nothing.
    void takeHighlighted();
    void onCommand(WORD code, WORD id) override;
};

class ProgressBar : public Control {
  public:
    explicit ProgressBar(HWND parent);

    // Shows the bar, empty, for work of so many steps. The native bar counts the same steps, as screen
    // readers tell them.
    void begin(std::size_t steps);
    void setMaximum(std::size_t maximum);
    std::size_t maximum() const { return maximum_; }
    // Repaints at once, but only for the last step, for a hundredth more, and otherwise after a tenth of a
    // second.
    void setValue(std::size_t value);
    std::size_t value() const { return value_; }

  private:
    void showPosition(int position);

    std::size_t maximum_ = 1;
    std::size_t value_ = 0;
    std::size_t shown_ = 0;  // of the values, the one that the native bar has
    ULONGLONG nextTime_ = 0; // from then on a smaller step is shown, too
};

} // namespace vandrel

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

// A control that the system's visual style gives a text colour of its own. While it has another one it is drawn
// without the style.
class StyledControl : public Control {
  public:
    void setForeColor(COLORREF color) override;

  protected:
    using Control::Control;
};

// A group box.
class Frame : public StyledControl {
  public:
    Frame(HWND parent, const std::wstring& text);
};

class Button : public Control {
  public:
    Button(HWND parent, int id, const std::wstring& text, bool isDefault = false);

    std::function<void()> Click;

    // Shows the picture instead of the text, which remains the accessible name.
    void setIcon(IconHandle icon);
    void onCommand(WORD code, WORD id) override;

  private:
    IconHandle icon_;
};

class CheckBox : public StyledControl {
  public:
    CheckBox(HWND parent, int id, const std::wstring& text);

    std::function<void()> Click;

    bool checked() const;
    void setChecked(bool on);
    void onCommand(WORD code, WORD id) override;
};

// One of a group of buttons, of which one is on. `first` starts a group. The arrow keys move within the
// group; Tab goes to the button that is on.
class OptionButton : public StyledControl {
  public:
    enum class Place { first, following };
    OptionButton(HWND parent, int id, const std::wstring& text, Place place);

    bool on() const;
    // Changes this button only: the caller switches the others off.
    void setOn(bool on);
};

class TextBox : public Control {
  public:
    enum class Lines { one, many };
    TextBox(HWND parent, int id, Lines lines = Lines::one);

    std::function<void()> GotFocus;

    // The text in the box. While the box shows what it showed right after setText, this is exactly the text
    // that was set: the native box drops what it cannot show.
    std::wstring text() const override;
    void setText(const std::wstring& text) override;
    // In characters; the selection stops at the end of the text.
    void select(int start, int length);
    void setGrey(); // the colours of a dialog instead of a field
    void onCommand(WORD code, WORD id) override;
    std::optional<LRESULT> onColor(HDC context, UINT message) override;

  private:
    std::wstring textSet_;
    std::wstring shownForSet_; // the native text right after textSet_ was set
    bool grey_ = false;
};

// A text box that takes any text, with a drop-down list.
class ComboBox : public Control {
  public:
    ComboBox(HWND parent, int id);

    std::function<void()> GotFocus;
    std::function<void()> Click; // the user chose an entry, whose text is in the box now

    std::size_t count() const;
    std::wstring entry(std::size_t index) const;
    void add(const std::wstring& text); // after the last entry

    // Pixels of the closed box, which depends on its font; place() sets the height of the open list.
    int height() const { return outerHeight(); }
    void clearTextSelection();
    bool listIsOpen() const;
    // Closes the open list and makes its highlighted entry, if any, the text of the box. Raises no event.
    void takeHighlighted();
    void onCommand(WORD code, WORD id) override;
};

class ProgressBar : public Control {
  public:
    explicit ProgressBar(HWND parent);

    // Shows the bar, empty, for work of `steps` steps. The native bar counts the same steps, because screen
    // readers report them.
    void begin(std::size_t steps);
    void setMaximum(std::size_t maximum);
    std::size_t maximum() const { return maximum_; }
    // Paints the bar at once if it was not painted for a tenth of a second, or if the work is done. Otherwise
    // the native bar gets the value when it is painted or asked for it.
    void setValue(std::size_t value);
    std::size_t value() const { return value_; }

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void showValue();
    void showPosition(int position);

    std::size_t maximum_ = 0; // at least 1 once the native bar knows it
    std::size_t value_ = 0;
    std::size_t shown_ = 0;  // the value that the native bar shows
    ULONGLONG nextTime_ = 0; // from then on the value is shown at once
    bool behind_ = false;    // it is to be shown when the bar is painted
};

} // namespace vandrel

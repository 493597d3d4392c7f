#include "platform/windows/input_box.h"

#include "platform/controls/simple_controls.h"
#include "platform/windows/dialog.h"

#include <algorithm>

namespace vandrel {
namespace {

class InputBox : public Dialog {
  public:
    InputBox(HWND owner, const std::wstring& prompt, const std::wstring& title)
        : Dialog(owner, title),
          prompt_(handle(), prompt),
          text_(handle(), 101),
          ok_(handle(), IDOK, L"OK", true),
          cancel_(handle(), IDCANCEL, L"Cancel")
    {
        ok_.Click = [this] { onOk(); };
        cancel_.Click = [this] { unload(); };
        for (Control* control : controls()) control->setFont({});
        layOut();
        setFirstFocus(text_.handle());
    }

    std::wstring answer;

    std::vector<Control*> controls() override { return {&prompt_, &text_, &ok_, &cancel_}; }

  protected:
    void layOut() override
    {
        const SIZE prompt = prompt_.sizeOf(prompt_.text());
        const int gap = text_.pixels(120_twips);
        const int boxHeight = prompt.cy + text_.pixels(120_twips);
        const int buttonWidth = text_.pixels(1200_twips);
        const int buttonHeight = prompt.cy + text_.pixels(150_twips);
        const int width = std::max<int>(prompt.cx, text_.pixels(4800_twips));
        const int boxTop = gap + prompt.cy + gap / 2;
        const int buttonTop = boxTop + boxHeight + gap;
        prompt_.place(gap, gap, width, prompt.cy);
        text_.place(gap, boxTop, width, boxHeight);
        cancel_.place(gap + width - buttonWidth, buttonTop, buttonWidth, buttonHeight);
        ok_.place(gap + width - 2 * buttonWidth - gap, buttonTop, buttonWidth, buttonHeight);
        setClientSize(width + 2 * gap, buttonTop + buttonHeight + gap);
    }
    void onOk() override
    {
        answer = text_.text();
        unload();
    }

  private:
    Label prompt_;
    TextBox text_;
    Button ok_;
    Button cancel_;
};

} // namespace

std::wstring inputBox(HWND owner, const std::wstring& prompt, const std::wstring& title)
{
    InputBox box(owner, prompt, title);
    box.showModal();
    return box.answer;
}

} // namespace vandrel

#pragma once

#include "platform/base/runtime_error.h"
#include "platform/windows/ole_session.h"
#include "platform/windows/window.h"

#include <deque>
#include <functional>
#include <variant>

namespace vandrel {

// The text of a drop, or the error that reading it gave.
class DroppedData {
  public:
    explicit DroppedData(std::wstring text) : content_(std::move(text)) {}
    explicit DroppedData(RuntimeError failure) : content_(std::move(failure)) {}

    // The plain text, up to its first NUL. Throws RuntimeError: 461 if the data has no text, another number
    // if it offers text but fails to deliver it.
    // Contract: the text is neither trimmed nor checked.
    const std::wstring& text() const;

  private:
    std::variant<std::wstring, RuntimeError> content_;
};

// Lets a window accept drops. The source of a drag waits until the drop has been taken, so only the text is
// read then; a posted message raises `Drop` afterwards. A window that a dialog has disabled accepts no
// drops.
class DropTarget : private Window {
  public:
    explicit DropTarget(HWND window);
    ~DropTarget() override;

    std::function<void(const DroppedData& data)> Drop;

    // Must be called before the window is destroyed.
    void revoke();

  private:
    class Receiver;

    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void dropped(DroppedData data);

    OleSession ole_;
    HWND target_;
    Receiver* receiver_ = nullptr; // we hold one reference
    std::deque<DroppedData> waiting_;
};

} // namespace vandrel

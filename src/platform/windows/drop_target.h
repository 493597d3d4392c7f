#pragma once

#include "platform/base/runtime_error.h"
#include "platform/windows/ole_session.h"
#include "platform/windows/window.h"

#include <deque>
#include <functional>
#include <variant>

namespace vandrel {

// What was dropped, as far as it is text.
class DroppedData {
  public:
    explicit DroppedData(std::wstring text) : content_(std::move(text)) {}
    explicit DroppedData(RuntimeError failure) : content_(std::move(failure)) {}

    // The plain text as it is, up to its first NUL. Throws RuntimeError: 461 when the data has no such form,
    // another when it says that it has and does not give it.
    const std::wstring& text() const;

  private:
    std::variant<std::wstring, RuntimeError> content_;
};

// Lets a window take drops. The source of a drag waits until its drop was taken, so what is to be done with
// the text is done only after it was let go: `Drop` is raised by a message of our own. While a dialog keeps
// the window from taking input it takes no drops either.
class DropTarget : private Window {
  public:
    explicit DropTarget(HWND window);
    ~DropTarget() override;

    std::function<void(const DroppedData& data)> Drop;

    // To be called before the window is destroyed.
    void revoke();

  private:
    class Receiver;

    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void dropped(DroppedData data);

    OleSession ole_;
    HWND target_;
    Receiver* receiver_ = nullptr; // one reference is ours
    std::deque<DroppedData> waiting_;
};

} // namespace vandrel

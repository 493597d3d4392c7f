#include "platform/windows/message_loop.h"

#include "platform/base/guarded.h"

#include <algorithm>

namespace vandrel {

MessageLoop::Registration::Registration(MessageLoop& loop, Filter filter) : loop_(loop), id_(loop.nextId_++)
{
    loop_.filters_.push_back({id_, std::move(filter)});
}

MessageLoop::Registration::~Registration()
{
    std::erase_if(loop_.filters_, [this](const Entry& entry) { return entry.id == id_; });
}

MessageLoop::Rest::Rest(MessageLoop& loop, std::function<void()> action) : loop_(loop), id_(loop.nextId_++)
{
    loop_.rests_.push_back({id_, std::move(action)});
}

MessageLoop::Rest::~Rest()
{
    std::erase_if(loop_.rests_, [this](const RestEntry& entry) { return entry.id == id_; });
}

MessageLoop& MessageLoop::current()
{
    static MessageLoop loop;
    return loop;
}

void MessageLoop::dispatch(MSG& message)
{
    // A filter may run a command that opens and closes dialogs, so the list can change during this loop.
    for (std::size_t i = filters_.size(); i-- > 0;) {
        if (i >= filters_.size()) continue;
        // A message whose command failed has been handled all the same.
        const auto taken = guarded(message.hwnd, TRUE, [&]() -> LRESULT {
            const Filter filter = filters_[i].filter;
            return filter(message) ? TRUE : FALSE;
        });
        if (taken != FALSE) return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void MessageLoop::runUntil(const std::function<bool()>& done)
{
    MSG message{};
    while (!done()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatch(message);
    }
}

void MessageLoop::run()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        dispatch(message);
        rest();
    }
}

void MessageLoop::rest()
{
    for (const RestEntry& entry : rests_) entry.action();
}

bool MessageLoop::dispatchPending() { return dispatchQueued(PM_REMOVE); }

bool MessageLoop::dispatchAllButPainting()
{
    return dispatchQueued(PM_REMOVE | PM_QS_INPUT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE);
}

bool MessageLoop::dispatchQueued(UINT remove)
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, remove)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        dispatch(message);
    }
    return true;
}

void MessageLoop::paintPending()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT)) dispatch(message);
}

} // namespace vandrel

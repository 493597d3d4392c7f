#include "platform/internet_transfer.h"

#include "platform/ansi_text.h"
#include "platform/handle.h"
#include "platform/message_loop.h"
#include "platform/runtime_error.h"
#include "platform/scope_exit.h"

#include <wininet.h>

#include <array>
#include <atomic>
#include <deque>
#include <mutex>
#include <optional>

namespace vandrel {
namespace {

using InternetHandle = UniqueHandle<HINTERNET, InternetCloseHandle, nullHandle<HINTERNET>>;
using EventHandle = UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>>;

constexpr std::size_t longestBody = 1U << 20; // bytes
constexpr int mostRedirections = 10;

EventHandle makeEvent() { return EventHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr)); }

RuntimeError transferError(DWORD reason)
{
    namespace e = error_number;
    switch (reason) {
    case ERROR_INTERNET_TIMEOUT: return RuntimeError(e::requestTimedOut);
    case ERROR_INVALID_PARAMETER:
    case ERROR_INTERNET_INVALID_URL: return RuntimeError(e::malformedUrl);
    case ERROR_INTERNET_UNRECOGNIZED_SCHEME: return RuntimeError(e::unsupportedProtocol);
    case ERROR_INTERNET_NAME_NOT_RESOLVED:
    case ERROR_INTERNET_CANNOT_CONNECT: return RuntimeError(e::cannotConnect);
    default: return RuntimeError(e::requestFailed);
    }
}

} // namespace

// One address, shared by the two threads.
struct InternetTransfer::Job {
    std::wstring url;
    Body wanted;
    EventHandle news = makeEvent(); // a state or the end

    std::mutex guard; // of what follows
    std::deque<short> states;
    bool resolvingTold = false;
    bool connectingTold = false;
    bool done = false;
    DWORD error = 0;
    std::string body;

    void tell(short state)
    {
        {
            const std::lock_guard lock(guard);
            states.push_back(state);
        }
        SetEvent(news.get());
    }
    void finish(DWORD reason, std::string text)
    {
        {
            const std::lock_guard lock(guard);
            error = reason;
            body = std::move(text);
            done = true;
        }
        SetEvent(news.get());
    }
};

// The thread that makes the calls, which wait. One that does not come back is left to itself: it ends when its call
// does, or with the program.
class InternetTransfer::Worker : public std::enable_shared_from_this<Worker> {
  public:
    ~Worker() = default;

    void start()
    {
        auto* const self = new std::shared_ptr<Worker>(shared_from_this());
        const HANDLE thread = CreateThread(nullptr, 0, run, self, 0, nullptr);
        if (thread == nullptr) {
            delete self;
            throw RuntimeError(error_number::outOfMemory);
        }
        CloseHandle(thread);
    }
    void take(std::shared_ptr<Job> job)
    {
        {
            const std::lock_guard lock(guard_);
            next_ = std::move(job);
        }
        SetEvent(wake_.get());
    }
    // What it does is not waited for any more.
    void abandon()
    {
        {
            const std::lock_guard lock(guard_);
            abandoned_ = true;
        }
        SetEvent(wake_.get());
        // Where the system allows it, this ends the call that hangs.
        if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
    }

  private:
    static DWORD WINAPI run(void* parameter)
    {
        const std::unique_ptr<std::shared_ptr<Worker>> self(static_cast<std::shared_ptr<Worker>*>(parameter));
        (*self)->work();
        return 0;
    }
    void work()
    {
        session_ = InternetOpenW(L"Vandrel", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
        InternetSetStatusCallbackW(session_, statusChanged);
        while (WaitForSingleObject(wake_.get(), INFINITE) == WAIT_OBJECT_0) {
            std::shared_ptr<Job> job;
            {
                const std::lock_guard lock(guard_);
                if (abandoned_) break;
                job = std::exchange(next_, nullptr);
            }
            if (job) open(*job);
        }
        if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
    }
    void open(Job& job)
    {
        InternetHandle request(opened(job, job.url));
        std::wstring address = job.url;
        // Redirections are followed here: not every system ends those that lead in a circle.
        for (int hop = 0; request; ++hop) {
            const auto target = redirection(request.get(), address);
            if (!target) break;
            if (hop == mostRedirections || isAbandoned()) {
                SetLastError(ERROR_HTTP_REDIRECT_FAILED);
                request.reset();
                break;
            }
            address = *target;
            request.reset();
            request.reset(opened(job, address));
        }
        std::string body;
        if (!request || (job.wanted == Body::text && !readBody(request.get(), body))) {
            const DWORD reason = GetLastError();
            job.finish(reason != 0 ? reason : ERROR_INTERNET_INTERNAL_ERROR, {});
            return;
        }
        job.finish(0, std::move(body));
    }
    HINTERNET opened(Job& job, const std::wstring& url) const
    {
        constexpr DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                                INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_UI |
                                INTERNET_FLAG_PRAGMA_NOCACHE | INTERNET_FLAG_NO_AUTO_REDIRECT;
        return InternetOpenUrlW(session_, url.c_str(), nullptr, 0, flags, reinterpret_cast<DWORD_PTR>(&job));
    }
    bool isAbandoned()
    {
        const std::lock_guard lock(guard_);
        return abandoned_;
    }
    static std::optional<DWORD> headerNumber(HINTERNET request, DWORD header)
    {
        DWORD number = 0;
        DWORD size = sizeof number;
        const bool there = HttpQueryInfoW(request, header | HTTP_QUERY_FLAG_NUMBER, &number, &size,
                                          nullptr) != 0;
        return there ? std::optional(number) : std::nullopt;
    }
    // Where the answer sends the client, as a whole address.
    static std::optional<std::wstring> redirection(HINTERNET request, const std::wstring& address)
    {
        const DWORD status = headerNumber(request, HTTP_QUERY_STATUS_CODE).value_or(0);
        const bool redirects = status == 301 || status == 302 || status == 303 || status == 307 ||
                               status == 308;
        if (!redirects) return std::nullopt;
        std::array<wchar_t, INTERNET_MAX_URL_LENGTH> location{};
        DWORD size = sizeof location;
        if (!HttpQueryInfoW(request, HTTP_QUERY_LOCATION, location.data(), &size, nullptr))
            return std::nullopt;
        std::array<wchar_t, INTERNET_MAX_URL_LENGTH> whole{};
        DWORD length = static_cast<DWORD>(whole.size());
        if (!InternetCombineUrlW(address.c_str(), location.data(), whole.data(), &length, 0))
            return std::nullopt;
        const std::wstring target(whole.data(), length);
        const bool isWeb = target.starts_with(L"http://") || target.starts_with(L"https://");
        return isWeb ? std::optional(target) : std::nullopt; // a host may not send us to files of ours
    }
    // False, with the reason in the last error, when the answer ends before its end.
    static bool readBody(HINTERNET request, std::string& body)
    {
        const auto announced = headerNumber(request, HTTP_QUERY_CONTENT_LENGTH);
        std::array<char, 16384> part{};
        DWORD got = 0;
        do {
            if (!InternetReadFile(request, part.data(), static_cast<DWORD>(part.size()), &got)) return false;
            body.append(part.data(), got);
        } while (got > 0 && body.size() < longestBody);
        const bool cutOff = announced && body.size() < std::min<std::size_t>(*announced, longestBody);
        body.resize(std::min(body.size(), longestBody));
        if (cutOff) SetLastError(ERROR_INTERNET_CONNECTION_ABORTED);
        return !cutOff;
    }
    // A connection that is used again is neither resolved nor made again; for whoever listens it is both.
    static void CALLBACK statusChanged(HINTERNET, DWORD_PTR context, DWORD status, void*, DWORD)
    {
        auto* const job = reinterpret_cast<Job*>(context);
        if (job == nullptr) return;
        const bool connects = status == INTERNET_STATUS_CONNECTING_TO_SERVER ||
                              status == INTERNET_STATUS_SENDING_REQUEST;
        if (!connects && status != INTERNET_STATUS_RESOLVING_NAME) return;
        if (!std::exchange(job->resolvingTold, true)) job->tell(resolvingHost);
        if (connects && !std::exchange(job->connectingTold, true)) job->tell(connecting);
    }

    EventHandle wake_ = makeEvent();
    std::mutex guard_;
    std::shared_ptr<Job> next_;
    bool abandoned_ = false;
    std::atomic<HINTERNET> session_ = nullptr;
};

InternetTransfer::~InternetTransfer()
{
    if (worker_) worker_->abandon();
}

std::wstring InternetTransfer::OpenURL(const std::wstring& url, Body body)
{
    if (executing_) throw RuntimeError(error_number::stillExecuting);
    if (quitting_) throw RuntimeError(error_number::requestFailed);
    executing_ = true;
    const ScopeExit done([this] { executing_ = false; });
    if (!worker_) {
        worker_ = std::make_shared<Worker>();
        worker_->start();
    }
    const auto job = std::make_shared<Job>();
    job->url = url;
    job->wanted = body;
    worker_->take(job);
    wait(*job);
    const std::lock_guard lock(job->guard);
    if (job->error != 0) throw transferError(job->error);
    return decodeAnsi(job->body);
}

void InternetTransfer::wait(Job& job)
{
    const ULONGLONG deadline = GetTickCount64() + timeout_;
    const auto leave = [this](int number) {
        worker_->abandon();
        worker_.reset();
        throw RuntimeError(number);
    };
    while (true) {
        tellStates(job);
        {
            const std::lock_guard lock(job.guard);
            if (job.done && job.states.empty()) return;
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) leave(error_number::requestTimedOut);
        const HANDLE news = job.news.get();
        const DWORD reason = MsgWaitForMultipleObjectsEx(1, &news, static_cast<DWORD>(deadline - now),
                                                         QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (reason == WAIT_OBJECT_0 + 1 && !MessageLoop::current().dispatchPending()) {
            quitting_ = true;
            leave(error_number::requestFailed);
        }
    }
}

void InternetTransfer::tellStates(Job& job)
{
    while (true) {
        short state = 0;
        {
            const std::lock_guard lock(job.guard);
            if (job.states.empty()) return;
            state = job.states.front();
            job.states.pop_front();
        }
        if (StateChanged) StateChanged(state);
    }
}

} // namespace vandrel

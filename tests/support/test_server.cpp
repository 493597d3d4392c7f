#include "tests/support/test_server.h"

#include <winsock2.h>

#include <ws2tcpip.h>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace vandrel::test {
namespace {

constexpr std::uint64_t hugeBody = 100'000'000;
constexpr std::uint64_t pauseEvery = 20'000;
constexpr auto pause = std::chrono::milliseconds(5);
constexpr int pollMilliseconds = 10;
constexpr int idleMilliseconds = 100; // there may be many such connections
constexpr auto trickleEvery = std::chrono::milliseconds(20);

struct Reply {
    int status = 200;
    std::string body;
    std::string location{};
    std::vector<std::string> cookies{};
};

std::string bytesOf(const Reply& reply)
{
    std::string bytes = "HTTP/1.1 " + std::to_string(reply.status) + " Told\r\n";
    if (!reply.location.empty()) bytes += "Location: " + reply.location + "\r\n";
    if (reply.status == 401) bytes += "WWW-Authenticate: Basic realm=\"here\"\r\n";
    for (const std::string& line : reply.cookies) bytes += "Set-Cookie: " + line + "\r\n";
    bytes += "Content-Type: text/html\r\nContent-Length: " + std::to_string(reply.body.size()) + "\r\n\r\n";
    return bytes + reply.body;
}

// The value of this field in a request's header; empty when it is missing.
std::string headerOf(const std::string& request, const std::string& name)
{
    const std::string before = "\r\n" + name + ": ";
    const std::size_t found = request.find(before);
    if (found == std::string::npos) return {};
    const std::size_t start = found + before.size();
    return request.substr(start, request.find("\r\n", start) - start);
}

// On 127.0.0.`host`; `port` 0 is one that is free.
SOCKET boundSocket(sockaddr_in& address, unsigned host = 1, unsigned short port = 0)
{
    const SOCKET made = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + host - 1);
    address.sin_port = htons(port);
    int size = sizeof address;
    if (made == INVALID_SOCKET || bind(made, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        getsockname(made, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("no port is free");
    }
    return made;
}

} // namespace

class TestServer::Server {
  public:
    explicit Server(unsigned hosts)
    {
        WSADATA data{};
        WSAStartup(MAKEWORD(2, 2), &data);
        listeners_.push_back(boundSocket(address_));
        for (unsigned host = 2; host <= hosts; ++host) {
            sockaddr_in address{};
            listeners_.push_back(boundSocket(address, host, port()));
        }
        deaf_ = boundSocket(deafAddress_); // bound but not listening, so that nobody else gets the port
        for (const SOCKET listener : listeners_) {
            listen(listener, SOMAXCONN);
            acceptors_.emplace_back([this, listener] { acceptAll(listener); });
        }
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server()
    {
        {
            const std::lock_guard lock(guard);
            stopping_ = true;
        }
        changed.notify_all();
        for (unsigned host = 0; host < acceptors_.size(); ++host) {
            // A last connection wakes the thread that waits for one.
            sockaddr_in address = address_;
            address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + host);
            const SOCKET last = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
            static_cast<void>(connect(last, reinterpret_cast<const sockaddr*>(&address), sizeof address));
            acceptors_[host].join();
            closesocket(last);
        }
        for (std::thread& thread : threads_) thread.join();
        for (const SOCKET listener : listeners_) closesocket(listener);
        closesocket(deaf_);
        WSACleanup();
    }

    unsigned short port() const { return ntohs(address_.sin_port); }
    unsigned short deafPort() const { return ntohs(deafAddress_.sin_port); }

    mutable std::mutex guard; // for the members below
    std::condition_variable changed;
    std::map<std::string, Reply> replies;
    std::map<std::string, std::vector<std::string>> cookiesSet;
    std::vector<std::string> requests;
    std::vector<std::string> cookiesSent;
    std::size_t connections = 0;
    std::size_t held = 0;
    std::size_t lettings = 0;
    std::uint64_t bytesSent = 0;
    std::size_t hugeEnded = 0;
    std::map<std::string, std::size_t> busy; // requests under way, by host
    std::size_t mostAtOnce = 0;
    std::size_t mostOfOneHost = 0;

  private:
    void acceptAll(SOCKET listener)
    {
        while (true) {
            const SOCKET accepted = accept(listener, nullptr, nullptr);
            const std::lock_guard lock(guard);
            if (stopping_ || accepted == INVALID_SOCKET) {
                if (accepted != INVALID_SOCKET) closesocket(accepted);
                return;
            }
            ++connections;
            u_long atOnce = 1;
            ioctlsocket(accepted, static_cast<long>(FIONBIO), &atOnce);
            threads_.emplace_back([this, accepted] {
                serve(accepted);
                closesocket(accepted);
            });
        }
    }
    // Polls: not every system wakes a waiting call when its socket is shut down.
    bool waitFor(SOCKET socket, short what, int every = pollMilliseconds)
    {
        while (true) {
            {
                const std::lock_guard lock(guard);
                if (stopping_) return false;
            }
            WSAPOLLFD poll{socket, what, 0};
            const int ready = WSAPoll(&poll, 1, every);
            if (ready != 0) return ready > 0;
        }
    }
    int receive(SOCKET socket, char* part, int size)
    {
        return waitFor(socket, POLLRDNORM) ? recv(socket, part, size, 0) : 0;
    }
    bool sendAll(SOCKET socket, const std::string& bytes)
    {
        for (std::size_t at = 0; at < bytes.size();) {
            if (!waitFor(socket, POLLWRNORM)) return false;
            const int sent = send(socket, bytes.data() + at, static_cast<int>(bytes.size() - at), 0);
            if (sent < 0 && WSAGetLastError() == WSAEWOULDBLOCK) continue;
            if (sent <= 0) return false;
            at += static_cast<std::size_t>(sent);
        }
        return true;
    }
    void serve(SOCKET socket)
    {
        std::string got;
        while (true) {
            const std::size_t end = got.find("\r\n\r\n");
            if (end == std::string::npos) {
                char part[4096];
                const int count = receive(socket, part, sizeof part);
                if (count <= 0) return;
                got.append(part, static_cast<std::size_t>(count));
                continue;
            }
            const std::size_t start = got.find(' ') + 1;
            const std::string path = got.substr(start, got.find(' ', start) - start);
            const std::string cookies = headerOf(got.substr(0, end), "Cookie");
            const std::string host = headerOf(got.substr(0, end), "Host");
            got.erase(0, end + 4);
            {
                const std::lock_guard lock(guard);
                requests.push_back(path);
                cookiesSent.push_back(cookies);
            }
            begin(host);
            const bool goesOn = waits(socket, path);
            // Before the answer, after which the client may send the next request at once.
            finish(host);
            if (!goesOn || !answer(socket, path.substr(0, path.find('?')), cookies)) return;
        }
    }
    void begin(const std::string& host)
    {
        const std::lock_guard lock(guard);
        mostOfOneHost = std::max(mostOfOneHost, ++busy[host]);
        std::size_t all = 0;
        for (const auto& [name, count] : busy) all += count;
        mostAtOnce = std::max(mostAtOnce, all);
    }
    void finish(const std::string& host)
    {
        const std::lock_guard lock(guard);
        --busy[host];
    }
    // Does what comes before the answer. Returns whether there is to be one.
    bool waits(SOCKET socket, const std::string& path)
    {
        const std::string what = path.substr(0, path.find('?'));
        if (what == "/silent") return waitForEnd(socket);
        if (what == "/held") return hold();
        if (what != "/wait") return true;
        std::unique_lock lock(guard);
        const auto time = std::chrono::milliseconds(std::stoul(path.substr(what.size() + 1)));
        return !changed.wait_for(lock, time, [this] { return stopping_; });
    }
    // Returns whether the connection can take another request.
    bool answer(SOCKET socket, const std::string& path, const std::string& cookies)
    {
        if (path == "/closed") return false;
        if (path == "/reset") {
            const linger atOnce{1, 0};
            setsockopt(socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
            return false;
        }
        if (path == "/trickle") return trickle(socket);
        if (path == "/huge") return sendHuge(socket);
        if (path == "/cut") {
            const std::string whole = bytesOf({200, "0123456789"});
            sendAll(socket, whole.substr(0, whole.size() - 5));
            return false;
        }
        if (path == "/cookie" && cookies.find("seen=1") == std::string::npos)
            return sendAll(socket, bytesOf({302, "once more", "/cookie", {"seen=1; Path=/cookie"}}));
        return sendAll(socket, bytesOf(replyWithCookies(path)));
    }
    Reply replyWithCookies(const std::string& path)
    {
        Reply reply = replyTo(path);
        const std::lock_guard lock(guard);
        reply.cookies = cookiesSet[path];
        return reply;
    }
    Reply replyTo(const std::string& path)
    {
        if (path == "/ok" || path == "/cookie" || path == "/held" || path == "/wait") return {200, "fine"};
        if (path == "/locked") return {401, "who are you?"};
        if (path == "/broken") return {500, "out of order"};
        if (path == "/moved") return {302, "elsewhere", "/ok"};
        if (path == "/loop") return {302, "round and round", "/loop"};
        if (path == "/astray")
            return {302, "elsewhere", "http://127.0.0.1:" + std::to_string(deafPort()) + "/"};
        const std::lock_guard lock(guard);
        const auto found = replies.find(path);
        return found == replies.end() ? Reply{404, "no such page"} : found->second;
    }
    // Waits until the client closes the connection.
    bool waitForEnd(SOCKET socket)
    {
        char part[256];
        while (waitFor(socket, POLLRDNORM, idleMilliseconds) && recv(socket, part, sizeof part, 0) > 0) {}
        return false;
    }
    bool hold()
    {
        std::unique_lock lock(guard);
        ++held;
        const std::size_t before = lettings;
        changed.wait(lock, [&] { return stopping_ || lettings != before; });
        --held;
        return !stopping_;
    }
    bool trickle(SOCKET socket)
    {
        if (!sendAll(socket, "HTTP/1.1 200 Told\r\nX-Long: ")) return false;
        std::unique_lock lock(guard);
        while (!changed.wait_for(lock, trickleEvery, [this] { return stopping_; })) {
            lock.unlock();
            if (!sendAll(socket, "x")) return false;
            lock.lock();
        }
        return false;
    }
    bool sendHuge(SOCKET socket)
    {
        bool whole = sendAll(socket, "HTTP/1.1 200 Told\r\nContent-Type: text/html\r\nContent-Length: " +
                                         std::to_string(hugeBody) + "\r\n\r\n");
        const std::string part(10'000, 'x');
        for (std::uint64_t sent = 0; whole && sent < hugeBody; sent += part.size()) {
            whole = sendAll(socket, part);
            std::unique_lock lock(guard);
            bytesSent += part.size();
            // No faster than a network: before Wine closes a connection, it reads on for as long as more
            // data is there at once.
            if (bytesSent % pauseEvery == 0) changed.wait_for(lock, pause, [this] { return stopping_; });
        }
        const std::lock_guard lock(guard);
        ++hugeEnded;
        return whole;
    }

    sockaddr_in address_{};
    sockaddr_in deafAddress_{};
    std::vector<SOCKET> listeners_; // the first one is that of address_
    SOCKET deaf_ = INVALID_SOCKET;
    bool stopping_ = false;              // guarded by `guard`, as are the members below
    std::vector<std::thread> acceptors_; // one for each listener
    std::list<std::thread> threads_;     // one for each connection
};

TestServer::TestServer(unsigned hosts) : server_(std::make_unique<Server>(hosts)) {}
TestServer::~TestServer() = default;

std::wstring TestServer::root() const { return L"http://127.0.0.1:" + std::to_wstring(server_->port()); }

std::wstring TestServer::addressByName(const std::wstring& path) const
{
    return L"http://localhost:" + std::to_wstring(server_->port()) + path;
}

std::wstring TestServer::addressAt(unsigned host, const std::wstring& path) const
{
    return L"http://127.0.0." + std::to_wstring(host) + L":" + std::to_wstring(server_->port()) + path;
}

std::wstring TestServer::refusedAddress(const std::wstring& scheme, const std::wstring& path) const
{
    return scheme + L"://127.0.0.1:" + std::to_wstring(server_->deafPort()) + path;
}

void TestServer::put(const std::string& path, const std::string& body, int status)
{
    const std::lock_guard lock(server_->guard);
    server_->replies[path] = {status, body, {}};
}

void TestServer::redirect(const std::string& path, const std::string& location, int status)
{
    const std::lock_guard lock(server_->guard);
    server_->replies[path] = {status, "elsewhere", location};
}

std::vector<std::string> TestServer::requests() const
{
    const std::lock_guard lock(server_->guard);
    return server_->requests;
}

void TestServer::setCookie(const std::string& path, const std::string& line)
{
    const std::lock_guard lock(server_->guard);
    server_->cookiesSet[path].push_back(line);
}

std::vector<std::string> TestServer::cookies() const
{
    const std::lock_guard lock(server_->guard);
    return server_->cookiesSent;
}

std::size_t TestServer::connections() const
{
    const std::lock_guard lock(server_->guard);
    return server_->connections;
}

std::size_t TestServer::held() const
{
    const std::lock_guard lock(server_->guard);
    return server_->held;
}

void TestServer::letGo()
{
    {
        const std::lock_guard lock(server_->guard);
        ++server_->lettings;
    }
    server_->changed.notify_all();
}

std::uint64_t TestServer::bytesSent() const
{
    const std::lock_guard lock(server_->guard);
    return server_->bytesSent;
}

std::size_t TestServer::mostAtOnce() const
{
    const std::lock_guard lock(server_->guard);
    return server_->mostAtOnce;
}

std::size_t TestServer::mostOfOneHost() const
{
    const std::lock_guard lock(server_->guard);
    return server_->mostOfOneHost;
}

std::size_t TestServer::hugeEnded() const
{
    const std::lock_guard lock(server_->guard);
    return server_->hugeEnded;
}

} // namespace vandrel::test

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vandrel::test {

// A web server on this machine, on a free port and threads of its own, until the end of the test. The path of
// a request decides what it does; what follows a "?" only makes addresses differ.
//
//   /ok        200 "fine"                        /silent    never answers
//   /missing   404 "no such page"                /held      answers as /ok once letGo() is called
//   /broken    500 "out of order"                /trickle   one letter of the header at a time, for ever
//   /moved     302 to /ok                        /closed    closes the connection without an answer
//   /loop      302 to itself                     /reset     resets it
//   /astray    302 to a port nobody listens on   /cut       half of the body it announces, then closes
//   /huge      200 and 100 MB, or as much as the client takes
//   /cookie    302 to itself with a cookie, and as /ok when that comes back
//   /wait?20   answers as /ok after 20 milliseconds
//   /locked    401 and asks for a name and a password, whatever is given
//
// Any other path answers as put() and redirect() say, or as /missing. Connections are kept open between
// requests.
class TestServer {
  public:
    // Listens at 127.0.0.1, 127.0.0.2 and so on, up to 254 of them.
    explicit TestServer(unsigned hosts = 1);
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;
    ~TestServer();

    // "http://127.0.0.1:1234"
    std::wstring root() const;
    std::wstring address(const std::wstring& path) const { return root() + path; }
    // The same page on what looks to a client like another host.
    std::wstring addressByName(const std::wstring& path) const;
    // The same page at 127.0.0.`host`.
    std::wstring addressAt(unsigned host, const std::wstring& path) const;
    // An address on this machine at which every connection is refused.
    std::wstring refusedAddress(const std::wstring& scheme = L"http", const std::wstring& path = L"/") const;

    // Sets the answer for a path that is none of the above.
    void put(const std::string& path, const std::string& body, int status = 200);
    void redirect(const std::string& path, const std::string& location, int status = 302);

    // Adds a cookie that answers for this path set, as the text after "Set-Cookie:".
    void setCookie(const std::string& path, const std::string& line);

    // The paths requested so far, in order.
    std::vector<std::string> requests() const;
    // What each request had after "Cookie:", or nothing.
    std::vector<std::string> cookies() const;
    std::size_t connections() const;
    // How many requests, at most, have been waiting for their answers at the same time: in all, and at one
    // host.
    std::size_t mostAtOnce() const;
    std::size_t mostOfOneHost() const;
    // How many requests are being held. letGo answers them, but none that comes later.
    std::size_t held() const;
    void letGo();
    // How many bytes of huge bodies have been handed to the system, which may still hold some of them.
    std::uint64_t bytesSent() const;
    // How many huge answers have ended.
    std::size_t hugeEnded() const;

  private:
    class Server;
    std::unique_ptr<Server> server_;
};

} // namespace vandrel::test

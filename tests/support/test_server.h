#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vandrel::test {

// A web server on this machine, on a free port and threads of its own, until the end of the test. What it does with
// a request is told by the path; what stands behind a "?" only tells one address from another.
//
//   /ok        200 "fine"                        /silent    never answers
//   /missing   404 "no such page"                /held      answers as /ok when it is let go
//   /broken    500 "out of order"                /trickle   a letter of the header now and then, for ever
//   /moved     302 to /ok                        /closed    closes the connection without an answer
//   /loop      302 to itself                     /reset     resets it
//   /astray    302 to a port where nobody is     /cut       half of the body that it announces, then closes
//   /huge      200 and 100 MB, or as much of them as is taken
//   /cookie    302 to itself with a cookie, and as /ok when that comes back
//
// Whatever else is asked for is what put() and redirect() said, or as /missing. Connections are kept open
// between requests.
class TestServer {
  public:
    TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;
    ~TestServer();

    // "http://127.0.0.1:1234"
    std::wstring root() const;
    std::wstring address(const std::wstring& path) const { return root() + path; }
    // The same page on another host, as far as a client can see.
    std::wstring addressByName(const std::wstring& path) const;
    // An address of this machine, where every connection is refused.
    std::wstring refusedAddress(const std::wstring& scheme = L"http", const std::wstring& path = L"/") const;

    // What is answered to a path that is none of the above.
    void put(const std::string& path, const std::string& body, int status = 200);
    void redirect(const std::string& path, const std::string& location, int status = 302);

    // A cookie that answers to that path set, as one line behind "Set-Cookie:"; one more with each call.
    void setCookie(const std::string& path, const std::string& line);

    // The paths that were asked for so far, in their order.
    std::vector<std::string> requests() const;
    // What each of them had behind "Cookie:", or nothing.
    std::vector<std::string> cookies() const;
    std::size_t connections() const;
    // How many requests wait to be let go; letGo answers them, and none that comes later.
    std::size_t held() const;
    void letGo();
    // Bytes of huge bodies that were given to the system, which may hold some of them.
    std::uint64_t bytesSent() const;
    // Answers to huge bodies that have come to their end.
    std::size_t hugeEnded() const;

  private:
    class Server;
    std::unique_ptr<Server> server_;
};

} // namespace vandrel::test

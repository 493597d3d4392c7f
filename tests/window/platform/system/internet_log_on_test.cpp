#include "tests/window/platform/system/internet_transfer_test.h"

#include <winsock2.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace vandrel::test {
namespace {

TEST_F(InternetTransfers, ANameAndAPasswordInTheAddressGoToItsHost)
{
    std::wstring address = server.address(L"/locked");
    address.insert(address.find(L"//") + 2, L"somebody:secret@");
    EXPECT_EQ(transfer.OpenURL(address), L"who are you?");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/locked", "/locked"}))
        << "the second time with them";
}

TEST_F(InternetTransfers, NobodyIsGivenANameAndAPasswordThatTheSystemKnows)
{
    std::wstring address = server.address(L"/locked");
    address.insert(address.find(L"//") + 2, L"somebody:secret@");
    transfer.OpenURL(address); // from now on the system knows them
    const std::size_t before = server.requests().size();
    states.clear();
    EXPECT_EQ(open(L"/locked"), L"who are you?");
    EXPECT_EQ(server.requests().size(), before + 1);
    EXPECT_EQ(states, both) << "the host was there, which is what a scan asks";
}

// Takes one client after another on a port of its own, and refuses every file.
class FtpServer {
  public:
    FtpServer()
    {
        WSADATA data{};
        WSAStartup(MAKEWORD(2, 2), &data);
        listener_ = listening(port_);
        thread_ = std::thread([this] { serve(); });
    }
    FtpServer(const FtpServer&) = delete;
    FtpServer& operator=(const FtpServer&) = delete;
    ~FtpServer()
    {
        stop();
        WSACleanup();
    }

    std::wstring address(const std::wstring& path) const
    {
        return L"ftp://127.0.0.1:" + std::to_wstring(port_) + path;
    }
    // The commands that came, without what follows them.
    std::vector<std::string> stop()
    {
        if (thread_.joinable()) {
            stopping_ = true;
            thread_.join();
            closesocket(listener_);
        }
        return commands_;
    }

  private:
    static SOCKET listening(unsigned short& port)
    {
        const SOCKET made = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        EXPECT_EQ(::bind(made, reinterpret_cast<sockaddr*>(&address), size), 0);
        listen(made, SOMAXCONN);
        getsockname(made, reinterpret_cast<sockaddr*>(&address), &size);
        port = ntohs(address.sin_port);
        return made;
    }
    bool waitFor(SOCKET socket) const
    {
        while (!stopping_) {
            WSAPOLLFD poll{socket, POLLRDNORM, 0};
            if (WSAPoll(&poll, 1, 10) > 0) return true;
        }
        return false;
    }
    void serve()
    {
        while (waitFor(listener_)) {
            const SOCKET client = accept(listener_, nullptr, nullptr);
            tell(client, "220 here");
            std::string got;
            char part[512];
            while (waitFor(client)) {
                const int count = recv(client, part, sizeof part, 0);
                if (count <= 0) break;
                got.append(part, static_cast<std::size_t>(count));
                for (std::size_t end = 0; (end = got.find("\r\n")) != std::string::npos;
                     got.erase(0, end + 2))
                    answer(client, got.substr(0, std::min(end, got.find(' '))));
            }
            closesocket(client);
        }
    }
    void answer(SOCKET client, const std::string& command)
    {
        commands_.push_back(command);
        const bool refused = command == "RETR" || command == "SIZE" || command == "CWD" ||
                             command == "PASV" || command == "EPSV";
        if (command == "USER") tell(client, "331 and the password");
        else if (command == "PASS") tell(client, "230 welcome");
        else tell(client, refused ? "550 no" : "200 well");
    }
    static void tell(SOCKET client, const std::string& line)
    {
        const std::string bytes = line + "\r\n";
        send(client, bytes.data(), static_cast<int>(bytes.size()), 0);
    }

    unsigned short port_ = 0;
    SOCKET listener_ = INVALID_SOCKET;
    std::atomic<bool> stopping_ = false;
    std::vector<std::string> commands_;
    std::thread thread_;
};

// A server cannot connect to a PC behind a router or a firewall.
TEST_F(InternetTransfers, AnFtpServerIsNeverAskedToConnectToThisMachine)
{
    FtpServer ftp;
    EXPECT_NE(errorFor(ftp.address(L"/file.txt")), 0);
    const std::vector<std::string> commands = ftp.stop();
    EXPECT_EQ(std::ranges::count(commands, "PASV"), 1) << testing::PrintToString(commands);
    EXPECT_EQ(std::ranges::count(commands, "PORT"), 0) << testing::PrintToString(commands);
}

} // namespace
} // namespace vandrel::test

// Sockets of the system over the loopback: a shared port, one caller, what arrives, how it ends.
#include "system/qt_sockets.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "system/core_runtime.h"
#include "system/qt_pump.h"

namespace counter {
namespace {

sockaddr_in Loopback(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// The node's side, without any library.
class Peer {
  public:
    explicit Peer(int kind) : Handle(socket(AF_INET, kind | SOCK_CLOEXEC, 0)) {}
    ~Peer() { Close(); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    bool Connect(int port) {
        const sockaddr_in address = Loopback(port);
        return connect(Handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    // Takes a port of the system's choice at every address, as a node on this machine does; returns it.
    int BindAnywhere(bool shared) {
        const int on = shared ? 1 : 0;
        setsockopt(Handle, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        sockaddr_in address = Loopback(0);
        address.sin_addr.s_addr = INADDR_ANY;
        bind(Handle, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        socklen_t size = sizeof address;
        getsockname(Handle, reinterpret_cast<sockaddr*>(&address), &size);
        return ntohs(address.sin_port);
    }
    void Write(std::string_view bytes) { send(Handle, bytes.data(), bytes.size(), MSG_NOSIGNAL); }
    std::string Read() {
        char bytes[4096];
        const ssize_t got = recv(Handle, bytes, sizeof bytes, MSG_DONTWAIT);
        return std::string(bytes, static_cast<std::size_t>(std::max<ssize_t>(0, got)));
    }
    // By a reset instead of an end.
    void Abort() {
        const linger none = {1, 0};
        setsockopt(Handle, SOL_SOCKET, SO_LINGER, &none, sizeof none);
        Close();
    }
    void Close() {
        if (Handle >= 0) close(Handle);
        Handle = -1;
    }
    int Handle;
};

class QtSocketsTest : public testing::Test {
  protected:
    bool Comes(const Pump::Condition& ready) {
        return pump_.WaitUntil(pump_.NowMs() + 10'000, ready, "test");
    }
    bool Connected() const { return tcp_.State() == SocketState::Connected; }
    void Meet(Peer& peer) {
        ASSERT_TRUE(tcp_.Listen(0).Ok());
        ASSERT_TRUE(peer.Connect(tcp_.LocalPort()));
        ASSERT_TRUE(Comes([this] { return Connected(); }));
    }

    QtSocketsTest() {
        tcp_.Arrived = [this](std::string_view bytes) { arrived_ += bytes; };
    }

    const CoreRuntime runtime_;
    QtPump pump_;
    QtUdpSocket udp_;
    QtTcpSocket tcp_;
    std::string arrived_;
};

TEST_F(QtSocketsTest, TheUdpPortIsSharedAndDatagramsGoToTheNode) {
    Peer node(SOCK_DGRAM);
    const int port = node.BindAnywhere(true);
    QtUdpSocket other;
    ASSERT_TRUE(udp_.Bind(port).Ok());
    ASSERT_TRUE(other.Bind(port).Ok()) << "two tools on one machine";
    udp_.Send("127.0.0.1", port, std::string_view("log\0in", 6));
    std::string got;
    EXPECT_TRUE(Comes([&] { return !(got = node.Read()).empty(); }));
    EXPECT_EQ(got, std::string("log\0in", 6));
    udp_.Close();
    udp_.Send("127.0.0.1", port, "closed");
    udp_.Send("no address", port, "nowhere");
}

TEST_F(QtSocketsTest, APortThatIsTakenSaysSo) {
    Peer holder(SOCK_DGRAM);
    const int port = holder.BindAnywhere(false);
    EXPECT_EQ(udp_.Bind(port).Text(), "UDP port " + std::to_string(port) + ": Address already in use");
    QtTcpSocket listener;
    ASSERT_TRUE(listener.Listen(0).Ok());
    EXPECT_EQ(tcp_.Listen(listener.LocalPort()).Kind, StatusKind::Busy);
    EXPECT_EQ(tcp_.State(), SocketState::Closed);
}

TEST_F(QtSocketsTest, TheFirstCallerIsTakenAndTheOthersAreTurnedAway) {
    ASSERT_TRUE(tcp_.Listen(0).Ok());
    const int port = tcp_.LocalPort();
    Peer first(SOCK_STREAM), second(SOCK_STREAM), third(SOCK_STREAM);
    ASSERT_TRUE(first.Connect(port));
    ASSERT_TRUE(second.Connect(port)) << "the system has it, the tool does not";
    ASSERT_TRUE(Comes([this] { return Connected(); }));
    EXPECT_FALSE(third.Connect(port));
    second.Write("second");
    for (const std::string& piece :
         {std::string("first"), std::string("\0\r\n\xFF", 4)}) {  // told as they come
        arrived_.clear();
        first.Write(piece);
        EXPECT_TRUE(Comes([this] { return !arrived_.empty(); }));
        EXPECT_EQ(arrived_, piece);
    }
    tcp_.Send(std::string_view("\0to\xFF", 4));
    std::string got;
    EXPECT_TRUE(Comes([&] { return !(got = first.Read()).empty(); }));
    EXPECT_EQ(got, std::string("\0to\xFF", 4));
    EXPECT_EQ(tcp_.Caller(), "127.0.0.1");
    tcp_.Send(std::string(32'000'000, 'x'));  // more than the far end, which does not read, has room for
    EXPECT_GT(tcp_.Unacknowledged(), 0U);
    for (int turn = 0; turn < 1000 && tcp_.Unacknowledged() > 0; ++turn) {
        while (!first.Read().empty()) {
        }
        pump_.WaitUntil(
            pump_.NowMs() + 10, [] { return false; }, "test");
    }
    EXPECT_EQ(tcp_.Unacknowledged(), 0U);
}

TEST_F(QtSocketsTest, AnEndIsNoticedBehindWhatCameBefore) {
    for (const bool abort : {false, true}) {
        Peer node(SOCK_STREAM);
        Meet(node);
        arrived_.clear();
        if (!abort) node.Write("last words");
        abort ? node.Abort() : node.Close();
        EXPECT_TRUE(Comes([this] { return !Connected(); }));
        EXPECT_EQ(arrived_, abort ? "" : "last words");
        EXPECT_EQ(tcp_.State(), abort ? SocketState::Error : SocketState::Closing);
        tcp_.Send("into nothing");
    }
}

}  // namespace
}  // namespace counter

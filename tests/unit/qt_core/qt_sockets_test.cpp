// Sockets of the system over the loopback: a shared port, one caller, what arrives, how it ends, and noise.
#include "platform/qt/core/qt_sockets.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <random>

#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/qt_pump.h"

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
    void SendTo(int port, std::string_view bytes) {
        const sockaddr_in address = Loopback(port);
        sendto(Handle, bytes.data(), bytes.size(), 0, reinterpret_cast<const sockaddr*>(&address),
               sizeof address);
    }
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

    const CoreRuntime runtime_;
    QtPump pump_;
    QtUdpSocket udp_;
    QtTcpSocket tcp_;
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
    const Status udp = udp_.Bind(port);
    EXPECT_EQ(udp.Kind, StatusKind::Busy);
    EXPECT_EQ(udp.Path, "UDP port " + std::to_string(port));

    QtTcpSocket listener;
    ASSERT_TRUE(listener.Listen(0).Ok());
    const Status tcp = tcp_.Listen(listener.LocalPort());
    EXPECT_EQ(tcp.Kind, StatusKind::Busy);
    EXPECT_EQ(tcp.Path, "TCP port " + std::to_string(listener.LocalPort()));
    EXPECT_EQ(tcp_.State(), SocketState::Closed);
}

TEST_F(QtSocketsTest, OneCallerIsTakenAndTheOthersAreTurnedAway) {
    ASSERT_TRUE(tcp_.Listen(0).Ok());
    EXPECT_EQ(tcp_.State(), SocketState::Listening);
    const int port = tcp_.LocalPort();
    Peer first(SOCK_STREAM), second(SOCK_STREAM), third(SOCK_STREAM);
    ASSERT_TRUE(first.Connect(port));
    ASSERT_TRUE(second.Connect(port)) << "the system has it, the tool does not";
    ASSERT_TRUE(Comes([this] { return Connected(); }));
    EXPECT_FALSE(third.Connect(port));
    std::string arrived;
    tcp_.Arrived = [&](std::string_view bytes) { arrived += bytes; };
    second.Write("second");
    first.Write("first");
    EXPECT_TRUE(Comes([&] { return !arrived.empty(); }));
    EXPECT_EQ(arrived, "first");
}

TEST_F(QtSocketsTest, EveryByteGoesBothWays) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    Peer node(SOCK_STREAM);
    Meet(node);
    std::string arrived;
    tcp_.Arrived = [&](std::string_view bytes) { arrived += bytes; };
    node.Write(all);
    tcp_.Send(all);
    std::string got;
    EXPECT_TRUE(Comes([&] { return (got += node.Read()).size() + arrived.size() >= 512; }));
    EXPECT_TRUE(arrived == all && got == all);
}

TEST_F(QtSocketsTest, PiecesAreToldAsTheyCome) {
    Peer node(SOCK_STREAM);
    Meet(node);
    std::vector<std::string> arrived;
    tcp_.Arrived = [&](std::string_view bytes) { arrived.emplace_back(bytes); };
    for (const char* piece : {"one", "two"}) {
        node.Write(piece);
        const std::size_t before = arrived.size();
        ASSERT_TRUE(Comes([&] { return arrived.size() > before; }));
    }
    EXPECT_EQ(arrived, (std::vector<std::string>{"one", "two"}));
}

TEST_F(QtSocketsTest, AnEndIsNoticedBehindWhatCameBefore) {
    for (const bool abort : {false, true}) {
        Peer node(SOCK_STREAM);
        Meet(node);
        std::string arrived;
        tcp_.Arrived = [&](std::string_view bytes) { arrived += bytes; };
        if (!abort) node.Write("last words");
        abort ? node.Abort() : node.Close();
        EXPECT_TRUE(Comes([this] { return !Connected(); }));
        EXPECT_EQ(arrived, abort ? "" : "last words");
        EXPECT_TRUE(tcp_.State() == SocketState::Closing || tcp_.State() == SocketState::Error);
        tcp_.Send("into nothing");
        tcp_.Close();
        EXPECT_EQ(tcp_.State(), SocketState::Closed);
    }
}

long ResidentKb() {
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    file >> pages >> pages;
    return pages * (sysconf(_SC_PAGESIZE) / 1024);
}

// 10,000 datagrams and 300 callers with noise; what is told at once stays bounded, and memory does not grow.
TEST_F(QtSocketsTest, NoiseDoesNoHarm) {
    std::mt19937 random(1);
    std::string noise(60'000, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    Peer stranger(SOCK_DGRAM);
    Peer finder(SOCK_DGRAM);
    const int port = finder.BindAnywhere(true);
    finder.Close();
    ASSERT_TRUE(udp_.Bind(port).Ok());
    std::size_t longest = 0;
    tcp_.Arrived = [&](std::string_view bytes) { longest = std::max(longest, bytes.size()); };
    const auto round = [&](int datagrams, int callers) {
        for (int i = 0; i < datagrams; ++i) {
            stranger.SendTo(port, std::string_view(noise).substr(random() % 50'000, random() % 1'500));
            if (i % 100 == 0)
                pump_.WaitUntil(
                    pump_.NowMs() + 0.1, [] { return false; }, "noise");
        }
        for (int i = 0; i < callers; ++i) {
            Peer caller(SOCK_STREAM);
            Meet(caller);
            caller.Write(std::string_view(noise).substr(0, random() % 60'000));
            i % 2 == 0 ? caller.Close() : caller.Abort();
            ASSERT_TRUE(Comes([this] { return !Connected(); }));
        }
    };
    round(1000, 30);
    const long before = ResidentKb();
    round(9000, 270);
    EXPECT_LT(ResidentKb() - before, 2000);
    EXPECT_LE(longest, 64U * 1024);
}

}  // namespace
}  // namespace counter

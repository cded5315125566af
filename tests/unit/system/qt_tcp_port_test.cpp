#include "system/qt_line.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <optional>

#include "platform/tcp_line.h"
#include "system/core_runtime.h"
#include "system/qt_pump.h"

namespace counter {

// A server that hands on a line, at a port of the system's choice.
class LineServer : public PortCatalog {
  public:
    LineServer() {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(listens_, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(listens_, 4), 0);
        getsockname(listens_, reinterpret_cast<sockaddr*>(&address), &size);
        Device = "tcp://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    }
    ~LineServer() override { close(listens_); }
    int Take() const { return accept(listens_, nullptr, nullptr); }

    std::string Device;
    std::vector<PortDescription> Ports() const override { return {}; }
    std::string DeviceOf(int) const override { return Device; }

  private:
    const int listens_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

class QtTcpPortTest : public testing::Test {
  protected:
    bool Comes(const Pump::Condition& ready) {
        return pump_.WaitUntil(pump_.NowMs() + 10'000, ready, "test");
    }
    const CoreRuntime runtime_;
    QtPump pump_;
    LineServer server_;
    QtLine line_{server_};
};

TEST_F(QtTcpPortTest, AllGoesBothWaysAlsoToASlowServerUntilTheConnectionEnds) {
    ASSERT_TRUE(line_.Open().Ok());
    const int far = server_.Take();
    EXPECT_TRUE(line_.SetSettings("300,e,7,1").Ok()) << "which nobody hears";
    EXPECT_FALSE(line_.SetSettings("301,e,7,1").Ok());
    EXPECT_EQ(line_.SpeedSetBy(), server_.Device);
    const std::string much(16'000'000, 'x');
    line_.Output(much);
    EXPECT_GT(line_.OutBufferCount(), 0U);
    std::size_t taken = 0;
    std::array<char, 65536> part;
    EXPECT_TRUE(Comes([&] {
        for (ssize_t size; (size = recv(far, part.data(), part.size(), MSG_DONTWAIT)) > 0;)
            taken += static_cast<std::size_t>(size);
        return taken == much.size();
    }));
    EXPECT_EQ(line_.OutBufferCount(), 0U);

    std::string told;
    line_.Arrived = [&] { told += line_.Input(); };
    ASSERT_EQ(send(far, "one", 3, 0), 3);
    EXPECT_TRUE(Comes([&] { return told == "one"; }));
    line_.Arrived = nullptr;
    ASSERT_EQ(send(far, "last", 4, 0), 4);
    close(far);
    EXPECT_TRUE(Comes([&] { return line_.Faulted(); }));
    EXPECT_TRUE(line_.PortOpen());
    EXPECT_EQ(line_.Input(), "last");
    line_.Output("lost");
    EXPECT_EQ(line_.OutBufferCount(), 0U);
    line_.Close();
    EXPECT_TRUE(line_.Open().Ok()) << "and it comes back";
    EXPECT_FALSE(line_.Faulted());
    close(server_.Take());
}

TEST_F(QtTcpPortTest, OpeningThatFailsSaysWhy) {
    const std::string good = server_.Device;
    const struct {
        std::string Device;
        StatusKind Kind;
        std::string Reason;
    } cases[] = {
        {"tcp://127.0.0.1:1", StatusKind::Other, "Connection refused (no server"},
        {"tcp://no-such-host.invalid:4001", StatusKind::NotFound, ""},
        {"tcp://127.0.0.1", StatusKind::Illegal, kTcpLineForm},
        {"/dev/none", StatusKind::NotFound, "No such file"},
    };
    for (const auto& c : cases) {
        server_.Device = c.Device;
        const Status status = line_.Open();
        EXPECT_EQ(status.Kind, c.Kind) << c.Device;
        EXPECT_EQ(status.Path, c.Device);
        EXPECT_TRUE(status.Reason.starts_with(c.Reason)) << status.Reason;
        EXPECT_FALSE(line_.PortOpen());
    }
}

}  // namespace counter

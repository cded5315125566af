#include "platform/tcp_line.h"

#include <gtest/gtest.h>

namespace counter {

TEST(TcpLine, NamesAHostAndAPort) {
    const struct {
        const char* Text;
        std::optional<TcpLine> Line;
    } cases[] = {
        {"tcp://hall2.plant:4001", TcpLine{"hall2.plant", 4001}},
        {"tcp://10.0.0.7:1", TcpLine{"10.0.0.7", 1}},
        {"tcp://[fe80::1%eth0]:65535", TcpLine{"fe80::1%eth0", 65535}},
        {"/dev/ttyUSB0", {}},
        {"tcp://", {}},
        {"tcp://host", {}},
        {"tcp://:4001", {}},
        {"tcp://[]:4001", {}},
        {"tcp://::1:4001", {}},
        {"tcp://host:0", {}},
        {"tcp://host:65536", {}},
        {"tcp://host:40x", {}},
        {"tcp://host:4001/", {}},
        {"tcp://a/b:4001", {}},
        {"tcp://a b:4001", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(ParseTcpLine(c.Text), c.Line) << c.Text;
    EXPECT_TRUE(NamesTcpLine("tcp://host")) << "meant as one";
}

}  // namespace counter

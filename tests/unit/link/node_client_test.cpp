// Login, keep-alive and loss of the node's connection, on the virtual clock.
#include "link/node_client.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "link/waits.h"
#include "meter/hex_text.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

const std::string kKeepAlive = TextOfHex("0080A30102035A93D1C07E42010105FF");

TEST(Login, GivesUpAfterTenTriesOfTheSameDatagram) {
    NodeBench bench({"NodeUdpPort=1234"}, {"login:noreply"});
    std::vector<int> tries;
    bench.Program.Node.TryBegins = [&](int number) { tries.push_back(number); };
    EXPECT_EQ(bench.Pump.Took([&] { EXPECT_FALSE(bench.LogIn()); }), 40000);
    EXPECT_EQ(tries, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    ASSERT_EQ(bench.Net.Datagrams.size(), 10U);
    for (const auto& [to, bytes] : bench.Net.Datagrams) {
        EXPECT_EQ(to, "192.168.0.5:63179") << "the port is fixed";
        EXPECT_EQ(bytes, bench.Net.Datagrams[0].second);
    }
    EXPECT_EQ(bench.State().NodeFirstRun, 1);
    EXPECT_TRUE(bench.Line.Calls().empty()) << "the serial port is not touched";
}

TEST(Login, TheFirstCallerIsTakenWhoeverItIs) {
    NodeBench twice({}, {"login:twice"});
    EXPECT_TRUE(twice.LogIn());
    twice.Pump.Pass(100);
    EXPECT_EQ(twice.Net.Refused, 1);

    NodeBench stranger({}, {"login:late=1000"});
    stranger.Pump.After(500, [&] { stranger.Net.StrangerCalls(); });
    EXPECT_TRUE(stranger.LogIn());
    stranger.Pump.Pass(1000);
    EXPECT_EQ(stranger.Net.Refused, 1) << "the node finds nobody";
    EXPECT_EQ(stranger.Program.Node.Caller(), "192.168.0.66");
}

TEST(Login, APortThatNobodyCanCallIsNotAskedFor) {
    NodeBench bench;
    EXPECT_EQ(bench.Program.Node.Login({kNodeAddress, "192.168.0.5", 0}, 1).Kind, StatusKind::Illegal);
    EXPECT_TRUE(bench.Net.Datagrams.empty());
}

TEST(KeepAlive, GoesOutEvery14thTickWhileConnected) {
    NodeBench bench;
    int ticks = 0;
    bench.Program.Node.Ticked = [&] { ++ticks; };
    ASSERT_TRUE(bench.LogIn());
    bench.Pump.Pass(13999);
    EXPECT_TRUE(bench.Net.Sent.empty());
    EXPECT_EQ(ticks, 13);
    bench.Pump.Pass(28001);
    EXPECT_EQ(bench.Net.Sent, (Words{kKeepAlive, kKeepAlive, kKeepAlive}));
    EXPECT_EQ(bench.Net.TheNode().Told().back(), "keep-alive");
    EXPECT_EQ(bench.State().NodeReply, "") << "the status frame that answers is dropped";
    bench.Net.Break();
    bench.Pump.Pass(30000);
    EXPECT_EQ(bench.Net.Sent.size(), 3U);
    EXPECT_EQ(ticks, 72) << "the title still follows";
}

TEST(Connection, ALostOneIsToldByABoxAndHidesTheStatusLine) {
    for (const SocketState state : {SocketState::Closing, SocketState::Error, SocketState::Closed}) {
        NodeBench bench;
        ASSERT_TRUE(bench.LogIn());
        bench.Program.Home.ShowStatus("Getting data", ColorGreen);
        EXPECT_TRUE(bench.Program.Node.CheckConnected());
        EXPECT_TRUE(bench.Boxes.Shown.empty());
        bench.Net.Break(state);
        EXPECT_FALSE(bench.Program.Node.CheckConnected());
        ASSERT_EQ(bench.Boxes.Shown.size(), 1U);
        EXPECT_EQ(bench.Boxes.Shown[0].Title, "Re-Connect");
        EXPECT_EQ(bench.Boxes.Shown[0].Text, "Node communications appears broken.  Restart program.");
        EXPECT_FALSE(bench.Program.Home.StatusVisible);
    }
}

}  // namespace
}  // namespace counter::test

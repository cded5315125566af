// The login view: titles, first activation, and the end of a program whose node does not call.
#include "shell/node_view.h"

#include <gtest/gtest.h>

#include "shell/link_trial.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

struct ViewBench : NodeBench {
    explicit ViewBench(const Words& settings = {}, const Words& faults = {}) : NodeBench(settings, faults) {
        View.ShowTitle = [this](std::string_view title) { Titles.emplace_back(title); };
        View.ShowHome = [this] { ++HomeShown; };
        Start(Program);
        View.Load();
    }
    NodeView View{Program};
    Words Titles;
    int HomeShown = 0;
};

TEST(NodeView, TitlesFollowLoginAndConnection) {
    ViewBench bench({}, {"login:late=1500"});
    bench.View.Activate();
    EXPECT_EQ(bench.Titles, (Words{"CTR Main Menu                   Disconnected",
                                   "COUNTER MAIN MENU                      Disconnected",
                                   "CTR Main Menu                    Connected"}));
    EXPECT_EQ(bench.HomeShown, 1);
    bench.Titles.clear();
    bench.Pump.Pass(2000);
    EXPECT_EQ(bench.Titles, Words(2, "COUNTER MAIN MENU                    Connected"));
    EXPECT_EQ(bench.View.StateName(), "Connected");
    bench.Titles.clear();
    bench.Net.Break();
    bench.Pump.Pass(1000);
    EXPECT_EQ(bench.Titles, Words{"COUNTER MAIN MENU                      Disconnected"});
    EXPECT_EQ(bench.View.StateName(), "Node Disconnecting");
}

TEST(NodeView, OnlyTheFirstActivationLogsIn) {
    ViewBench bench({}, {"login:late=1000"});
    bench.Pump.After(500, [&] { bench.View.Activate(); });
    bench.View.Activate();
    bench.View.Activate();
    EXPECT_EQ(bench.Net.Datagrams.size(), 1U);
    EXPECT_EQ(bench.HomeShown, 1);
    EXPECT_EQ(bench.View.Text(), "Asking the node at 192.168.0.5 to call TCP port 10001: try 1 of 10.");

    ViewBench serial({"NodeAddress=000000000000"});
    serial.View.Activate();
    EXPECT_TRUE(serial.Net.Datagrams.empty());
    EXPECT_TRUE(serial.Titles.empty());
}

TEST(NodeView, ANodeThatDoesNotCallEndsTheProgram) {
    const struct {
        const char* Name;
        Status Listen;
        const char* Text;
        std::size_t Datagrams;
    } cases[] = {
        {"no call", {}, "Ethernet connection interrupted. Restart program.", 10},
        {"no port", {StatusKind::Busy, "TCP port 10001", "in use"}, "TCP port 10001: in use", 0},
    };
    for (const auto& c : cases) {
        ViewBench bench({}, {"login:noreply"});
        bench.Net.NextListen = c.Listen;
        const std::string file = bench.Store.Contents["home/Settings.SSS"];
        bench.Store.Contents.clear();
        EXPECT_THROW(bench.View.Activate(), ProcessEnded) << c.Name;
        ASSERT_EQ(bench.Boxes.Shown.size(), 1U) << c.Name;
        EXPECT_EQ(bench.Boxes.Shown[0].Text, c.Text) << c.Name;
        EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"], file) << c.Name;
        EXPECT_EQ(bench.Net.Datagrams.size(), c.Datagrams) << c.Name;
        EXPECT_EQ(bench.Program.Node.State(), SocketState::Closed) << c.Name;
        EXPECT_EQ(bench.HomeShown, 0) << c.Name;
    }
}

TEST(NodeTrial, SaysInWordsWhatAnswered) {
    const struct {
        const char *Name, *Fault;
        bool Answered;
        const char* Begins;
    } cases[] = {
        {"good", "none:noreply", true,
         "A Counter answered: firmware version 83, address 1, Custom ASCII through"},
        {"no call", "login:noreply", false, "The node did not call back within 40 seconds."},
        {"no meter", "XR1A:noreply", false, "the node sent no reply in time (20). The node is there;"},
    };
    for (const auto& c : cases) {
        NodeBench bench({}, {c.Fault});
        const SettingsLines lines = SplitSettings(bench.Store.Contents["home/Settings.SSS"]);
        const LinkTrial trial = TryLink({bench.Pump, bench.Line, "home", bench.Net.Both()}, lines);
        EXPECT_EQ(trial.Answered, c.Answered) << c.Name;
        EXPECT_EQ(trial.Words.rfind(c.Begins, 0), 0U) << c.Name << ": " << trial.Words;
        EXPECT_EQ(bench.Net.Both().Tcp.State(), SocketState::Closed) << c.Name;
    }
}

}  // namespace
}  // namespace counter::test

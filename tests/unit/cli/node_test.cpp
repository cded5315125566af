// counterctl with a meter behind a node: what works, what it says and with which status it ends where it does
// not.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "run_line.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;
using Words = std::vector<std::string>;

struct NodeMachine : Machine, PortCatalog {
    explicit NodeMachine(const sim::MeterOptions& options) : Network(Clock, options) {}
    Pump& Waits() override { return Clock; }
    SerialPort& Port() override { return Line; }
    const PortCatalog& Catalog() override { return *this; }
    Sockets Net() override { return Network.Both(); }
    std::vector<PortDescription> Ports() const override { return {}; }
    std::string DeviceOf(int) const override { return {}; }
    VirtualPump Clock;
    MeterLine Line{Clock, {}};
    NodeNet Network;
};

struct NodeCli {
    sim::MeterOptions Meter;
    MemoryFiles Store;
    double InterruptAfterMs = -1;
    std::string Out, Err;

    explicit NodeCli(const Words& faults = {}) {
        Meter = NodeBench::WithFaults({}, faults);
        Store.Contents["home/Settings.SSS"] = "3501000100100831010000\r\n27110080A3010203F6CBC0A80005\r\n";
    }
    int Run(const Words& words) {
        std::ostringstream out, err;
        const CliWorld world{out,
                             err,
                             false,
                             Store,
                             [] { return std::string("home"); },
                             [this](const std::string&) {
                                 auto machine = std::make_unique<NodeMachine>(Meter);
                                 NodeMachine* raw = machine.get();
                                 if (InterruptAfterMs >= 0)
                                     raw->Clock.After(InterruptAfterMs,
                                                      [raw] { raw->Clock.RequestInterrupt(); });
                                 return machine;
                             }};
        const int status = RunLine(world, words);
        Out = out.str();
        Err = err.str();
        return status;
    }
};

TEST(NodeCommands, WorkAsOverASerialLine) {
    NodeCli bench;
    EXPECT_EQ(bench.Run({"get", "first.CT2"}), 0) << bench.Err;
    EXPECT_EQ(bench.Out, "Getting data from the Counter.  Data received OK.\n");
    EXPECT_EQ(bench.Run({"verify", "first.CT2"}), 0) << bench.Out;
    EXPECT_EQ(bench.Run({"put", "first.CT2", "--verify"}), 0) << bench.Err;
    EXPECT_EQ(bench.Run({"read", "item1"}), 0) << bench.Err;
    EXPECT_EQ(bench.Run({"reset", "peak"}), 0) << bench.Err;
    EXPECT_EQ(bench.Run({"remote", "display", "12"}), 0) << bench.Err;
    EXPECT_EQ(bench.Run({"stream", "--count", "1"}), 1);
    EXPECT_NE(bench.Err.find("over a serial line"), std::string::npos) << bench.Err;
}

// A Put through the node leaves digits 73 to 108, which a comparison must not count.
TEST(NodeCommands, WhatAPutDoesNotReachDoesNotCount) {
    NodeCli bench;
    ASSERT_EQ(bench.Run({"get", "first.CT2"}), 0);
    bench.Store.Contents["other.CT2"] = bench.Store.Contents["first.CT2"];
    bench.Store.Contents["other.CT2"].replace(72, 6, "001111");
    EXPECT_EQ(bench.Run({"verify", "other.CT2"}), 0) << bench.Out;
    bench.Store.Contents["other.CT2"].replace(54, 6, "001111");
    EXPECT_EQ(bench.Run({"verify", "other.CT2"}), 4) << bench.Out;
}

TEST(NodeCommands, FailuresAreStatus3WithTheTextThatTheDesktopShows) {
    const struct {
        const char* Name;
        const char* Fault;
        Words Line;
        const char* Err;
    } cases[] = {
        {"no call back",
         "login:noreply",
         {"get", "a.CT2"},
         "Ethernet connection interrupted. Restart program.\n"},
        {"lost in a get",
         "XR35:close=0",
         {"get", "a.CT2"},
         "Re-Connect Node communications appears broken.  Restart program.\n"},
        {"silent",
         "XR35:noreply",
         {"get", "a.CT2"},
         "Failed to Get data, check connections, then try again.      ( 20)\n"},
        {"lost in a reading",
         "B1:close=0",
         {"read", "item1"},
         "Communications failure.  Program may have to be re-started. (27)\n"},
    };
    for (const auto& c : cases) {
        NodeCli bench({c.Fault});
        EXPECT_EQ(bench.Run(c.Line), 3) << c.Name;
        EXPECT_NE(bench.Err.find(c.Err), std::string::npos) << c.Name << ": " << bench.Err;
        EXPECT_EQ(bench.Store.Contents.count("a.CT2"), 0U) << c.Name;
        EXPECT_EQ(bench.Out, "") << c.Name;
    }
}

TEST(NodeCommands, NoCallBackAsJson) {
    NodeCli bench({"login:noreply"});
    EXPECT_EQ(bench.Run({"--json", "get", "a.CT2"}), 3);
    EXPECT_EQ(Json::parse(bench.Out), Json::parse(R"({
        "status": "Ethernet connection interrupted. Restart program.", "LinkError": 0,
        "messages": [{"title": "", "text": "Ethernet connection interrupted. Restart program."}]})"));
    EXPECT_EQ(bench.Err, "Ethernet connection interrupted. Restart program.\n");
}

TEST(NodeCommands, TraceTellsLoginAndFrames) {
    NodeCli bench;
    EXPECT_EQ(bench.Run({"--trace", "reset", "peak"}), 0);
    EXPECT_EQ(bench.Err.rfind("       0 > 00 80 A3 01 02 03 5A 93 D1 C0 7E 42 04 ", 0), 0U) << bench.Err;
    EXPECT_NE(bench.Err.find("> 2A 31 43 33 0D 0A  *1C3..\n"), std::string::npos) << bench.Err;
}

TEST(NodeCommands, AnInterruptEndsTheLoginToo) {
    NodeCli bench({"login:noreply"});
    bench.InterruptAfterMs = 9000;
    EXPECT_EQ(bench.Run({"get", "a.CT2"}), 130);
    EXPECT_EQ(bench.Store.Contents.size(), 1U);
}

}  // namespace
}  // namespace counter::test

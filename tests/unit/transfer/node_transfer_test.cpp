// Get and Put through the node, in every protocol: what arrives, what goes out, what it costs.
#include <gtest/gtest.h>

#include <algorithm>

#include "link/waits.h"
#include "meter/default_setup.h"
#include "meter/hex_text.h"
#include "shell/get_action.h"
#include "shell/put_action.h"
#include "support/meter_kinds.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

struct TransferNode : NodeBench {
    explicit TransferNode(const LinkKind& kind, Words settings = {}, const Words& faults = {},
                          sim::MeterOptions options = {})
        : NodeBench((settings.push_back(kind.Setting), settings), faults,
                    (options.Protocol = kind.Protocol, options)) {
        EXPECT_TRUE(LogIn()) << kind.Name;
        BuildDefaultSetup(Program.Image);
        BitsPut(Program.Image, 3, 2, 109, static_cast<int>(kind.Protocol));
        Net.TheNode().ClearTold();
    }
    int Get() {
        TookMs = Pump.Took([this] { GetSetup(Program); });
        return State().LinkError;
    }
    int Put() {
        PutSetup(Program);
        return State().LinkError;
    }
    // What went to the meter.
    Words Frames() const {
        Words frames = Net.Sent;
        std::erase(frames, TextOfHex("0080A30102035A93D1C07E42010105FF"));
        return frames;
    }
    double TookMs = 0;
};

sim::MeterOptions OtherMeter() {
    sim::MeterOptions options;
    options.Patches = {{55, "003039"}, {43, "8186A0"}, {61, "012345"}, {97, "FE1DC0"}};
    return options;
}

TEST(NodeGet, BringsWhatASerialLineBrings) {
    for (const LinkKind& kind : kLinkKinds) {
        sim::MeterOptions options = OtherMeter();
        TransferNode node(kind, {}, {}, options);
        options.Protocol = kind.Protocol;
        BenchMeter serial(options, {kind.Setting});
        serial.SwitchOn();
        serial.Program.Image = node.Program.Image;  // what a protocol does not bring stays
        GetSetup(serial.Program);
        EXPECT_EQ(node.Get(), 0) << kind.Name;
        EXPECT_EQ(node.Program.Image.SetupData, serial.Program.Image.SetupData) << kind.Name;
        EXPECT_EQ(node.Program.Home.StatusText, "Getting data from the Counter.  Data received OK.");
        EXPECT_TRUE(node.Line.Calls().empty()) << "the serial port is not touched";
    }
}

TEST(NodeGet, PausesLongerOnAFastLine) {
    TransferNode fast(kRtu);
    EXPECT_EQ(fast.Get(), 0);
    EXPECT_NEAR(fast.TookMs, 1005 + 7 * 1300 + 6 * 2000, 110);
    TransferNode slow(kRtu, {"BaudIndex=0"});
    EXPECT_EQ(slow.Get(), 0);
    EXPECT_NEAR(slow.TookMs, 1005 + 7 * 1300 + 6 * 1000, 110);
}

TEST(NodePut, OverCustomAsciiTheFirstBlockGoesInPartsAndOnePartNot) {
    sim::MeterOptions options = OtherMeter();
    TransferNode bench(kLinkKinds[0], {}, {}, options);
    const std::string before = bench.Meter().ImageText();
    EXPECT_EQ(bench.Put(), 0);
    const Words frames = bench.Frames();
    ASSERT_EQ(frames.size(), 8U);
    EXPECT_EQ(frames[2], "*1W91A0027100000000000000000000000000186A0Z\r\n");
    EXPECT_EQ(frames[3], "*1W9110000000186A0004E20002710002710002710Z\r\n");
    EXPECT_EQ(frames[4], "*1W4350027100000000001Z\r\n");
    EXPECT_EQ(frames[7], "|*1C0\r\n");
    for (const std::string& frame : frames) EXPECT_EQ(frame.find("W908"), std::string::npos);
    std::string expected = bench.Program.Image.SetupData;
    expected.replace(72, 36, before.substr(72, 36));  // never sent
    EXPECT_EQ(bench.Meter().ImageText().substr(0, 112), expected.substr(0, 112));
    EXPECT_EQ(bench.Net.TheNode().Told(), Words{"keep-alive"}) << "no command to the node";
}

// The command in front goes by the baud rate of the settings before the Put, the one after by that after it.
TEST(NodePut, OverModbusFastLinesTellTheNode) {
    const struct {
        const char *Name, *Before;
        int After;
        const char* Fault;
        Words Told;
    } cases[] = {
        {"fast", "BaudIndex=5", 5, "none:noreply", {"on", "off"}},
        {"4800", "BaudIndex=4", 4, "none:noreply", {"on", "off"}},
        {"2400", "BaudIndex=3", 3, "none:noreply", {}},
        {"becomes slow", "BaudIndex=5", 2, "none:noreply", {"on"}},
        {"becomes fast", "BaudIndex=2", 6, "none:noreply", {"off"}},
        {"fails", "BaudIndex=5", 5, "100021:noreply", {"on"}},
        {"called off", "BaudIndex=5", 5, "none:noreply", {"on", "off"}},
    };
    for (const auto& c : cases) {
        TransferNode bench(kRtu, {c.Before}, {c.Fault});
        BitsPut(bench.Program.Image, 6, 4, 191, c.After);
        if (c.Name == std::string("called off"))
            bench.Pump.After(9000, [&] { bench.Program.Home.CancelTransfers(); });
        bench.Put();
        Words told = bench.Net.TheNode().Told();
        std::erase(told, "keep-alive");
        EXPECT_EQ(told, c.Told) << c.Name;
        if (c.Told == Words{"on", "off"}) {
            EXPECT_EQ(bench.Net.Sent.back(), TextOfHex("0080A30102035A93D1C07E42570400000000FF")) << c.Name;
            EXPECT_EQ(bench.Net.Sent[1], TextOfHex("0080A30102035A93D1C07E42570410000000FF")) << c.Name;
        }
    }
}

TEST(NodePut, OverCustomAsciiAConnectionThatBreaksIsNoSuccess) {
    for (const bool pulled : {false, true}) {
        TransferNode bench(kLinkKinds[0]);
        bench.Pump.After(9000, [&] { pulled ? bench.Net.PullCable() : bench.Net.Break(); });
        EXPECT_EQ(bench.Put(), 27) << pulled;
        EXPECT_FALSE(bench.State().FramesWritten.empty());
        EXPECT_LT(bench.State().FramesWritten.size(), 5U);
    }
}

}  // namespace
}  // namespace counter::test

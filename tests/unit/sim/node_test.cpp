// The node in virtual time: calls, framing of both protocols, its own frames, its faults.
#include "sim/node.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

using Words = std::vector<std::string>;

const char* const kStatus = "5A93D1C07E42 0080A3010203 0504 0000000000";

// The tool's end of the connection.
class NodeTool {
  public:
    explicit NodeTool(LineProtocol protocol = LineProtocol::CustomAscii, const Words& faults = {})
        : Box("0080A3010203", WithFaults(Speaking(protocol), faults)) {
        Box.Connected();
    }
    // Segments that come out until nothing more is due, as hexadecimal digits; "close" after one that ends
    // the connection.
    Words Ask(const std::string& bytes) {
        Box.Receive(bytes, NowMs);
        Words segments;
        while (const auto next = Box.NextDueMs()) {
            NowMs = std::max(NowMs, *next);
            for (const NodeSegment& segment : Box.TakeDue(NowMs)) {
                segments.push_back(HexOfBytes(segment.Bytes));
                if (segment.Close) segments.emplace_back("close");
            }
            Box.TakeCalls(NowMs);
        }
        return segments;
    }
    Node Box;
    double NowMs = 1000;
};

TEST(Node, CustomAsciiPassesInOnePiece) {
    NodeTool tool(LineProtocol::CustomAscii, {"G130:paced"});
    EXPECT_EQ(tool.Ask("*1G130\r\n"), Words{"34390D"});
}

TEST(Node, ModbusIsFramedForTheLine) {
    for (const LineProtocol protocol : {LineProtocol::ModbusRtu, LineProtocol::ModbusAscii}) {
        NodeTool tool(protocol);
        EXPECT_EQ(tool.Ask(Bytes("1234 0000 0006 01 0800010000")), Words{"123400000006010800010000"});
        EXPECT_EQ(tool.Ask(Bytes("FFFF 0000 0006 01 03000A0001")).size(), 1U);
        EXPECT_EQ(tool.Box.Behind().Commands(), (Words{"0800010000", "03000A0001"}));
        EXPECT_EQ(tool.Ask(Bytes("0001 0000 0006 01")), Words{}) << "half a request";
        EXPECT_EQ(tool.Ask(Bytes("4100010000")), Words{"00010000000301C101"}) << "an exception";
        EXPECT_EQ(tool.Ask(Bytes("0001 0001 0006 01 0800010000")), Words{}) << "no Modbus";
    }
}

TEST(Node, ItsOwnFramesDoNotReachTheMeter) {
    for (const LineProtocol protocol : {LineProtocol::CustomAscii, LineProtocol::ModbusRtu}) {
        NodeTool tool(protocol);
        const std::string status = HexOfBytes(Bytes(kStatus));
        EXPECT_EQ(tool.Ask(Bytes("0080A30102035A93D1C07E42 010105FF")), Words{status});
        EXPECT_EQ(tool.Ask(Bytes("0080A30102035A93D1C07E42 570410000000FF")), Words{status});
        EXPECT_EQ(tool.Ask(Bytes("0080A30102035A93D1C07E42 570400")), Words{});
        EXPECT_EQ(tool.Ask(Bytes("000000FF")), Words{status});
        EXPECT_EQ(tool.Box.Told(), (Words{"keep-alive", "on", "off"}));
        EXPECT_TRUE(tool.Box.Behind().Commands().empty());
    }
}

}  // namespace
}  // namespace sim

// One exchange through the node: pauses, framing, and every way in which a receive can end.
#include "link/node_exchange.h"

#include <gtest/gtest.h>

#include "link/exchange.h"
#include "link/single_reading.h"
#include "link/waits.h"
#include "meter/hex_text.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

// A node whose meter says nothing: the test itself plays it.
struct QuietNode : NodeBench {
    explicit QuietNode(const Words& settings = {}) : NodeBench(settings, {"*:noreply"}) { LogIn(); }
    Link& L() { return Program.Link; }
    void ArriveAfter(double ms, const std::string& bytes) {
        Pump.After(ms, [this, bytes] { Net.Arrive(bytes); });
    }
};

TEST(NodeSend, PausesAndEmptiesWhatCameBefore) {
    QuietNode bench;
    bench.State().ReplyText = "old";
    bench.State().NodeFirstRun = 1;
    bench.ArriveAfter(100, "stale\r\n");
    EXPECT_EQ(bench.Pump.Took([&] { SendAscii(bench.L(), "G130"); }), 1300);
    EXPECT_EQ(bench.Net.Sent, Words{"*1G130\r\n"});
    EXPECT_EQ(bench.State().NodeReply, "");
    EXPECT_EQ(bench.State().ReplyText, "");
    EXPECT_EQ(bench.State().NodeFirstRun, 0);
    EXPECT_TRUE(bench.Line.Calls().empty());
}

TEST(NodeSend, ModbusCarriesTransactionAndLength) {
    QuietNode bench({"SerialProtocol=2", "ModbusAddress=17"});
    for (const auto& [before, digits] : {std::pair{0, "000100000006110300010010"},
                                         {0x1233, "123400000006110300010010"},
                                         {65534, "FFFF00000006110300010010"},
                                         {65535, "000100000006110300010010"}}) {
        bench.State().TransactionId = before;
        bench.State().ModbusPayload = "0300010010";
        SendCommand(bench.L());
        EXPECT_EQ(HexOfText(bench.Net.Sent.back()), digits) << "behind " << before;
    }
}

TEST(NodeReceive, ASilentMeterLeavesNoReading) {
    for (const char* protocol : {"SerialProtocol=0", "SerialProtocol=1"}) {
        QuietNode bench({protocol});
        bench.State().ReplyText = bench.State().RawReply = "01040400000064";
        ReadSingle(bench.L(), ReadingKind::Item1);
        EXPECT_EQ(bench.State().LinkError, 20) << protocol;
        EXPECT_EQ(bench.State().RawReply, "") << protocol;
    }
}

// The answer to an earlier question comes first: alone, or with the right one behind it in the same piece.
TEST(NodeReceive, TwoAnswersToOneQuestionAreNoReading) {
    const struct {
        const char *First, *Second;
        int LinkError;
    } cases[] = {{"  1.5\r\n", "", 0}, {"  1.5\r\n", "  2.5\r\n", 1}, {"  1.5\r  2.5\r", "", 1}};
    for (const auto& c : cases) {
        QuietNode bench;
        bench.ArriveAfter(1400, c.First);
        if (*c.Second != '\0') bench.ArriveAfter(1550, c.Second);
        ReadSingle(bench.L(), ReadingKind::Item2);
        EXPECT_EQ(bench.State().LinkError, c.LinkError) << c.First << c.Second;
    }
}

TEST(NodeReceive, CustomAsciiReplies) {
    const struct {
        const char *Name, *Reply, *RawReply, *ReplyText;
    } cases[] = {
        {"CR LF", "AB12\r\n", "AB12", "AB12"},
        {"CR", "AB12\r", "AB12", "AB12"},
        {"LF", "AB12\n", "AB12", "AB12"},
        {"no end", "AB12", "AB12", "AB12"},
        {"an odd digit stays", "ABC\r\n", "ABC", "ABC"},
        {"blanks are trimmed", "  12. \r\n", "  12. ", "12."},
        {"only an end", "\r\n", "", ""},
    };
    for (const auto& c : cases) {
        QuietNode bench;
        bench.State().EchoMode = 1;  // means nothing here
        bench.ArriveAfter(1400, c.Reply);
        AskAscii(bench.L(), "G130");
        EXPECT_EQ(bench.State().LinkError, 0) << c.Name;
        EXPECT_EQ(bench.State().RawReply, c.RawReply) << c.Name;
        EXPECT_EQ(bench.State().ReplyText, c.ReplyText) << c.Name;
        EXPECT_EQ(bench.State().NodeReply, "") << c.Name;
    }
}

TEST(NodeReceive, ModbusReplies) {
    const struct {
        const char *Name, *Reply;
        int LinkError;
        const char* ReplyText;
    } cases[] = {
        {"good", "0001000000050103021234", 0, "0103021234"},
        {"an exception is a short reply", "000100000003018302", 0, "018302"},
        {"header alone", "000100000000", 0, ""},
        {"another transaction", "0002000000050103021234", 27, ""},
        {"one byte", "00", 27, ""},
    };
    for (const auto& c : cases) {
        QuietNode bench({"SerialProtocol=1"});
        bench.ArriveAfter(1400, TextOfHex(c.Reply));
        AskModbus(bench.L(), "0300450001");
        EXPECT_EQ(bench.State().LinkError, c.LinkError) << c.Name;
        EXPECT_EQ(bench.State().ReplyText, c.ReplyText) << c.Name;
    }
}

TEST(NodeReceive, WaitsLongerOnASlowLine) {
    for (const auto& [settings, ms] : {std::pair{"BaudIndex=0", 9000},
                                       {"BaudIndex=1", 5000},
                                       {"BaudIndex=2", 3000},
                                       {"BaudIndex=6", 3000}}) {
        QuietNode bench({settings});
        EXPECT_EQ(bench.Pump.Took([&] { AskAscii(bench.L(), "G130"); }), 1300 + ms) << settings;
        EXPECT_EQ(bench.State().LinkError, 20) << settings;
        bench.ArriveAfter(1300 + ms - 1, "49\r\n");
        AskAscii(bench.L(), "G130");
        EXPECT_EQ(bench.State().LinkError, 0) << settings;
    }
}

TEST(NodeReceive, WhatArrivedBeforeTheBreakCounts) {
    QuietNode bench;
    bench.ArriveAfter(1400, "49\r\n");
    bench.Pump.After(1400, [&] { bench.Net.Break(); });
    AskAscii(bench.L(), "G130");
    EXPECT_EQ(bench.State().ReplyText, "49");
    EXPECT_TRUE(bench.Boxes.Shown.empty());
}

}  // namespace
}  // namespace counter::test

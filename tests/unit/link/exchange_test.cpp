// One exchange on the virtual clock: pauses, silence, replies. What a fault makes of one is in the table of
// faults.
#include "link/exchange.h"

#include <gtest/gtest.h>

#include "link/port_setup.h"
#include "link/waits.h"
#include "support/bench_meter.h"

namespace counter::test {
namespace {

// A line whose far end the test itself plays.
struct QuietBench : BenchMeter {
    explicit QuietBench(const std::vector<std::string>& settings = {}) : BenchMeter({}, settings) {
        Line.Unplug();
        SwitchOn();
    }
    Link& L() { return Program.Link; }
    LinkState& State() { return Program.LinkState; }
};

TEST(Send, WaitsThrowsStaleInputAwayAndFrames) {
    QuietBench bench;
    bench.Line.Inject("stale");
    EXPECT_EQ(bench.Pump.Took([&] { SendAscii(bench.L(), "G130"); }), 300);
    EXPECT_EQ(bench.Line.Sent().back(), "*1G130\r\n");
    EXPECT_EQ(bench.State().RawReply, "stale");
    EXPECT_EQ(bench.Line.InBufferCount(), 0U);
    EXPECT_EQ(bench.Line.Calls().back(), "RTS on");
}

TEST(Send, Address16IsGAndModbusCarriesItsOwn) {
    QuietBench ascii({"MeterAddressValue=16"});
    SendAscii(ascii.L(), "XR1AZ");
    EXPECT_EQ(ascii.Line.Sent().back(), "*GXR1AZ\r\n");

    QuietBench modbus({"SerialProtocol=2", "ModbusAddress=17"});
    modbus.State().ModbusPayload = "0800010000";
    SendCommand(modbus.L());
    EXPECT_EQ(modbus.Line.Sent().back(), ":110800010000E6\r\n");
}

// A press during a wait sends inside it, and writes the same texts.
TEST(Send, AnExchangeKeepsItsOwnFrameWhateverIsSentDuringItsWaits) {
    const struct {
        const char* Protocol;
        double OtherMs;
        const char *Frames, *RawReply;
    } cases[] = {
        // clang-format off
        {"SerialProtocol=0", 100, "*1C3\r\n*1B1\r\n",                             " 12345.67"},
        {"SerialProtocol=0", 310, "*1B1\r\n*1C3\r\n",                             " 12345.67"},
        {"SerialProtocol=2", 100, ":01050004FF00F7\r\n:010400030002F6\r\n",       ":0104040000303993"},
        {"SerialProtocol=2", 310, ":010400030002F6\r\n:01050004FF00F7\r\n",       ":0104040000303993"},
        // clang-format on
    };
    for (const auto& c : cases) {
        QuietBench bench({c.Protocol});
        const bool modbus = bench.State().ModbusLink == 1;
        const auto ask = [&](const char* ascii, const char* payload) {
            bench.State().CommandText = ascii;
            bench.State().ModbusPayload = payload;
            SendCommand(bench.L());
        };
        bench.Pump.After(c.OtherMs, [&] { ask("*1C3", "050004FF00"); });
        bench.Line.InjectAfter(750, std::string(c.RawReply) + "\r\n");
        ask("*1B1", "0400030002");
        ReceiveReply(bench.L());
        std::string frames;
        for (const std::string& frame : bench.Line.Sent()) frames += frame;
        EXPECT_EQ(frames, c.Frames) << c.Protocol << " " << c.OtherMs;
        EXPECT_EQ(bench.State().RawReply, c.RawReply) << "an odd value stays whole";
        EXPECT_EQ(bench.State().CommandText, modbus ? ":010400030002F6\r\n" : "*1B1\r\n") << c.OtherMs;
    }
}

TEST(Receive, CustomAsciiReplies) {
    const struct {
        const char *Name, *Command, *Reply;
        int LinkError;
        const char *ReplyText, *RawReply;
    } cases[] = {
        {"stray line feed", "G130", "AB12\r\n", 0, "AB12", "AB12"},
        {"odd digit goes", "G130", "ABC\r", 0, "AB", "AB"},
        {"odd value stays", "B1", "ABC\r", 0, "ABC", "ABC"},
        {"blanks are trimmed", "B1", "  1.5 \r", 0, "1.5", "  1.5 "},
        {"first CR counts", "G130", "12\r34\r", 0, "12", "12"},
        {"empty reply", "G130", "\r", 0, "", ""},
        {"no end", "G130", "1234", 23, "before", "before"},
    };
    for (const auto& c : cases) {
        QuietBench bench;
        bench.State().ReplyText = bench.State().RawReply = "before";
        bench.Line.InjectAfter(310, c.Reply);
        AskAscii(bench.L(), c.Command);
        EXPECT_EQ(bench.State().LinkError, c.LinkError) << c.Name;
        EXPECT_EQ(bench.State().ReplyText, c.ReplyText) << c.Name;
        EXPECT_EQ(bench.State().RawReply, c.RawReply) << c.Name;
    }
}

TEST(Receive, NobodyAnswersFor3000Ms) {
    QuietBench bench;
    bench.State().ReplyText = "49";
    EXPECT_EQ(bench.Pump.Took([&] { AskAscii(bench.L(), "G130"); }), 3300);
    EXPECT_EQ(bench.State().LinkError, 21);

    EXPECT_EQ(bench.State().ReplyText, "49") << "the reply before stays";
}

// At 9600 baud the gap is 61.46 ms, at 300 baud 416.67, counted from 200 ms after the first character.
TEST(Receive, SilenceLongerThanTheGapEndsAReply) {
    const struct {
        const char *Name, *Baud;
        double SecondPieceMs;
        int LinkError;
        double TookMs;
    } cases[] = {
        {"within the gap at 9600", "BaudIndex=5", 510 + 61, 0, 510 + 61 + 61.46},
        {"beyond the gap at 9600", "BaudIndex=5", 510 + 62, 23, 510 + 61.46},
        {"within the gap at 300", "BaudIndex=0", 510 + 416, 0, 510 + 416 + 416.67},
        {"beyond the gap at 300", "BaudIndex=0", 510 + 417, 23, 510 + 416.67},
    };
    for (const auto& c : cases) {
        QuietBench bench({c.Baud});
        bench.Line.InjectAfter(310, "12");
        bench.Line.InjectAfter(c.SecondPieceMs, "34\r");
        EXPECT_NEAR(bench.Pump.Took([&] { AskAscii(bench.L(), "G130"); }), c.TookMs, 0.02) << c.Name;
        EXPECT_EQ(bench.State().LinkError, c.LinkError) << c.Name;
    }
}

// As in continuous output, at the end of which this test would be much later.
TEST(Receive, AMeterThatNeverFallsSilentIsHeardForHalfAMinute) {
    QuietBench bench;
    for (int reading = 0; reading < 2000; ++reading) bench.Line.InjectAfter(310 + reading * 50, "  12.3\r");
    EXPECT_EQ(bench.Pump.Took([&] { AskAscii(bench.L(), "XR1AZ"); }), 310 + 200 + 30'000);
    EXPECT_EQ(bench.State().ReplyText, "12.3") << "too short for its caller";
}

TEST(Receive, APortThatIsNotOpenIs27AtOnce) {
    QuietBench bench;
    bench.Line.Close();
    ReceiveReply(bench.L());
    EXPECT_EQ(bench.State().LinkError, 27);
}

TEST(Waits, TakeTheirTimes) {
    const struct {
        const char* Name;
        int EthernetMode;
        void (*Wait)(Link&);
        double Ms;
    } cases[] = {
        {"link delay", 0, [](Link& link) { LinkDelay(link, 300); }, 300},
        {"link delay through the node", 1, [](Link& link) { LinkDelay(link, 300); }, 1300},
        {"delay of 0.4 s", 0, [](Link& link) { Delay(link, 0.4F); }, 400},
        {"delay of 0 at 9600 baud", 0, [](Link& link) { Delay(link, 0); }, 50},
        {"input that never comes", 0, [](Link& link) { WaitForInput(link); }, 1000},
        {"close", 0, [](Link& link) { ClosePort(link); }, 200},
    };
    for (const auto& c : cases) {
        QuietBench bench;
        bench.State().EthernetMode = c.EthernetMode;
        EXPECT_NEAR(bench.Pump.Took([&] { c.Wait(bench.L()); }), c.Ms, 0.01) << c.Name;
    }
}

TEST(Waits, InputEndsTheWaitAndStays) {
    QuietBench bench;
    bench.State().PortFault = 1;  // of a wait before
    bench.Line.InjectAfter(100, "x");
    EXPECT_EQ(bench.Pump.Took([&] { WaitForInput(bench.L()); }), 100);
    EXPECT_EQ(bench.Line.InBufferCount(), 1U);
    EXPECT_EQ(bench.State().PortFault, 0);
    bench.Line.GoAway();
    WaitForInput(bench.L());
    EXPECT_EQ(bench.State().PortFault, 1);
}

}  // namespace
}  // namespace counter::test

#include "sim/meter.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(MeterModbusAscii, DamagedAndForeignFramesAreSilence) {
    Tool tool(Speaking(LineProtocol::ModbusAscii));
    EXPECT_EQ(tool.Ask("noise:0108:010800010000F6\r\n"), ":010800010000F6\r\n") << "a colon begins it";
    for (const char* bad :
         {":010800010000F7\r\n", "010800010000F6\r\n", ":010800010000f6\r\n", ":010800010000F6\n",
          ":020800010000F5\r\n", ":01080001000F6\r\n", ":01FF\r\n", ":010800010006F0G0\r\n", ":\r\n"})
        EXPECT_EQ(tool.Ask(bad), "") << bad;
}

TEST(MeterRtu, DamagedAndForeignFramesAreSilenceAndABroadcastIsDoneInSilence) {
    Tool tool(Speaking(LineProtocol::ModbusRtu));
    EXPECT_EQ(tool.Ask(Bytes("010800010000B1CC")), "") << "check";
    EXPECT_EQ(tool.Ask(Bytes("01")), "") << "one byte";
    EXPECT_EQ(tool.AskRtu("020800010000"), "") << "address";
    EXPECT_EQ(tool.AskRtu("000600310123"), "") << "broadcast";
    EXPECT_EQ(tool.AskRtu("010300310001"), "0103020123F80D");
    EXPECT_EQ(tool.Meter.Commands(), (std::vector<std::string>{"?010800010000B1CC", "?01", "?0800010000",
                                                               "0600310123", "0300310001"}));
}

TEST(MeterRtu, OldFirmwareKnowsOnlyItsOwnCheck) {
    MeterOptions options = Speaking(LineProtocol::ModbusRtu);
    options.ModbusAddress = 5;
    options.Crc = CrcKind::C2;
    Tool tool(options);
    EXPECT_EQ(tool.Ask(Bytes("050400070002C18E")), "");
    EXPECT_EQ(HexOfBytes(tool.Ask(Bytes("050400070002C28E"))).substr(0, 6), "050404");
}

TEST(MeterFaults, ChangeTheReply) {
    const struct {
        const char *Name, *Fault;
        std::string Question, Reply;  // RTU: digits without the check of the question
        LineProtocol Protocol = LineProtocol::CustomAscii;
    } kCases[] = {
        // clang-format off
        {"no reply",             "G130:noreply",     "*1G130\r\n",  ""},
        {"another command",      "G132:noreply",     "*1G130\r\n",  "49\r"},
        {"cut before the CR",    "G130:cut=2",       "*1G130\r\n",  "49"},
        {"cut to nothing",       "G130:cut=0",       "*1G130\r\n",  ""},
        {"extra",                "G1:extra",         "*1G130\r\n",  "490\r"},
        {"garbage",              "*:garbage",        "*1G130\r\n",  "aho"},
        {"no check to spoil",    "*:badcheck",       "*1G130\r\n",  "49\r"},
        {"echo",                 "*:echo",           "*1G130\r\n",  "*1G130\r\n49\r"},
        {"echo of a write",      "W1:echo",          "*1W1FF0000Z\r\n", "*1W1FF0000Z\r\n"},
        {"echo of a wake-up",    "|**|:echo",        "|**|\r\n",    "|**|\r\n"},
        {"echo to another",      "*:echo",           "*2G130\r\n",  "*2G130\r\n"},
        {"echo alone",           "*:badecho",        "*1G130\r\n",  "*1G120\r\n49\r"},
        {"head with a bar",      "G130:extra",       "|*1G130\r\n", "490\r"},
        {"RTU, no reply",        "08:noreply",       "010800010000",  "", LineProtocol::ModbusRtu},
        {"RTU, exception",       "030001:exception=6", "010300010002", "018306C132", LineProtocol::ModbusRtu},
        {"RTU, check fits",      "*:extra",          "010800010000",  "010800010000000B74", LineProtocol::ModbusRtu},
        {"RTU, bad check",       "*:badcheck",       "010800010000",  "010800010000B1CA", LineProtocol::ModbusRtu},
        {"RTU, cut",             "*:cut=5",          "010800010000",  "0108000100", LineProtocol::ModbusRtu},
        {"RTU, echo",            "*:echo",           "010800010000",  "010800010000B1CB010800010000B1CB", LineProtocol::ModbusRtu},
        {"Modbus ASCII, bad check", "08:badcheck",   ":010800010000F6\r\n", ":010800010000F0\r\n", LineProtocol::ModbusAscii},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Tool tool(WithFaults(Speaking(c.Protocol), {c.Fault}));
        const bool rtu = c.Protocol == LineProtocol::ModbusRtu;
        EXPECT_EQ(rtu ? tool.AskRtu(c.Question) : tool.Ask(c.Question), c.Reply) << c.Name;
    }
}

TEST(MeterFaults, AnExceptionLeavesTheMemoryAndAMissingReplyDoesNot) {
    Tool tool(WithFaults(Speaking(LineProtocol::ModbusRtu), {"0600#1:exception=4", "0600#2:noreply"}));
    tool.AskRtu("010600310001");
    EXPECT_EQ(tool.Meter.ImageText(), StartImage(Speaking(LineProtocol::ModbusRtu)));
    EXPECT_EQ(tool.AskRtu("010600310123"), "");
    EXPECT_EQ(tool.Meter.ImageText().substr(176, 4), "0123");
}

TEST(MeterFaults, StrikeTheNthTimeOnlyAndTogether) {
    Tool tool(WithFaults({}, {"G130#2:extra", "*#3:cut=1", "G13#2:echo"}));
    EXPECT_EQ(tool.Ask("*1G130\r\n"), "49\r");
    EXPECT_EQ(tool.Ask("*1G130\r\n"), "*1G130\r\n490\r");
    EXPECT_EQ(tool.Ask("*1G130\r\n"), "4");
    EXPECT_EQ(tool.Ask("*1G130\r\n"), "49\r");
}

TEST(MeterFaults, MomentsOfTheReply) {
    const struct {
        const char* Name;
        std::vector<std::string> Faults;
        std::vector<double> ArrivedMs;  // after the command
    } kCases[] = {
        // clang-format off
        {"none",               {},                               {2}},
        {"late",               {"*:late=2800"},                  {2802}},
        {"pause",              {"*:pause=2,500"},                {2, 502}},
        {"pause at once",      {"*:pause=0,500"},                {502}},
        {"paced at 300 baud",  {"*:paced"},                      {35, 68, 102}},
        {"paced and pause",    {"*:paced", "*:pause=1,100"},     {35, 168, 202}},
        {"echo goes first",    {"*:echo", "*:late=10"},          {0, 12}},
        // clang-format on
    };
    for (const auto& c : kCases) {
        MeterOptions options = WithFaults({}, c.Faults);
        options.BaudIndex = 0;
        Tool tool(options);
        tool.Ask("*1G130\r\n");
        ASSERT_EQ(tool.ArrivedMs.size(), c.ArrivedMs.size()) << c.Name;
        for (std::size_t i = 0; i < c.ArrivedMs.size(); ++i)
            EXPECT_NEAR(tool.ArrivedMs[i], 1000 + c.ArrivedMs[i], 1) << c.Name << " " << i;
    }
}

TEST(MeterFaults, ALineThatGoesAwayStaysAwayUntilItIsBack) {
    Tool tool(WithFaults({}, {"XR1A#1:gone=5", "WG2A:gone=0"}));
    EXPECT_EQ(tool.Ask("*1XR1AZ\r\n"), "00271");
    EXPECT_TRUE(tool.Meter.LineGone());
    EXPECT_EQ(tool.Ask("*1G130\r\n"), "");
    EXPECT_EQ(tool.Meter.Commands().size(), 1u);
    tool.Meter.LineBack();
    EXPECT_EQ(tool.Ask("*1XR1AZ\r\n").size(), 109u);
    EXPECT_FALSE(tool.Meter.LineGone());
    tool.Ask("*1WG2A" + std::string(64, '0') + "Z\r\n");
    EXPECT_TRUE(tool.Meter.LineGone()) << "a command without a reply can break it too";
}

}  // namespace
}  // namespace sim

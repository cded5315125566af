#include "sim/stream.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

// Patches as texts, such as "187=40".
MeterOptions With(const std::vector<std::string>& patches) {
    MeterOptions options;
    options.Signal.Kind = SignalKind::Constant;
    for (const auto& text : patches) EXPECT_EQ(ParsePatch(text, options.Patches.emplace_back()), "") << text;
    return options;
}

TEST(Stream, FramesAreAsTheSetupSays) {
    const struct {
        const char* Name;
        std::vector<std::string> Patches;
        std::string Frame;
    } kCases[] = {
        // clang-format off
        {"Item 1",                     {},                                      " 010000.\r"},
        {"line feed",                  {"189=A1"},                              " 010000.\r\n"},
        {"points",                     {"151=64", "187=00"},                    " 010.000 0.05000\r"},
        {"Item 2",                     {"187=02"},                              " 005000.\r"},
        {"Item 3",                     {"187=03"},                              "-000100.\r"},
        {"displayed Item",             {"187=05", "157=02"},                    " 005000.\r"},
        {"peak",                       {"187=04"},                              " 010000.\r"},
        {"all, peak, valley",          {"187=07", "199=01"},                    " 010000. 010000. 010000.\r"},
        {"an end to each",             {"187=08", "189=A1"},                    " 010000.\r\n 005000.\r\n"},
        {"own characters",             {"187=41", "239=02", "237=03"},          "\x02 010000.\x03"},
        {"and line feed",              {"187=41", "239=02", "237=03", "189=A1"}, "\x02 010000.\x03\n"},
        {"no start",                   {"187=41", "239=00", "237=0D"},          " 010000.\r"},
        {"no stop",                    {"187=41", "239=24", "237=00"},          "$ 010000."},
        {"no stop but a line feed",    {"187=41", "239=24", "237=00", "189=A1"}, "$ 010000.\n"},
        {"own characters to each",     {"187=48", "239=02", "237=03"},          "\x02 010000.\x03\x02 005000.\x03"},
        {"firmware 34 has none",       {"187=41", "239=02", "237=03", "233=22"}, " 010000.\r"},
        {"firmware 35 has",            {"187=41", "239=02", "237=03", "233=23"}, "\x02 010000.\x03"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Tool tool(With(c.Patches));
        EXPECT_EQ(tool.Ask("*1A0\r\n", 50), c.Frame) << c.Name;
    }
}

TEST(Stream, RateIsThatOfTheReadingsDividedByTheSetup) {
    static constexpr struct {
        const char *Rate, *Byte;  // output rate and 300, 9600 or 19200 baud
        bool StrictBaud;
        int Frames;  // within 10 s
    } kCases[] = {
        // clang-format off
        {"20",  "50", false, 200},
        {"20",  "54", false, 12},
        {"20",  "5F", false, 0},      // every 256th
        {"0.5", "50", false, 5},
        {"max", "50", false, 10000},
        {"20",  "50", true,  199},    // the last is not out
        {"20",  "00", true,  33},     // 300 ms a frame
        {"max", "60", true,  2133},   // 4.6875 ms a frame
        // clang-format on
    };
    for (const auto& c : kCases) {
        MeterOptions options = With({"191=" + std::string(c.Byte)});
        ASSERT_EQ(ParseRate(c.Rate, options.RateHz), "");
        options.StrictBaud = c.StrictBaud;
        const std::string bytes = Tool(options).Ask("*1A0\r\n", 10000);
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\r'), c.Frames) << c.Rate << " " << c.Byte;
    }
}

TEST(Stream, BeginsAndEndsByCommand) {
    Tool tool(With({}));
    EXPECT_EQ(tool.Ask("*1A0\r\n", 49), "") << "not before the next reading";
    EXPECT_EQ(tool.Ask("", 71), " 010000.\r 010000.\r");
    EXPECT_EQ(tool.Ask("*1G130\r\n", 10), "49\r") << "commands are answered between";
    EXPECT_EQ(tool.Ask("*1A0\r\n", 25), " 010000.\r") << "twice is once";
    EXPECT_EQ(tool.Ask("*************\r\n*2A1\r\n", 50), " 010000.\r") << "noise, and another meter";
    EXPECT_EQ(tool.Ask("*1A1\r\n", 1000), "");
    EXPECT_FALSE(tool.Meter.NextDueMs()) << "quiet";
    EXPECT_EQ(Tool(With({"185=64"})).Ask("*1A0\r\n", 1000), "")
        << "a remote display sends nothing of its own";
}

TEST(Stream, EndsWithTheLineAndTheMeterReset) {
    const std::function<void(Tool&)> kEnds[] = {
        [](Tool& tool) { tool.Ask("*1C0\r\n", 0); },
        [](Tool& tool) { tool.Ask("*1XR1AZ\r\n", 5), tool.Meter.LineBack(); },
        [](Tool& tool) { tool.Meter.FarEndClosed(); },
        [](Tool& tool) { tool.Meter.LoadImage(StartImage(Speaking(LineProtocol::ModbusRtu))); },
    };
    for (const auto& end : kEnds) {
        Tool tool(WithFaults(With({}), {"XR1A:gone=4"}));
        EXPECT_EQ(tool.Ask("*1A0\r\n", 50), " 010000.\r");
        end(tool);
        EXPECT_EQ(tool.Ask("", 1000), "") << &end - kEnds;
    }
}

TEST(Stream, NeverBreaksIntoAReplyAndLeavesOutWhatWouldBeLate) {
    MeterOptions options = WithFaults(With({}), {"XB74:paced", "G130:late=500"});
    options.Signal = {SignalKind::Ramp, 0, 2000, 20};
    Tool tool(options);
    tool.Ask("*1A0\r\n", 40);
    const std::string block = StartImage(options).substr(204, 44);
    EXPECT_EQ(tool.Ask("*1XB74Z\r\n", 60), block + "\r 000010.\r") << "47 ms of block, then the frame";
    tool.Ask("", 50);
    EXPECT_EQ(tool.Ask("*1G130\r\n", 560), "49\r 000130.\r 000140.\r") << "those of 502 and 552 ms later";
}

}  // namespace
}  // namespace sim

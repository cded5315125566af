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
        {"alarms",                     {"189=61"},                              " 010000.A_\r"},
        {"alarms of four relays",      {"189=61", "193=29"},                    " 010000.A_CD\r"},
        {"no relays, no alarms",       {"189=61", "193=09"},                    " 010000.\r"},
        {"alarms to each",             {"189=61", "187=08"},                    " 010000.A_\r 005000.A_\r"},
        {"firmware 34 has none",       {"187=41", "239=02", "237=03", "233=22"}, " 010000.\r"},
        {"firmware 35 has",            {"187=41", "239=02", "237=03", "233=23"}, "\x02 010000.\x03"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Tool tool(With(c.Patches));
        EXPECT_EQ(tool.Ask("*1A0\r\n", 50), c.Frame) << c.Name;
    }
}

}  // namespace
}  // namespace sim

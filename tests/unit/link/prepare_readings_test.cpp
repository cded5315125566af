// What the meter is asked before a stream, and what becomes of its answers.
#include "link/prepare_readings.h"

#include <gtest/gtest.h>

#include <map>

#include "support/bench_meter.h"

namespace counter::test {
namespace {

using Replies = std::map<std::string, std::string>;

// A meter that knows a few commands, and notes which arrived when.
struct FlagMeter : MeterLine {
    explicit FlagMeter(VirtualPump& pump) : MeterLine(pump, {}), Clock(pump) {
        Unplug();
        Open();
    }
    void Output(std::string_view bytes) override {
        const std::string command(bytes.substr(2, bytes.size() - 4));
        Story += std::to_string(static_cast<int>(Clock.NowMs()) - 1000) + " " + command + ", ";
        if (Known.count(command)) Clock.After(20, [this, command] { Inject(Known[command] + "\r"); });
    }
    VirtualPump& Clock;
    Replies Known;
    std::string Story;
};

struct PrepareDesk {
    FrameRules Ask(const Replies& meter, int version) {
        State.CharTimeMs = 1;
        Line.Known = meter;
        PrepareReadings(L, version, Rules);
        return Rules;
    }
    VirtualPump Pump;
    FlagMeter Line{Pump};
    LinkState State;
    Link L{State, Pump, Line};
    FrameRules Rules{0, 'x', 'y', 0};
};

TEST(PrepareReadings, AsksAndSetsTheFrameRules) {
    // clang-format off
    const struct {
        const char* Name;
        int Version;
        Replies Meter;
        int LineFeedFlag;
        char End, Lead;
        int BackStep;
    } cases[] = {
        {"plain",              83, {{"G132", "7F"}, {"G133", "BF"}}, 0, '\r', '\0', 0},
        {"line feed",          83, {{"G132", "80"}, {"G133", "00"}}, 1, '\n', '\0', 0},
        {"an old meter",       34, {{"G132", "80"}, {"G133", "40"}}, 1, '\n', '\0', 0},
        {"custom",             35, {{"G132", "00"}, {"G133", "40"}, {"G15D", "02"}, {"G1E0", "03"}}, 0, '\3', '\2', 0},
        {"custom, line feed",  35, {{"G132", "80"}, {"G133", "FF"}, {"G15D", "3E"}, {"G1E0", "3C"}}, 1, '<', '>', 0},
        {"lead alone",         83, {{"G132", "00"}, {"G133", "40"}, {"G15D", "3E"}, {"G1E0", "00"}}, 0, '>', '\0', 0},
        {"lead and line feed", 83, {{"G132", "80"}, {"G133", "40"}, {"G15D", "3E"}, {"G1E0", "00"}}, 1, '>', '\0', 1},
        {"no number",          83, {{"G132", "8X"}, {"G133", "zz"}}, 0, '\r', '\0', 0},
    };
    // clang-format on
    for (const auto& c : cases) {
        const FrameRules rules = PrepareDesk().Ask(c.Meter, c.Version);
        EXPECT_EQ(rules.LineFeedFlag, c.LineFeedFlag) << c.Name;
        EXPECT_EQ(rules.FrameEndChar, c.End) << c.Name;
        EXPECT_EQ(rules.FrameLeadChar, c.Lead) << c.Name;
        EXPECT_EQ(rules.FrameBackStep, c.BackStep) << c.Name;
    }
}

// Each command waits 300 ms; a reply takes 20 ms to begin, then 200 and a gap of 60; then the pause after
// it.
TEST(PrepareReadings, PausesBetweenTheCommandsAndTheStepBackStays) {
    PrepareDesk desk;
    desk.Ask({{"G132", "80"}, {"G133", "40"}, {"G15D", "3E"}, {"G1E0", "00"}}, 83);
    EXPECT_EQ(desk.Line.Story, "300 A1, 900 G132, 1780 G133, 2410 G15D, 3040 G1E0, ");
    EXPECT_EQ(desk.Pump.NowMs(), 1000 + 3370);
    const FrameRules rules = desk.Ask({{"G132", "00"}, {"G133", "00"}}, 83);
    EXPECT_EQ(rules.FrameEndChar, '\r');
    EXPECT_EQ(rules.FrameBackStep, 1) << "custom characters are off";
    desk.Line.Story.clear();
    desk.State.RawReply = "80";
    EXPECT_EQ(desk.Ask({}, 34).LineFeedFlag, 1) << "silence: what stands in RawReply is taken";
    EXPECT_EQ(desk.Line.Story.find("G133"), std::string::npos) << "an old meter isn't asked";
    EXPECT_EQ(desk.Rules.Failure, 21);
    EXPECT_EQ(desk.Ask({{"G132", "00"}}, 34).Failure, 0);
}

}  // namespace
}  // namespace counter::test

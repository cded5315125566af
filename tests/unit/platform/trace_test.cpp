// The trace: a line a frame, pieces of a reply joined.
#include "platform/trace.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/meter_line.h"

namespace counter::test {
namespace {

TEST(Trace, TellsEveryFrameOnALine) {
    VirtualPump pump;
    MeterLine line(pump, {});
    std::vector<std::string> told;
    TracePort port(line, pump, [&](const std::string& text) { told.push_back(text); });
    port.Open();
    pump.After(300, [&] { port.Output("*1G1\r\n"); });
    pump.After(320, [&] {
        line.Inject("4");
        port.Input();
    });
    pump.After(330, [&] {
        line.Inject("9\r");
        port.Input();
    });
    pump.Pass(400);
    EXPECT_EQ(told, std::vector<std::string>{"     300 > 2A 31 47 31 0D 0A  *1G1.."});
    port.Close();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[1], "     320 < 34 39 0D  49.");
}

TEST(Trace, TellsEachArrivalWhereSomebodyListens) {
    VirtualPump pump;
    MeterLine line(pump, {});
    std::vector<std::string> told;
    {
        TracePort port(line, pump, [&](const std::string& text) { told.push_back(text); });
        line.Inject("-");
        port.Arrived = [&] { port.Input(); };
        line.Inject("1\r");
        line.Inject("2\r");
        EXPECT_EQ(told, (std::vector<std::string>{"       0 < 2D 31 0D  -1.", "       0 < 32 0D  2."}));
    }
    line.Inject("3\r");
    EXPECT_EQ(told.size(), 2U) << "the trace is gone";
}

}  // namespace
}  // namespace counter::test

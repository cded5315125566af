// The Read loop of a meter without a panel, and the way out.
#include "meter/default_setup.h"
#include "stories.h"

namespace counter::test {
namespace {

// A connected tool; the test plays the meter.
struct ReadBench : SetupBench {
    explicit ReadBench(const char* points = "11", bool modbusAscii = false) {
        Bench.Line.Unplug();
        Bench.SwitchOn();
        BuildDefaultSetup(Image());
        DigitsPut(Image(), 151, points);
        Bench.Program.Identity.MeterType = 7;
        Bench.Program.LinkState.ModbusLink = modbusAscii ? 1 : 0;
        Bench.Program.LinkState.SerialProtocol = modbusAscii ? 2 : 0;
        Open();
    }
    void ClickAfter(double ms, const char* button) {
        Bench.Pump.After(ms, [this, button] { Do(button); });
    }
};

// 300 ms pause, reply, about 250 ms of silence, 400 ms pause: the second request goes out after 1.2 s.
TEST(ReadLoop, ShowsTheReadingUntilPressedAgain) {
    const struct {
        const char *Name, *Points;
        bool ModbusAscii;
        const char *Reply, *Request, *Value;
    } cases[] = {
        {"ASCII", "13", false, "  123.45\r", "*1B1\r\n", "123.45"},
        {"point of item 1", "12", false, " -123.45\r", "*1B1\r\n", "-123.5"},
        {"Modbus", "13", true, ":0104040000006493\r\n", ":010400030002F6\r\n", "1.00"},
        {"Modbus, negative", "13", true, ":010404FFFFFF8575\r\n", ":010400030002F6\r\n", "-1.23"},
    };
    for (const auto& c : cases) {
        ReadBench bench(c.Points, c.ModbusAscii);
        bench.Bench.Line.InjectAfter(310, c.Reply);
        bench.ClickAfter(900, "cmdRead");
        bench.Bench.Pump.After(200, [&] {
            EXPECT_EQ(bench.Seen("cmdRead"), "Stop");
            EXPECT_EQ(bench.Seen("lblValue.back"), "ColorGreen");
        });
        bench.Do("cmdRead");
        EXPECT_EQ(bench.Bench.Line.Sent(), std::vector<std::string>{c.Request}) << c.Name;
        EXPECT_EQ(bench.Seen("lblValue"), c.Value) << c.Name;
        EXPECT_EQ(bench.Seen("lblValue.back"), "ColorRed") << c.Name;
        EXPECT_EQ(bench.Seen("cmdRead"), "Read") << c.Name;
    }
}

TEST(ReadLoop, AFailureLeavesTheNumberAndGoesOn) {
    ReadBench bench;
    bench.Bench.Line.InjectAfter(310, "  123.\r");
    bench.ClickAfter(9000, "cmdMainMenu");
    int left = 0;
    bench.View.ShowMainMenu = [&] { ++left; };
    bench.Do("cmdRead");
    EXPECT_EQ(bench.Seen("lblValue"), "123.");
    EXPECT_EQ(bench.Bench.Program.LinkState.LinkError, 21);
    EXPECT_EQ(bench.Bench.Line.Sent().size(), 4U);
    EXPECT_EQ(left, 1);
    EXPECT_EQ(bench.Seen("cmdRead"), "Read");
}

TEST(ReadingText, HasThePointOfItsCode) {
    const struct {
        double Reading;
        int Point;
        const char* Text;
    } cases[] = {
        {0, 1, "."},         {123, 1, "123."},  {0, 2, ".0"},           {-0.5, 2, "-.5"},
        {12.34, 3, "12.34"}, {10.5, 2, "10.5"}, {0.00001, 6, ".00001"}, {123456, 6, "123456.00000"},
    };
    for (const auto& c : cases) EXPECT_EQ(ReadingText(c.Reading, c.Point), c.Text);
}

}  // namespace
}  // namespace counter::test

#include "sim/readings.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(Readings, AFrequencyIsScaledWhereItsRateIsShown) {
    static constexpr struct {
        const char* Name;
        const char *ModeFunction, *Scale, *Multiplier, *Offset, *Calibration;
        double Hz, Ppm;
        int Item1;
    } kCases[] = {
        // clang-format off
        {"9.00000 times 100", "01", "0DBBA0", "57", "000000", "0000",   1000,   0,   900000},
        {"30 ppm too high",   "01", "0DBBA0", "57", "000000", "0000",   1000,  30,   900027},
        {"and made good",     "01", "0DBBA0", "57", "000000", "801E",   1000,  30,   900000},
        {"30 ppm too low",    "01", "0DBBA0", "57", "000000", "001E",   1000, -30,   900000},
        {"times 0.00001",     "01", "0186A0", "50", "000000", "0000", 900000,   0,        9},
        {"code above 10",     "01", "0186A0", "5F", "000000", "0000",      2,   0,   200000},
        {"negative scale",    "03", "8186A0", "55", "000000", "0000",   1000,   0,    -1000},
        {"offset",            "05", "0186A0", "55", "FFFF9C", "0000",   1000,   0,      900},
        {"more than counts",  "01", "0FFFFF", "5A", "000000", "0000", 900000,   0, 2000000000},
        {"a total",           "21", "0186A0", "55", "000000", "0000",   1000,   0,    10000},
        {"a combination",     "0B", "0186A0", "55", "000000", "0000",   1000,   0,    10000},
        // clang-format on
    };
    for (const auto& c : kCases) {
        MeterOptions options = Patched({{37, c.Offset},
                                        {43, c.Scale},
                                        {137, c.Calibration},
                                        {165, c.Multiplier},
                                        {199, c.ModeFunction}});
        options.FrequencyHz = c.Hz;
        options.TimebasePpm = c.Ppm;
        Device device(options);
        device.Follow(0);
        EXPECT_EQ(device.Value(Reading::Item1), c.Item1) << c.Name;
    }
}

// The whole conversation: old factor away, a scale that reads 900,000, the reading, scale back, new factor.
TEST(Readings, ACalibrationMakesTheMeterReadRight) {
    MeterOptions options = Patched({{43, "00C350"}, {137, "801E"}, {151, "13"}, {199, "01"}});
    options.FrequencyHz = 1000;  // and a time base that the factor of -30 has made good so far
    Tool tool(options);
    EXPECT_EQ(tool.Ask("*1X311Z\r\n*1X124Z\r\n"), "00000000C350\r5507\r");
    tool.Ask("*1W12B0000Z\r\n*1W3110000000DBBA0Z\r\n*1W1245707\r\n");
    tool.NowMs += 3000;
    EXPECT_EQ(tool.Ask("*1B1\r\n"), " 9000.27\r") << "the scale takes no account of the point";
    tool.Ask("*1W12B801E\r\n");
    tool.NowMs += 1000;
    EXPECT_EQ(tool.Ask("*1B1\r\n"), " 9000.00\r");
    tool.Ask("*1W31100000000C350Z\r\n*1W1245507Z\r\n");
    tool.NowMs += 1000;
    EXPECT_EQ(tool.Ask("*1B1\r\n"), " 0005.00\r");
}

}  // namespace
}  // namespace sim

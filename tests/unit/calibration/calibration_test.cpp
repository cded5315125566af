// The procedure on a meter with a wrong time base: frames and pauses, and what the meter is left with.
#include "calibration/calibration.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "time_base_meter.h"

namespace counter::test {
namespace {

CalibrationResult RunOn(CalibrationBench& bench, const std::string& frequency = "1000") {
    return RunCalibration(bench.Program.Link, frequency, [](CalibrationStage, const CalibrationResult&) {});
}

// Three roundings are between the error and the factor: the mantissa, half of one of its 100,000 to 999,999
// parts (up to 5 ppm near 1.00000); the reading, half of a count of 900,000; the factor, half a ppm. Up to 9
// Hz the exponent would need two digits, so that the meter reads next to nothing and the factor is the
// largest.
TEST(Calibration, FindsTheErrorOfTheTimeBase) {
    constexpr int kFrequencies = 200;
    for (int i = 0; i < kFrequencies; ++i) {
        const double hertz = 0.5 * std::pow(4e6, i / (kFrequencies - 1.0));
        const double error = -40000 + 80000 * (i * 37 % kFrequencies) / (kFrequencies - 1.0);
        char text[32];
        std::snprintf(text, sizeof text, "%.12g", hertz);
        CalibrationBench bench({hertz, error});
        const CalibrationResult result = RunOn(bench, text);
        const double parts = 9e10 / hertz / std::pow(10, std::floor(std::log10(9e5 / hertz)));
        const double tolerance = 0.5e6 / parts + 0.5 / 0.9 + 0.5;
        const double wanted = hertz <= 9 ? 29999 : std::clamp(-error, -29999.0, 29999.0);
        EXPECT_NEAR(result.Applied.Ppm, wanted, tolerance) << text << " Hz, " << error << " ppm";
        const bool nearLimit = std::abs(std::abs(error) - 30000) <= tolerance;
        EXPECT_TRUE(nearLimit || result.Applied.Limited == (hertz <= 9 || std::abs(error) > 30000)) << text;
        const int word = std::stoi(bench.Meter.Word12B, nullptr, 16);
        EXPECT_EQ(word < 0x8000 ? word : 0x8000 - word, result.Applied.Ppm) << text;
        EXPECT_EQ(bench.Meter.Words().substr(0, 17), "8000FF0186A0 0500") << text;
    }
}

// Nothing tells of a write that the meter did not take: what follows is sent all the same.
TEST(Calibration, ALostWriteCostsNoMoreThanItsWord) {
    const struct {
        const char *SilentAt, *Words;
    } cases[] = {
        // clang-format off
        {"W12B0000Z",           "8000FF0186A0 0500 0046"},  // measured with the old factor in the way
        {"W3110000000DBBA0Z",   "8000FF0186A0 0500 752F"},
        {"W1240700",            "8000FF0186A0 0500 752F"},
        {"W3118000FF0186A0Z",   "0000000DBBA0 0500 801E"},  // the test scale stays
        {"W1240500Z",           "8000FF0186A0 0700 801E"},
        {"W12B801E",            "8000FF0186A0 0500 0000"},
        // clang-format on
    };
    for (const auto& c : cases) {
        CalibrationBench bench;
        bench.Meter.SilentAt = c.SilentAt;
        EXPECT_EQ(RunOn(bench).LinkError, 0) << c.SilentAt;
        EXPECT_EQ(bench.Meter.Words(), c.Words) << c.SilentAt;
        EXPECT_TRUE(bench.Port.Story().find(c.SilentAt) != std::string::npos) << c.SilentAt;
    }
}

TEST(Calibration, SendsItsFramesWithTheirPauses) {
    CalibrationBench bench;
    bench.Pump.After(15000, [&] { bench.Port.Gone = true; });
    EXPECT_EQ(RunOn(bench).LinkError, 27) << "behind the last reply the line went";
    EXPECT_EQ(bench.Port.Story(),
              "300 *1A1; 800 *1X311Z; 1560 *1X124Z; 1560 *1W12B0000Z; 1300 *1W3110000000DBBA0Z; "
              "1300 *1W1240700; 3300 *1B1; 1560 *1W3118000FF0186A0Z; 1300 *1W1240500Z; 1300 *1W12B801E");
}

}  // namespace
}  // namespace counter::test

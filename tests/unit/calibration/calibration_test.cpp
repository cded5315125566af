// The procedure on a meter with a wrong time base: frames and pauses, and what the meter is left with.
#include "calibration/calibration.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "time_base_meter.h"

namespace counter::test {
namespace {

CalibrationResult RunOn(CalibrationBench& bench, const std::string& frequency = "1000") {
    return RunCalibration(bench.Program.Link, frequency, {});
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
        EXPECT_TRUE(result.Good()) << text;
    }
}

// A write that the meter did not take costs no more than its word: what follows is sent all the same, and
// what the meter has instead comes out when it is read back.
TEST(Calibration, ALostWriteIsFoundWhenItIsReadBack) {
    const struct {
        const char *SilentAt, *Words, *NotKept;
    } cases[] = {
        // clang-format off
        {"W12B0000Z",         "8000FF0186A0 0500 0046", ""},  // measured with the old factor in the way
        {"W3110000000DBBA0Z", "8000FF0186A0 0500 752F", ""},
        {"W1240700",          "8000FF0186A0 0500 752F", ""},
        {"W3118000FF0186A0Z", "0000000DBBA0 0500 801E", "offset and scale factor: 8000FF0186A0 was written, \"0000000DBBA0\" comes back"},
        {"W1240500Z",         "8000FF0186A0 0700 801E", "exponent: 0500 was written, \"0700\" comes back"},
        {"W12B801E",          "8000FF0186A0 0500 0000", "calibration factor: 801E was written, \"0000\" comes back"},
        // clang-format on
    };
    for (const auto& c : cases) {
        CalibrationBench bench;
        bench.Meter.SilentAt = c.SilentAt;
        const CalibrationResult result = RunOn(bench);
        EXPECT_EQ(result.NotKept, c.NotKept) << c.SilentAt;
        EXPECT_EQ(result.LinkError, *c.NotKept == '\0' ? 0 : 3) << c.SilentAt;
        EXPECT_EQ(bench.Meter.Words(), c.Words) << c.SilentAt;
        EXPECT_TRUE(bench.Port.Story().find(c.SilentAt) != std::string::npos) << c.SilentAt;
    }
}

// What is no value is asked about; who does not go on has the meter as it was.
TEST(Calibration, ADoubtIsAsked) {
    const std::string untouched = "8000FF0186A0 0500 8064";
    const struct {
        const char *Garbled, *Garbage;
        double ErrorPpm;
        const char* Asks;
        int LinkError;
        CalibrationEnd End;
    } cases[] = {
        // clang-format off
        {"X311Z", "8000FF0186A",  30,    "did not come whole",       1, CalibrationEnd::Untouched},
        {"X311Z", "8000FF01w6A0", 30,    "did not come whole",       1, CalibrationEnd::Untouched},
        {"X124Z", "-",            30,    "did not come whole",      21, CalibrationEnd::Untouched},
        {"B1",    "------",       30,    "sends no reading",         4, CalibrationEnd::Untouched},
        {"B1",    " 000000.",     30,    "is the frequency at the",  4, CalibrationEnd::Untouched},
        {"",      "",             40000, "is the frequency at the",  4, CalibrationEnd::PutBack},
        // clang-format on
    };
    for (const auto& c : cases) {
        CalibrationBench bench({1000, c.ErrorPpm, "", c.Garbled, c.Garbage});
        std::string asked;
        const CalibrationResult result =
            RunCalibration(bench.Program.Link, "1000", {.GoOn = [&](const std::string& doubt) {
                               asked += doubt;
                               return false;
                           }});
        EXPECT_NE(asked.find(c.Asks), std::string::npos) << asked;
        EXPECT_EQ(result.Doubt, asked);
        EXPECT_EQ(result.LinkError, c.LinkError) << asked;
        EXPECT_EQ(result.End, c.End) << asked;
        EXPECT_EQ(bench.Meter.Words(), untouched) << asked;
        const bool wrote = bench.Port.Story().find("*1W") != std::string::npos;
        EXPECT_EQ(wrote, c.End == CalibrationEnd::PutBack) << asked;
    }
}

// Whenever the end is wanted, the meter has what it had or all that is new, and few seconds later.
TEST(Calibration, TheEndLeavesAWholeMeter) {
    for (double ms = 50; ms < 19000; ms += 150) {
        CalibrationBench bench;
        bool wanted = false;
        bench.Pump.After(ms, [&] { wanted = true; });
        const CalibrationResult result =
            RunCalibration(bench.Program.Link, "1000", {.EndWanted = [&] { return wanted; }});
        const bool calibrated = result.End == CalibrationEnd::Calibrated;
        EXPECT_EQ(bench.Meter.Words(), calibrated ? "8000FF0186A0 0500 801E" : "8000FF0186A0 0500 8064")
            << ms;
        EXPECT_EQ(result.End == CalibrationEnd::Untouched, ms < 5040) << ms;
        EXPECT_EQ(calibrated, ms > 10940) << ms;
        EXPECT_EQ(result.NotKept + result.Doubt, "") << ms;
        EXPECT_LE(bench.Pump.NowMs(), ms + 8200) << ms;
    }
}

TEST(Calibration, SendsItsFramesWithTheirPauses) {
    CalibrationBench bench;
    bench.Pump.After(17200, [&] { bench.Port.Gone = true; });
    EXPECT_EQ(RunOn(bench).LinkError, 27) << "behind the correction the line went";
    EXPECT_EQ(bench.Port.Story(),
              "300 *1A1; 800 *1X311Z; 1560 *1X124Z; 1560 *1X12BZ; 560 *1B1; 560 *1W12B0000Z; 1300 "
              "*1W3110000000DBBA0Z; "
              "1300 *1W1240700; 3300 *1B1; 1560 *1W3118000FF0186A0Z; 1300 *1W1240500Z; 1300 *1W12B801E; "
              "1300 *1X311Z; 560 *1X124Z; 300 *1X12BZ");
}

}  // namespace
}  // namespace counter::test

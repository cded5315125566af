// The numbers of a calibration against figures worked out by hand.
#include "calibration/calibration_numbers.h"

#include <gtest/gtest.h>

#include <map>

namespace counter::test {
namespace {

TEST(Scale, OfATextThatMeansAFrequencyOr1) {
    const struct {
        const char *Text, *Mantissa;
        const char* Word;  // of 8507: only the last digit of the exponent goes into it
    } cases[] = {
        // clang-format off
        {"1000",   "0DBBA0", "8707"}, {"900000", "0186A0", "8507"}, {"2000000",  "06DDD0", "8407"}, {"9.5",    "0E74A8", "8907"},
        {"9",      "0186A0", "8007"}, {".5",     "02BF20", "8107"}, {"9e13",     "0186A0", "8307"}, {" 1e3Hz", "0DBBA0", "8707"},
        {"1",      "0DBBA0", "8007"}, {"1,000",  "0DBBA0", "8007"}, {"",         "0DBBA0", "8007"}, {"abc",    "0DBBA0", "8007"},
        {"0.0",    "0DBBA0", "8007"}, {"-1000",  "0DBBA0", "8007"}, {"1e400",    "0DBBA0", "8007"}, {"1e-310", "0DBBA0", "8007"},
        // clang-format on
    };
    for (const auto& c : cases) {
        const TestScale scale = TestScaleFor(FrequencyOf(c.Text));
        EXPECT_EQ(scale.Mantissa, c.Mantissa) << c.Text;
        EXPECT_EQ(WithExponent("8507", scale.Exponent), c.Word) << c.Text;
    }
}

TEST(Correction, IsTheNearestPartPerMillionAndLimited) {
    const struct {
        const char* Reply;
        int Ppm;
        bool Limited;
        const char* Word;
    } cases[] = {
        // clang-format off
        {"900027", -30,    false, "801E"}, {"9000.27", -30,    false, "801E"}, {"899973", 30,    false, "001E"},
        {"900000", 0,      false, "0000"}, {".900000", 0,      false, "0000"}, {"900001", -1,    false, "8001"},
        {"926999", -29999, false, "F52F"}, {"873001",  29999,  false, "752F"}, {"873000", 29999, true,  "752F"},
        {"927000", -29999, true,  "F52F"}, {"",        29999,  true,  "752F"},
        // clang-format on
    };
    for (const auto& c : cases) {
        const Correction correction = CorrectionFor(ReadingOf(c.Reply));
        EXPECT_EQ(correction.Ppm, c.Ppm) << c.Reply;
        EXPECT_EQ(correction.Limited, c.Limited) << c.Reply;
        EXPECT_EQ(CorrectionWord(correction.Ppm), c.Word) << c.Reply;
    }
}

TEST(Calibration, AFrequencyThatCannotBeMeantIsDoubted) {
    const std::map<std::string_view, std::string_view> cases = {
        // clang-format off
        {" 59.94 ", ""}, {"+1e3", ""}, {"9.001", ""}, {"", "No frequency was entered: 1 Hertz is"},
        {"1.000,5", "\"1.000,5\" is no frequency: 1 Hertz is"}, {"1000 Hz", "\"1000 Hz\" is no frequency: 1000 H"},
        {"9", "At 9 Hertz the meter's scale has no room "}, {"1e12", "At 1e+12 Hertz the meter's scale has no"},
        // clang-format on
    };
    for (const auto& [typed, doubt] : cases)
        EXPECT_EQ(DoubtOfFrequency(typed).substr(0, std::max<std::size_t>(doubt.size(), 1)), doubt);
}

}  // namespace
}  // namespace counter::test

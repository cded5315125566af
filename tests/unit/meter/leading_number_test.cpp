#include "meter/leading_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace counter {
namespace {

TEST(LeadingNumber, TakesWhatTheTextBeginsWith) {
    const std::pair<const char*, double> cases[] = {
        // clang-format off
        {"",      0}, {"   ",   0},    {"+123.45", 123.45}, {" 001234.5\r", 1234.5}, {"-  12.5", -12.5},
        {"1,000", 1}, {"1.2.3", 1.2},  {"12AB",    12},     {"ABC",         0},      {"--5",     0},
        {"-",     0}, {".",     0},    {".5",      0.5},    {"5.",          5},      {"2e3",     2000},
        {"2e",    2}, {"inf",   0},    {"nan",     0},      {"1e999",       HUGE_VAL}, {"-1e999", -HUGE_VAL},
        {"1e-999", 0}, {"0x10", 0},    {"1 000",   1000},
        // clang-format on
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << "\"" << text << "\"";
}

TEST(LeadingNumber, HalvesGoToTheEvenNumber) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.51), 3);
}

}  // namespace
}  // namespace counter

// Round numbers, and the scale that readings fill.
#include "readings/auto_scale.h"

#include <gtest/gtest.h>

#include "readings/chart_span.h"
#include "readings/nice_numbers.h"

namespace counter::test {
namespace {

TEST(NiceNumbers, AreOneTwoAndFive) {
    const std::pair<double, double> cases[] = {{0.3, 0.5}, {1, 1},      {1.01, 2}, {2.1, 5}, {0.051, 0.1},
                                               {5, 5},     {777, 1000}, {0, 1},    {-3, 1},  {1.0 / 0.0, 1}};
    for (const auto& [least, nice] : cases) EXPECT_DOUBLE_EQ(NiceAtLeast(least), nice) << least;
    EXPECT_EQ(DecimalsOfStep(0.05), 2);
    EXPECT_EQ(DecimalsOfStep(0.1), 1);
    EXPECT_EQ(DecimalsOfStep(20), 0);
    EXPECT_EQ(DecimalsOfStep(1e-9), 6);
}

TEST(NiceNumbers, LieAlongASpanInEitherDirection) {
    std::string there, back;
    AlongSpan(0.95, 1.52, 0.2, [&](double, const std::string& text) { there += text + " "; });
    AlongSpan(2, -2, 0.4, [&](double part, const std::string& text) {
        back += text + "@" + std::to_string(static_cast<int>(part * 100)) + " ";
    });
    EXPECT_EQ(there, "1.0 1.2 1.4 ");
    EXPECT_EQ(back, "-2@100 0@50 2@0 ");
}

TEST(AutoScale, TheReadingsFillTheChartInRoundNumbers) {
    const struct {
        std::vector<double> Readings;
        int Decimals;
        const char *Mid, *Small;
    } cases[] = {{{480, 520}, 0, "500", "2"},
                 {{499.8}, 1, "500.0", "0.1"},
                 {{-0.001, 0.0021}, 3, "0.000", "0.001"},
                 {{0, 123456}, 0, "50000", "5000"},
                 {{7, 7, 7}, 0, "5", "1"}};
    for (const auto& c : cases) {
        RecentReadings recent;
        for (const double reading : c.Readings) recent.Add(reading, c.Decimals);
        const auto scale = AutoScale(recent, 30);
        ASSERT_TRUE(scale);
        EXPECT_EQ(scale->Mid, c.Mid);
        EXPECT_EQ(scale->Small, c.Small);
    }
    RecentReadings recent;
    EXPECT_FALSE(AutoScale(recent, 30));
    recent.Add(1e9, 0);
    for (std::size_t i = 0; i < RecentReadings::kMost; ++i) recent.Add(10, 0);
    EXPECT_EQ(AutoScale(recent, 30)->Mid, "10") << "the latest count";
}

}  // namespace
}  // namespace counter::test

// What the axes say.
#include "readings/chart_labels.h"

#include <gtest/gtest.h>

namespace counter::test {
namespace {

TEST(ValueScale, LabelsHaveTheDecimalsThatWereTyped) {
    // clang-format off
    const struct {
        const char *Mid, *Small;
        const char *Lowest, *Middle, *Next;  // 20 divisions below the middle, the middle, 5 above
    } cases[] = {
        {"0",          "1",         "-20.",       "0.",         "5."},
        {"   ",        "         ", "-20.",       "0.",         "5."},
        {" 100.5 ",    "0.25",      "95.50",      "100.50",     "101.75"},
        {"123.4",      ".000001",   "123.399980", "123.400000", "123.400005"},
        {"1.12345678", "1",         "-18.876543", "1.123457",   "6.123457"},
        {"0.1",        "0.005",     "0.000",      "0.100",      "0.125"},
        {"50",         "-1",        "70.",        "50.",        "45."},
        {"100,5",      "0,25",      "95.50",      "100.50",     "101.75"},
        {"1,000.5",    "1,2,3",     "-19.0",      "1.0",        "6.0"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const ValueScale scale = ReadValueScale(c.Mid, c.Small);
        EXPECT_EQ(ValueLabel(scale, -20), c.Lowest) << c.Mid << " by " << c.Small;
        EXPECT_EQ(ValueLabel(scale, 0), c.Middle) << c.Mid << " by " << c.Small;
        EXPECT_EQ(ValueLabel(scale, 5), c.Next) << c.Mid << " by " << c.Small;
    }
    EXPECT_GT(ReadValueScale("1", "1e99").SmallDiv, 3e38F) << "still a number";
    EXPECT_EQ(ReadValueScale("1", "1e-60").SmallDiv, 1) << "nothing is left of it";
}

TEST(Typed, OnlyATextWithoutAnyNumberIsNone) {
    const std::pair<const char*, Typed> cases[] = {{"", Typed::Number},
                                                   {"         ", Typed::Number},
                                                   {" -60 ", Typed::Number},
                                                   {"1,5", Typed::Number},
                                                   {".5e-3", Typed::Number},
                                                   {"5.", Typed::Number},
                                                   {"12abc", Typed::NumberAndMore},
                                                   {"1,000.5", Typed::NumberAndMore},
                                                   {"5e", Typed::NumberAndMore},
                                                   {"abc", Typed::NoNumber},
                                                   {"-", Typed::NoNumber},
                                                   {".", Typed::NoNumber},
                                                   {"e5", Typed::NoNumber},
                                                   {",5x", Typed::NumberAndMore}};
    for (const auto& [text, typed] : cases) EXPECT_EQ(JudgeTyped(text), typed) << text;
}

TEST(TimeLabel, EndsInAPointAndHasNoZeroBeforeIt) {
    // clang-format off
    const std::pair<double, const char*> cases[] = {
        {0, "0"}, {60, "60."}, {0.5, ".5"}, {12.25, "12.25"}, {100, "100."}, {86400, "86400."}, {1e-9, "."},
        {1.2345678, "1.234568"}, {3 * AsTyped(123.4F) / 10, "37.02"}};
    // clang-format on
    for (const auto& [seconds, text] : cases) EXPECT_EQ(TimeLabel(seconds), text);
}

}  // namespace
}  // namespace counter::test

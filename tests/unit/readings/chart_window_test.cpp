// Looking closer: parts of a chart, and the points that are kept for it.
#include "readings/chart_window.h"

#include <gtest/gtest.h>

#include "readings/trace_points.h"

namespace counter::test {
namespace {

TEST(ChartWindow, ZoomKeepsThePlaceAndNothingLeavesTheChart) {
    const ChartWindow half = ZoomedAt({}, 2, 0.5, 0.25);
    EXPECT_EQ(half, (ChartWindow{0.25, 0.75, 0.125, 0.625}));
    EXPECT_DOUBLE_EQ(half.XOf(0.5), 0.5);
    EXPECT_DOUBLE_EQ(half.Across(half.XOf(0.3)), 0.3);
    EXPECT_EQ(Moved(half, -9, 9), (ChartWindow{0, 0.5, 0.5, 1}));
    EXPECT_TRUE(ZoomedAt(half, 0.1, 0.9, 0.9).IsWhole());
    EXPECT_EQ(PartOf(half, 1, 0, 0.5, 0.5), (ChartWindow{0.5, 0.75, 0.125, 0.375}));
    const ChartWindow dot = PartOf({}, 0.999999, 1, 1, 1);
    EXPECT_NEAR(dot.Right - dot.Left, 0.001, 1e-12);
    EXPECT_TRUE(dot.Right <= 1 && dot.Top <= 1);
}

TEST(TracePoints, AreBoundedAndLoseNoPeak) {
    TracePoints points;
    for (int i = 0; i < 100'000; ++i) points.Add({i * 0.1, i == 4321 ? 99.0 : i == 8765 ? -99.0 : i % 3});
    EXPECT_LE(points.All().size(), TracePoints::kMost);
    EXPECT_EQ(points.All()[points.Nearest(432.1)].Value, 99);
    EXPECT_EQ(points.All()[points.Nearest(876.5)].Value, -99);
    EXPECT_EQ(points.Nearest(-1), 0U);
    EXPECT_EQ(points.Nearest(1e9), points.All().size() - 1);
    points.DropBefore(9999.85);
    EXPECT_LE(points.All().front().Seconds, 9999.85) << "the line that comes in has its beginning";
    EXPECT_GT(points.All()[1].Seconds, 9999.85);
}

}  // namespace
}  // namespace counter::test

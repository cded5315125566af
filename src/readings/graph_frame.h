// The parts of a graph: axes, labels, bars and arrows, and the chart's units.
#pragma once

#include <array>

#include "platform/chart_surface.h"
#include "readings/chart_labels.h"

namespace counter {

inline constexpr int kBins = 31;
inline constexpr int kMiddleBin = 15;

using BinCounts = std::array<float, kBins>;

// Clears the chart and draws the frame of a run. The top of the chart stands for `barScale`, above 0.
void DrawGraphFrame(ChartSurface& chart, const ValueScale& scale, float barScale);

// The count axis anew, over the old labels. Labels are whole numbers, whatever a fifth of the scale is.
void DrawCountAxis(ChartSurface& chart, float barScale);

// What readings add to a bar that had `before` and now has `count`.
void DrawSlice(ChartSurface& chart, int bin, float before, float count, float barScale);
// All bars anew, over the old ones.
void DrawBars(ChartSurface& chart, const BinCounts& counts, float barScale);

// The arrow that tells of readings below or above the bars, and its erasing.
enum class Side { Low, High };
void DrawArrow(ChartSurface& chart, Side side);
void EraseArrow(ChartSurface& chart, Side side);

}  // namespace counter

// The frame of a plot: axes, ticks, grid and labels, and the chart's units.
#pragma once

#include "platform/chart_surface.h"
#include "readings/chart_labels.h"

namespace counter {

// x 0..1000 is the sweep, y -200..200 are 20 small divisions to either side of the middle value.
inline constexpr double kPlotLeft = -150;
inline constexpr double kPlotTop = 215;
inline constexpr double kPlotRight = 1020;
inline constexpr double kPlotBottom = -250;
inline constexpr double kSweepEnd = 1000;

// Clears the chart and draws the frame of a sweep of `plotTime` seconds, above 0.
void DrawPlotFrame(ChartSurface& chart, const ValueScale& scale, float plotTime);

}  // namespace counter

// PlotTrace: the trace of one sweep, as lines on the chart.
#pragma once

#include <array>

#include "platform/chart_surface.h"

namespace counter {

// The record stays small however fast the meter sends and however long a sweep takes: what would change
// nothing in the picture isn't recorded, that is a stroke within its own column (x is whole) that earlier
// strokes of the same column cover, and one that lies left of the chart altogether.
class PlotTrace {
  public:
    // A point at (0, y).
    void Start(ChartSurface& chart, double y);
    // A line of width 1 or 2 from the point before.
    void LineTo(ChartSurface& chart, double x, double y, int width);

  private:
    // What is drawn of the column, y from Low to High; empty where Low is above High.
    struct Stroke {
        double Low = 1;
        double High = 0;
    };
    bool Covered(double low, double high, int width) const;
    void Remember(double low, double high, int width);

    double x_ = 0;
    double y_ = 0;
    std::array<Stroke, 2> column_;  // of the column x_, by width 1 and 2
};

}  // namespace counter

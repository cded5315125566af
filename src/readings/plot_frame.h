// What a strip chart is drawn of, whichever way it runs: axes and labels, heights, the line of the trace.
#pragma once

#include <array>

#include "platform/chart_surface.h"
#include "readings/chart_labels.h"
#include "readings/trace_points.h"

namespace counter {

// x 0..1000 is the time, y -200..200 are 20 small divisions to either side of the middle value.
inline constexpr double kPlotWidth = 1000;
inline constexpr double kPlotHeight = 200;  // to either side
inline constexpr double kPlotDivisions = 20;

// Clears the chart and draws axes, grid and labels of `plotTime` seconds, above 0. Times go from 0 up, or,
// where they end at the newest reading, up to 0.
enum class PlotTimes { FromStart, BeforeNewest };
void DrawPlotFrame(ChartSurface& chart, const ValueScale& scale, float plotTime,
                   PlotTimes times = PlotTimes::FromStart);

// One small division is 10 units, and the middle value lies at 0; a whole number, far off the scale where the
// value is.
double PlotHeightOf(const ValueScale& scale, double value);

// Where a reading is drawn. A trace off the scale runs along a rail, as a thin line where it did so before.
struct TraceStep {
    double Y = 0;
    int Width = 2;
};
// `lastY` is the height of the reading before, and becomes this one's.
TraceStep StepTo(const ValueScale& scale, double value, float& lastY);

// The trace of one sweep, as lines on the chart.
//
// The record stays small however fast the meter sends and however long a sweep takes: what would change
// nothing in the picture isn't recorded, that is a stroke within its own column (x is whole) that earlier
// strokes of the same column cover, and one that lies left of the chart altogether.
class PlotTrace {
  public:
    // A point at (x, y).
    void Start(ChartSurface& chart, double y, double x = 0, ChartInk ink = ChartInk::Plain);
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
    ChartInk ink_ = ChartInk::Plain;
    std::array<Stroke, 2> column_;  // of the column x_, by width 1 and 2
};

// A part of a strip chart seen larger: a span of time and of values, with round numbers along it, and what
// lies in it of the traces.
struct PlotSpan {
    double From = 0, To = 1;         // seconds
    double Lowest = 0, Highest = 1;  // values
    double Zero = 0;                 // the time that is called 0
};
void DrawPlotSpan(ChartSurface& chart, const PlotSpan& span);
void DrawTraceInSpan(ChartSurface& chart, const PlotSpan& span, const TracePoints& points, ChartInk ink);

}  // namespace counter

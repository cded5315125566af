// RollingTrace: the strip chart's second way. The last seconds of the readings slide through the chart, the
// newest at its right edge.
#pragma once

#include "platform/chart_surface.h"
#include "readings/plot_frame.h"
#include "readings/trace_points.h"

namespace counter {

class RollingTrace {
  public:
    // From now on with this scale; `seconds`, above 0, are on show at a time.
    void Start(const ValueScale& scale, float seconds);
    // `seconds` go up from one reading to the next. What has left the chart is forgotten.
    void Add(double seconds, double value);
    // A second value of the same reading.
    void AddSecond(double seconds, double value);
    void DropSecond() { second_.Clear(); }
    // Everything anew: frame, traces.
    void Draw(ChartSurface& chart) const;

    const TracePoints& First() const { return first_; }
    const TracePoints& Second() const { return second_; }
    double Newest() const { return newest_; }

  private:
    void DrawTrace(ChartSurface& chart, const TracePoints& points, ChartInk ink) const;

    ValueScale scale_;
    float seconds_ = 1;
    double newest_ = 0;
    TracePoints first_, second_;
};

}  // namespace counter

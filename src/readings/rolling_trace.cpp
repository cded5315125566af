#include "readings/rolling_trace.h"

#include "meter/leading_number.h"

namespace counter {

void RollingTrace::Start(const ValueScale& scale, float seconds) {
    *this = {};
    scale_ = scale;
    seconds_ = seconds;
}

void RollingTrace::Add(double seconds, double value) {
    newest_ = seconds;
    const double oldest = seconds - AsTyped(seconds_);
    first_.Add({seconds, value});
    first_.DropBefore(oldest);
    second_.DropBefore(oldest);
}

void RollingTrace::AddSecond(double seconds, double value) {
    second_.Add({seconds, value});
}

void RollingTrace::Draw(ChartSurface& chart) const {
    DrawPlotFrame(chart, scale_, seconds_, PlotTimes::BeforeNewest);
    DrawTrace(chart, first_, ChartInk::Plain);
    DrawTrace(chart, second_, ChartInk::Second);
}

// The line that comes from beyond the left edge begins at it, at the height that it has there.
void RollingTrace::DrawTrace(ChartSurface& chart, const TracePoints& points, ChartInk ink) const {
    const double left = newest_ - AsTyped(seconds_);
    PlotTrace trace;
    float lastY = 0;
    bool first = true;
    for (std::size_t i = 0; i < points.All().size(); ++i) {
        TracePoint point = points.All()[i];
        if (point.Seconds < left) {
            if (i + 1 == points.All().size()) return;
            const TracePoint& next = points.All()[i + 1];
            const double part = (left - point.Seconds) / (next.Seconds - point.Seconds);
            point = {left, point.Value + part * (next.Value - point.Value)};
        }
        const double x = RoundHalfEven((point.Seconds - left) * kPlotWidth / AsTyped(seconds_));
        const TraceStep step = StepTo(scale_, point.Value, lastY);
        if (first) {
            trace.Start(chart, step.Y, x, ink);
        } else {
            trace.LineTo(chart, x, step.Y, step.Width);
        }
        first = false;
    }
}

}  // namespace counter

#include "readings/plot_trace.h"

#include <algorithm>

#include "readings/plot_frame.h"

namespace counter {

void PlotTrace::Start(ChartSurface& chart, double y) {
    chart.Draw(ChartPoint{0, y, 2});
    *this = {};
    y_ = y;
    Remember(y, y, 2);
}

void PlotTrace::LineTo(ChartSurface& chart, double x, double y, int width) {
    const ChartLine line{x_, y_, x, y, width, LineStyle::Solid};
    x_ = x;
    y_ = y;
    if (std::max(line.X1, x) < kPlotLeft) return;
    if (line.X1 != x) {
        column_ = {};
        Remember(y, y, width);
        chart.Draw(line);
        return;
    }
    const auto [low, high] = std::minmax(line.Y1, y);
    if (Covered(low, high, width)) return;
    Remember(low, high, width);
    chart.Draw(line);
}

bool PlotTrace::Covered(double low, double high, int width) const {
    return std::any_of(column_.begin() + (width - 1), column_.end(),
                       [&](const Stroke& stroke) { return stroke.Low <= low && high <= stroke.High; });
}

void PlotTrace::Remember(double low, double high, int width) {
    Stroke& stroke = column_[static_cast<std::size_t>(width) - 1];
    const bool empty = stroke.Low > stroke.High;
    stroke.Low = empty ? low : std::min(stroke.Low, low);
    stroke.High = empty ? high : std::max(stroke.High, high);
}

}  // namespace counter

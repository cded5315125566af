#include "readings/chart_window.h"

#include <algorithm>

namespace counter {

namespace {

constexpr double kSmallest = 0.001;

// One of both directions.
struct Span {
    double Low, High;
};

Span Fitted(Span span) {
    const double length = std::clamp(span.High - span.Low, kSmallest, 1.0);
    const double low = std::clamp(span.Low, 0.0, 1 - length);
    return {low, low + length};
}

Span Zoomed(Span span, double factor, double at) {
    const double length = std::clamp((span.High - span.Low) / factor, kSmallest, 1.0);
    const double fixed = span.Low + at * (span.High - span.Low);
    return Fitted({fixed - at * length, fixed - at * length + length});
}

ChartWindow Of(Span x, Span y) {
    return {x.Low, x.High, y.Low, y.High};
}

}  // namespace

ChartWindow ZoomedAt(const ChartWindow& window, double factor, double x, double y) {
    return Of(Zoomed({window.Left, window.Right}, factor, x), Zoomed({window.Bottom, window.Top}, factor, y));
}

ChartWindow Moved(const ChartWindow& window, double right, double up) {
    const double dx = right * (window.Right - window.Left);
    const double dy = up * (window.Top - window.Bottom);
    return Of(Fitted({window.Left + dx, window.Right + dx}), Fitted({window.Bottom + dy, window.Top + dy}));
}

ChartWindow PartOf(const ChartWindow& window, double x1, double y1, double x2, double y2) {
    const auto [left, right] = std::minmax({window.XOf(x1), window.XOf(x2)});
    const auto [bottom, top] = std::minmax({window.YOf(y1), window.YOf(y2)});
    return Of(Fitted({left, right}), Fitted({bottom, top}));
}

}  // namespace counter

#include "readings/plot_frame.h"

#include <algorithm>
#include <cmath>

#include "meter/leading_number.h"
#include "readings/chart_span.h"

namespace counter {

namespace {

constexpr double kPlotLeft = -150;
constexpr double kPlotTop = 215;
constexpr double kPlotRight = 1020;
constexpr double kPlotBottom = -250;

// The rails are not alike, which is required.
constexpr double kHighest = 200;
constexpr double kUpperRail = 210;
constexpr double kLowest = -200;
constexpr double kLowerRail = -205;

// Round numbers along a span are at least this far from one another, as parts of it.
constexpr double kTimesApart = 0.1;
constexpr double kPlotValuesApart = 0.125;

void Solid(ChartSurface& chart, double x1, double y1, double x2, double y2) {
    chart.Draw(ChartLine{x1, y1, x2, y2, 2, LineStyle::Solid});
}

void Dotted(ChartSurface& chart, double x1, double y1, double x2, double y2) {
    chart.Draw(ChartLine{x1, y1, x2, y2, 1, LineStyle::Dotted});
}

void DrawAxes(ChartSurface& chart) {
    Solid(chart, 0, 210, 0, -210);
    Solid(chart, 0, -210, 1000, -210);
}

void DrawTicks(ChartSurface& chart) {
    for (int i = 0; i <= 20; ++i) {
        const double from = i % 5 == 0 ? -30 : -15;
        Solid(chart, from, 10 * i, 0, 10 * i);
        Solid(chart, from, -10 * i, 0, -10 * i);
    }
    for (int i = 0; i <= 10; ++i) Solid(chart, 100 * i, -210, 100 * i, -220);
    for (int i = 1; i <= 10; ++i) Solid(chart, 100 * i - 50, -210, 100 * i - 50, -215);
}

void DrawGrid(ChartSurface& chart) {
    for (int y = 0; y <= 200; y += 50) {
        Dotted(chart, 0, y, 1000, y);
        if (y > 0) Dotted(chart, 0, -y, 1000, -y);
    }
    for (int x = 0; x <= 1000; x += 100) Dotted(chart, x, -210, x, 210);
}

void DrawValueLabels(ChartSurface& chart, const ValueScale& scale) {
    for (int i = -20; i <= 20; i += 5)
        chart.Draw(ChartText{ValueLabel(scale, i), TextAnchor::Right, -35, 10.0 * i + 18, 1});
}

void DrawTimeLabel(ChartSurface& chart, int place, const std::string& text) {
    // The last label would leave the chart at the right, so it ends at its edge.
    if (place == 10) {
        chart.Draw(ChartText{text, TextAnchor::Right, kPlotRight, -230, -1});
    } else {
        chart.Draw(ChartText{text, TextAnchor::Center, 100.0 * place, -230, -1});
    }
}

void DrawTimeLabels(ChartSurface& chart, float plotTime, PlotTimes times) {
    for (int i = 0; i <= 10; ++i) {
        const int tenths = times == PlotTimes::FromStart ? i : 10 - i;
        const std::string text = TimeLabel(tenths * AsTyped(plotTime) / 10);
        const bool before = times == PlotTimes::BeforeNewest && tenths > 0;
        DrawTimeLabel(chart, i, before ? "-" + text : text);
    }
}

// A line clipped to the data area, which both ends may lie outside of; false: nothing is left.
bool Clip(ChartLine& line) {
    double from = 0, to = 1;
    const double dx = line.X2 - line.X1, dy = line.Y2 - line.Y1;
    const std::pair<double, double> edges[] = {{-dx, line.X1},
                                               {dx, kPlotWidth - line.X1},
                                               {-dy, line.Y1 + kPlotHeight},
                                               {dy, kPlotHeight - line.Y1}};
    for (const auto& [along, room] : edges) {
        if (along == 0 && room < 0) return false;
        if (along < 0) from = std::max(from, room / along);
        if (along > 0) to = std::min(to, room / along);
    }
    if (from >= to) return false;  // it touches a corner at most
    line = {line.X1 + from * dx, line.Y1 + from * dy, line.X1 + to * dx, line.Y1 + to * dy,
            line.Width,          line.Style,          line.Ink};
    return true;
}

}  // namespace

void DrawPlotFrame(ChartSurface& chart, const ValueScale& scale, float plotTime, PlotTimes times) {
    chart.SetScale(kPlotLeft, kPlotTop, kPlotRight, kPlotBottom);
    DrawAxes(chart);
    DrawTicks(chart);
    DrawGrid(chart);
    DrawValueLabels(chart, scale);
    DrawTimeLabels(chart, plotTime, times);
}

double PlotHeightOf(const ValueScale& scale, double value) {
    const double small = AsTyped(scale.SmallDiv);
    const double bottom = AsTyped(scale.MidValue) - small * 20;
    return WholeUnits((value - bottom) * 400 / (small * 40) - 200);
}

TraceStep StepTo(const ValueScale& scale, double value, float& lastY) {
    TraceStep step{PlotHeightOf(scale, value), 2};
    if (step.Y > kHighest) {
        step.Y = kUpperRail;
        if (lastY > kHighest) step.Width = 1;
    }
    if (step.Y < kLowest) {
        step.Y = kLowerRail;
        if (lastY < kLowest) step.Width = 1;
    }
    lastY = static_cast<float>(step.Y);
    return step;
}

void PlotTrace::Start(ChartSurface& chart, double y, double x, ChartInk ink) {
    chart.Draw(ChartPoint{x, y, 2, ink});
    *this = {};
    ink_ = ink;
    x_ = x;
    y_ = y;
    Remember(y, y, 2);
}

void PlotTrace::LineTo(ChartSurface& chart, double x, double y, int width) {
    const ChartLine line{x_, y_, x, y, width, LineStyle::Solid, ink_};
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

void DrawPlotSpan(ChartSurface& chart, const PlotSpan& span) {
    chart.SetScale(kPlotLeft, kPlotTop, kPlotRight, kPlotBottom);
    DrawAxes(chart);
    AlongSpan(span.Lowest, span.Highest, kPlotValuesApart, [&](double part, const std::string& text) {
        const double y = (2 * part - 1) * kPlotHeight;
        Solid(chart, -15, y, 0, y);
        Dotted(chart, 0, y, kPlotWidth, y);
        chart.Draw(ChartText{text, TextAnchor::Right, -35, y + 18, 1});
    });
    AlongSpan(span.From - span.Zero, span.To - span.Zero, kTimesApart, [&](double part, const std::string&) {
        Solid(chart, part * kPlotWidth, -210, part * kPlotWidth, -220);
        Dotted(chart, part * kPlotWidth, -210, part * kPlotWidth, 210);
    });
    AlongSpan(span.From - span.Zero, span.To - span.Zero, kTimesApart,
              [&](double part, const std::string& text) {
                  chart.Draw(ChartText{text, TextAnchor::Center, part * kPlotWidth, -230, -1});
              });
}

void DrawTraceInSpan(ChartSurface& chart, const PlotSpan& span, const TracePoints& points, ChartInk ink) {
    const auto x = [&](const TracePoint& p) {
        return (p.Seconds - span.From) / (span.To - span.From) * kPlotWidth;
    };
    const auto y = [&](const TracePoint& p) {
        return ((p.Value - span.Lowest) / (span.Highest - span.Lowest) * 2 - 1) * kPlotHeight;
    };
    const std::vector<TracePoint>& all = points.All();
    for (std::size_t i = 1; i < all.size(); ++i) {
        ChartLine line{x(all[i - 1]), y(all[i - 1]), x(all[i]), y(all[i]), 2, LineStyle::Solid, ink};
        if (Clip(line)) chart.Draw(line);
    }
}

}  // namespace counter

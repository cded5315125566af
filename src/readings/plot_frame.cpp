#include "readings/plot_frame.h"

namespace counter {

namespace {

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

// The last label would leave the chart at the right, so it ends at its edge.
void DrawTimeLabels(ChartSurface& chart, float plotTime) {
    for (int i = 0; i < 10; ++i) {
        const std::string text = TimeLabel(i * AsTyped(plotTime) / 10);
        chart.Draw(ChartText{text, TextAnchor::Center, 100.0 * i, -230, -1});
    }
    chart.Draw(ChartText{TimeLabel(AsTyped(plotTime)), TextAnchor::Right, kPlotRight, -230, -1});
}

}  // namespace

void DrawPlotFrame(ChartSurface& chart, const ValueScale& scale, float plotTime) {
    chart.SetScale(kPlotLeft, kPlotTop, kPlotRight, kPlotBottom);
    DrawAxes(chart);
    DrawTicks(chart);
    DrawGrid(chart);
    DrawValueLabels(chart, scale);
    DrawTimeLabels(chart, plotTime);
}

}  // namespace counter

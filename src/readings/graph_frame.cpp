#include "readings/graph_frame.h"

#include <cstdio>

#include "meter/leading_number.h"

namespace counter {

namespace {

// The left and right edge of a bar; each stands on a tick.
double BarLeft(int bin) {
    return 30.0 * bin + 20;
}
double BarRight(int bin) {
    return 30.0 * bin + 40;
}

double HeightOf(float count, float barScale) {
    return static_cast<double>(count) * 1000 / static_cast<double>(barScale);
}

void Solid(ChartSurface& chart, double x1, double y1, double x2, double y2) {
    chart.Draw(ChartLine{x1, y1, x2, y2, 2, LineStyle::Solid});
}

std::string WholeNumber(double number) {
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.0f", number);
    return digits;
}

}  // namespace

void DrawGraphFrame(ChartSurface& chart, const ValueScale& scale, float barScale) {
    chart.SetScale(-150, 1030, 1000, -80);
    Solid(chart, 0, 1030, 0, 0);
    Solid(chart, 0, 0, 1000, 0);
    for (int i = 0; i < kBins; ++i) Solid(chart, 30 * i + 30, 0, 30 * i + 30, i % 5 == 0 ? -30 : -15);
    DrawCountAxis(chart, barScale);
    for (int i = -15; i <= 15; i += 5)
        chart.Draw(ChartText{ValueLabel(scale, i), TextAnchor::Center, 30.0 * i + 480, -60, -1});
}

void DrawCountAxis(ChartSurface& chart, float barScale) {
    const double step = RoundHalfEven(static_cast<double>(barScale) / 5);
    for (int i = 0; i <= 5; ++i) {
        const double y = 200 * i;
        Solid(chart, -15, y, 0, y);
        chart.Draw(ChartLine{0, y, 1000, y, 1, LineStyle::Dotted});
        chart.Draw(ChartBox{-135, y - 10, -35, y + 25, BoxFill::White});
        chart.Draw(ChartText{WholeNumber(step * i), TextAnchor::Right, -35, y + 49, 1});
    }
}

void DrawSlice(ChartSurface& chart, int bin, float before, float count, float barScale) {
    chart.Draw(ChartBox{BarLeft(bin), HeightOf(before, barScale), BarRight(bin), HeightOf(count, barScale),
                        BoxFill::Black});
}

void DrawBars(ChartSurface& chart, const BinCounts& counts, float barScale) {
    for (int bin = 0; bin < kBins; ++bin) {
        const float count = counts[static_cast<std::size_t>(bin)];
        chart.Draw(ChartBox{BarLeft(bin), 5, BarRight(bin), 1000, BoxFill::White});
        chart.Draw(ChartBox{BarLeft(bin), 0, BarRight(bin), HeightOf(count, barScale), BoxFill::Black});
    }
}

void DrawArrow(ChartSurface& chart, Side side) {
    const bool low = side == Side::Low;
    chart.Draw(ChartText{low ? "<-" : "->", TextAnchor::Left, low ? -10.0 : 950.0, -5, 0});
}

void EraseArrow(ChartSurface& chart, Side side) {
    const double left = side == Side::Low ? -10 : 950;
    chart.Draw(ChartBox{left, -12, left + 30, -40, BoxFill::White});
}

}  // namespace counter

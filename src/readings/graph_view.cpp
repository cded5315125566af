#include "readings/graph_view.h"

#include <cstdio>
#include <utility>

#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr ThirdNumber kVerticalScale = {"txtVertScale", "lblVertScale", "Initial Vertical Scale"};

// A bar and the distance from its left edge to the next one's, and where the first begins, in the chart's
// units: 1000 are the width of the axis.
constexpr double kBarWidth = 20;
constexpr double kBarPitch = 30;
constexpr double kFirstBar = 20;

double BarLeft(int bin) {
    return kBarPitch * bin + kFirstBar;
}

double BarRight(int bin) {
    return BarLeft(bin) + kBarWidth;
}

double BarMiddle(int bin) {
    return BarLeft(bin) + kBarWidth / 2;
}

double HeightOf(float count, float barScale) {
    return static_cast<double>(count) * 1000 / static_cast<double>(barScale);
}

void Thick(ChartSurface& chart, double x1, double y1, double x2, double y2) {
    chart.Draw(ChartLine{x1, y1, x2, y2, 2, LineStyle::Solid});
}

std::string WholeNumber(double number) {
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.0f", number);
    return digits;
}

// Once more over the old labels. Labels are whole numbers, whatever a fifth of the scale is.
void DrawCountAxis(ChartSurface& chart, float barScale) {
    const double step = RoundHalfEven(static_cast<double>(barScale) / 5);
    for (int i = 0; i <= 5; ++i) {
        const double y = 200 * i;
        Thick(chart, -15, y, 0, y);
        chart.Draw(ChartLine{0, y, 1000, y, 1, LineStyle::Dotted});
        chart.Draw(ChartBox{-135, y - 10, -35, y + 25, BoxFill::White});
        chart.Draw(ChartText{WholeNumber(step * i), TextAnchor::Right, -35, y + 49, 1});
    }
}

// Clears the chart and draws the frame of a run. The top of the chart represents `barScale`, above 0.
void DrawGraphFrame(ChartSurface& chart, const ValueScale& scale, float barScale) {
    chart.SetScale(-150, 1030, 1000, -80);
    Thick(chart, 0, 1030, 0, 0);
    Thick(chart, 0, 0, 1000, 0);
    for (int i = 0; i < kBins; ++i) Thick(chart, BarMiddle(i), 0, BarMiddle(i), i % 5 == 0 ? -30 : -15);
    DrawCountAxis(chart, barScale);
    for (int i = -15; i <= 15; i += 5)
        chart.Draw(ChartText{ValueLabel(scale, i), TextAnchor::Center, BarMiddle(kMiddleBin + i), -60, -1});
}

// What readings add to a bar that had `before` and now has `count`.
void DrawSlice(ChartSurface& chart, int bin, float before, float count, float barScale) {
    chart.Draw(ChartBox{BarLeft(bin), HeightOf(before, barScale), BarRight(bin), HeightOf(count, barScale),
                        BoxFill::Black});
}

// All bars once more, over the old ones.
void DrawBars(ChartSurface& chart, const BinCounts& counts, float barScale) {
    for (int bin = 0; bin < kBins; ++bin) {
        const float count = counts[static_cast<std::size_t>(bin)];
        chart.Draw(ChartBox{BarLeft(bin), 5, BarRight(bin), 1000, BoxFill::White});
        chart.Draw(ChartBox{BarLeft(bin), 0, BarRight(bin), HeightOf(count, barScale), BoxFill::Black});
    }
}

// The arrow that tells of readings below or above the bars, and its erasing.
void DrawArrow(ChartSurface& chart, bool low) {
    chart.Draw(ChartText{low ? "<-" : "->", TextAnchor::Left, low ? -10.0 : 950.0, -5, 0});
}

void EraseArrow(ChartSurface& chart, bool low) {
    const double left = low ? -10 : 950;
    chart.Draw(ChartBox{left, -12, left + 30, -40, BoxFill::White});
}

}  // namespace

GraphView::GraphView(Session& session) : ChartView(session, kVerticalScale) {
    Load();
}

// A chart whose top represents no count could show none.
std::string GraphView::Objection() const {
    return TypedNumber(txtVertScale.Text) > 0 ? "" : "Initial Vertical Scale must be a number above 0.";
}

void GraphView::Run() {
    histogram_ = {};
    histogram_.Scale = TypedScale();
    histogram_.BarScale = TypedNumber(txtVertScale.Text);
    DrawGraphFrame(Chart, histogram_.Scale, histogram_.BarScale);
    Controls.TellChanged();
    if (Holds(StartRun())) Stream.Attach();
}

void GraphView::PressPause() {
    if (Stream.ReadingPaused == 1) return;
    Stream.Pause();
    Controls.SetFocus(cmdContinue);
}

// It never starts over: the counts survive a pause.
void GraphView::PressContinue() {
    if (Stream.ReadingPaused == 1) Stream.Resume();
}

void GraphView::TakeReading(const std::string& text, bool) {
    const double small = AsTyped(histogram_.Scale.SmallDiv);
    const double mid = AsTyped(histogram_.Scale.MidValue);
    const double bin = WholeUnits((LeadingNumber(text) - mid + small * kMiddleBin) / small);
    if (bin < 0) {
        Blink(Side::Low);
    } else if (bin >= kBins) {
        Blink(Side::High);
    } else {
        Count(static_cast<std::size_t>(bin));
    }
    if (Chart.Record().size() > kMostEntries) DrawAll();
}

void GraphView::Count(std::size_t bin) {
    Wipe(Side::Low);
    Wipe(Side::High);
    const float count = ++histogram_.BinCount[bin];
    if (count <= histogram_.BarScale) {
        DrawSlice(Chart, static_cast<int>(bin), count - 1, count, histogram_.BarScale);
        return;
    }
    // One doubling is enough unless the scale began below 1.
    while (count > histogram_.BarScale) histogram_.BarScale *= 2;
    histogram_.UnderGrid = histogram_.BinCount;
    DrawBars(Chart, histogram_.BinCount, histogram_.BarScale);
    DrawCountAxis(Chart, histogram_.BarScale);
}

void GraphView::Blink(Side side) {
    int& blink = side == Side::Low ? histogram_.LowBlink : histogram_.HighBlink;
    bool& shown = side == Side::Low ? histogram_.LowShown : histogram_.HighShown;
    blink = 1 - blink;
    if (blink == 0) {
        Wipe(side);
    } else if (!std::exchange(shown, true)) {
        DrawArrow(Chart, side == Side::Low);
    }
}

// Where there is no arrow there is nothing to erase.
void GraphView::Wipe(Side side) {
    bool& shown = side == Side::Low ? histogram_.LowShown : histogram_.HighShown;
    if (std::exchange(shown, false)) EraseArrow(Chart, side == Side::Low);
}

void GraphView::DrawAll() {
    DrawGraphFrame(Chart, histogram_.Scale, histogram_.BarScale);
    if (histogram_.UnderGrid != BinCounts{}) {
        DrawBars(Chart, histogram_.UnderGrid, histogram_.BarScale);
        DrawCountAxis(Chart, histogram_.BarScale);
    }
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        const float below = histogram_.UnderGrid[bin];
        const float count = histogram_.BinCount[bin];
        if (count > below) DrawSlice(Chart, static_cast<int>(bin), below, count, histogram_.BarScale);
    }
    if (histogram_.LowShown) DrawArrow(Chart, true);
    if (histogram_.HighShown) DrawArrow(Chart, false);
}

}  // namespace counter

#include "readings/graph_view.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "meter/leading_number.h"
#include "readings/chart_span.h"

namespace counter {

namespace {

constexpr ThirdNumber kVerticalScale = {"frmGRAPH", "txtVertScale", "lblVertScale", "Initial Vertical Scale",
                                        "10"};

// A bar and the distance from its left edge to the next one's, and where the first begins, in the chart's
// units: 1000 are the width of the axis.
constexpr double kBarWidth = 20;
constexpr double kBarPitch = 30;
constexpr double kFirstBar = 20;
constexpr double kAxisWidth = 1000;
// Round numbers along a part that is seen larger are at least this far from one another, as parts of it.
constexpr double kCountsApart = 0.15;
constexpr double kValuesApart = 0.12;
constexpr double kWipedFrom = 5;  // bars are wiped down to here

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
        chart.Draw(ChartBox{BarLeft(bin), kWipedFrom, BarRight(bin), 1000, BoxFill::White});
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
std::string GraphView::ObjectionToThird() const {
    return TypedNumber(txtVertScale.Text) > 0 ? "" : "Initial Vertical Scale must be a number above 0.";
}

void GraphView::DrawAnew() {
    histogram_ = {};
    histogram_.Scale = TypedScale();
    histogram_.BarScale = TypedNumber(txtVertScale.Text);
    histogram_.Scales = {histogram_.BarScale};
    DrawGraphFrame(Chart, histogram_.Scale, histogram_.BarScale);
}

void GraphView::PressPause() {
    if (Stream.ReadingPaused == 1) return;
    Stream.Pause();
    Controls.SetFocus(cmdContinue);
}

// It never starts over: the counts survive a pause.
void GraphView::PressContinue() {
    if (Stream.ReadingPaused == 1) ResumeRun();
}

void GraphView::TakeValue(double value) {
    const double small = AsTyped(histogram_.Scale.SmallDiv);
    const double mid = AsTyped(histogram_.Scale.MidValue);
    const double bin = WholeUnits((value - mid + small * kMiddleBin) / small);
    if (bin < 0) {
        Blink(Side::Low);
    } else if (bin >= kBins) {
        Blink(Side::High);
    } else {
        Count(static_cast<std::size_t>(bin));
    }
    if (Chart.Record().size() > kMostEntries) DrawAll();
}

std::string GraphView::RangeText() const {
    return "Values from " + ValueLabel(histogram_.Scale, -kMiddleBin) + " to " +
           ValueLabel(histogram_.Scale, kMiddleBin) + ", counts from 0 to " +
           ShortNumber(static_cast<double>(histogram_.BarScale));
}

// A bar stands on the axis at its value; the axis is 1000 units wide.
double GraphView::PartOfValue(double value) const {
    const double small = AsTyped(histogram_.Scale.SmallDiv);
    const double bin = (value - AsTyped(histogram_.Scale.MidValue)) / small + kMiddleBin;
    return (kBarPitch * bin + kFirstBar + kBarWidth / 2) / kAxisWidth;
}

double GraphView::ValueAt(double part) const {
    const double bin = (part * kAxisWidth - kFirstBar - kBarWidth / 2) / kBarPitch;
    return AsTyped(histogram_.Scale.MidValue) + (bin - kMiddleBin) * AsTyped(histogram_.Scale.SmallDiv);
}

ChartSpot GraphView::Spot(std::size_t bin) const {
    const float count = histogram_.BinCount[bin];
    const auto number = static_cast<int>(bin);
    const std::string times = ShortNumber(static_cast<double>(count));
    return {BarMiddle(number) / kAxisWidth, HeightOf(count, histogram_.BarScale) / 1000,
            ValueLabel(histogram_.Scale, number - kMiddleBin) + "   " + times +
                (count == 1 ? " reading" : " readings")};
}

std::size_t GraphView::NearestSpot(double x) const {
    const double bin = RoundHalfEven((x * kAxisWidth - kFirstBar - kBarWidth / 2) / kBarPitch);
    return static_cast<std::size_t>(std::clamp(bin, 0.0, kBins - 1.0));
}

void GraphView::DrawWindow(ChartSurface& chart, const ChartWindow& window) const {
    chart.SetScale(-150, 1030, 1000, -80);
    Thick(chart, 0, 1030, 0, 0);
    Thick(chart, 0, 0, 1000, 0);
    const double top = static_cast<double>(histogram_.BarScale);
    AlongSpan(window.Bottom * top, window.Top * top, kCountsApart, [&](double part, const std::string& text) {
        Thick(chart, -15, part * 1000, 0, part * 1000);
        chart.Draw(ChartLine{0, part * 1000, 1000, part * 1000, 1, LineStyle::Dotted});
        chart.Draw(ChartText{text, TextAnchor::Right, -35, part * 1000 + 49, 1});
    });
    for (int bin = 0; bin < kBins; ++bin) {
        const double height =
            HeightOf(histogram_.BinCount[static_cast<std::size_t>(bin)], histogram_.BarScale);
        const double left = std::clamp(window.Across(BarLeft(bin) / kAxisWidth), 0.0, 1.0);
        const double right = std::clamp(window.Across(BarRight(bin) / kAxisWidth), 0.0, 1.0);
        const double up = std::clamp(window.Up(height / 1000), 0.0, 1.0);
        if (right > left && up > 0)
            chart.Draw(ChartBox{left * 1000, 0, right * 1000, up * 1000, BoxFill::Black});
    }
    AlongSpan(ValueAt(window.Left), ValueAt(window.Right), kValuesApart,
              [&](double part, const std::string& text) {
                  chart.Draw(ChartText{text, TextAnchor::Center, part * 1000, -60, -1});
              });
}

std::string GraphView::ValuesText() const {
    std::string text = "Value\tReadings\n";
    for (std::size_t bin = 0; bin < kBins; ++bin)
        text += ValueLabel(histogram_.Scale, static_cast<int>(bin) - kMiddleBin) + "\t" +
                ShortNumber(static_cast<double>(histogram_.BinCount[bin])) + "\n";
    return text;
}

void GraphView::Count(std::size_t bin) {
    Wipe(Side::Low);
    Wipe(Side::High);
    const float count = ++histogram_.BinCount[bin];
    if (count <= histogram_.BarScale) {
        DrawSlice(Chart, static_cast<int>(bin), count - 1, count, histogram_.BarScale);
        return;
    }
    --histogram_.BinCount[bin];
    DoubleUpTo(count);
    ++histogram_.BinCount[bin];
    histogram_.UnderGrid = histogram_.BinCount;
    DrawBars(Chart, histogram_.BinCount, histogram_.BarScale);
    DrawCountAxis(Chart, histogram_.BarScale);
}

// The counts are those that are drawn. One doubling is enough unless the scale began below 1.
void GraphView::DoubleUpTo(float count) {
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        const double drawn = HeightOf(histogram_.BinCount[bin], histogram_.BarScale);
        histogram_.Foot[bin] = std::clamp(drawn, histogram_.Foot[bin], kWipedFrom);
    }
    while (count > histogram_.BarScale) histogram_.BarScale *= 2;
    histogram_.Scales.push_back(histogram_.BarScale);
}

void GraphView::Blink(Side side) {
    Statistics.CountOutside(side == Side::Low);
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
    if (!std::exchange(shown, false)) return;
    EraseArrow(Chart, side == Side::Low);
    (side == Side::Low ? histogram_.LowWiped : histogram_.HighWiped) = true;
}

// What was drawn reading by reading, without what later drawing covers: the same picture.
void GraphView::DrawAll() {
    DrawGraphFrame(Chart, histogram_.Scale, histogram_.Scales.front());
    DrawDoublings();
    if (histogram_.LowWiped) EraseArrow(Chart, true);
    if (histogram_.HighWiped) EraseArrow(Chart, false);
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        const float below = histogram_.UnderGrid[bin];
        const float count = histogram_.BinCount[bin];
        if (count > below) DrawSlice(Chart, static_cast<int>(bin), below, count, histogram_.BarScale);
    }
    if (histogram_.LowShown) DrawArrow(Chart, true);
    if (histogram_.HighShown) DrawArrow(Chart, false);
}

void GraphView::DrawDoublings() {
    const std::vector<float>& scales = histogram_.Scales;
    for (std::size_t i = 1; i < scales.size(); ++i) {
        if (i + 1 == scales.size()) {
            for (int bin = 0; bin < kBins; ++bin) {
                const double foot = histogram_.Foot[static_cast<std::size_t>(bin)];
                if (foot > 0) Chart.Draw(ChartBox{BarLeft(bin), 0, BarRight(bin), foot, BoxFill::Black});
            }
            DrawBars(Chart, histogram_.UnderGrid, histogram_.BarScale);
        }
        DrawCountAxis(Chart, scales[i]);
    }
}

}  // namespace counter

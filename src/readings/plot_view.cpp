#include "readings/plot_view.h"

#include <algorithm>
#include <cmath>

#include "meter/leading_number.h"

namespace counter {

namespace {

// x 0..1000 is the sweep, y -200..200 are 20 small divisions to either side of the middle value.
constexpr double kPlotLeft = -150;
constexpr double kPlotTop = 215;
constexpr double kPlotRight = 1020;
constexpr double kPlotBottom = -250;
constexpr double kSweepEnd = 1000;

constexpr ThirdNumber kPlotTime = {"txtHorzTime", "lblHorzTime", "Total Plot Time (Secs)"};

// A trace off the scale runs along a rail. The rails are not alike, which is required.
constexpr double kHighest = 200;
constexpr double kUpperRail = 210;
constexpr double kLowest = -200;
constexpr double kLowerRail = -205;

// Far beyond the left edge, and still a number that a painter can work with.
constexpr double kFarLeft = -1e9;

constexpr double kDayMs = 86'400'000;
constexpr double kHairOfAMs = 1e-6;  // by which a sum of binary fractions may miss a whole millisecond

float SweepSeconds(std::string_view text) {
    const float seconds = std::abs(TypedNumber(text));
    return seconds == 0 ? 1 : seconds;
}

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

// Clears the chart and draws the frame of a sweep of `plotTime` seconds, above 0.
void DrawPlotFrame(ChartSurface& chart, const ValueScale& scale, float plotTime) {
    chart.SetScale(kPlotLeft, kPlotTop, kPlotRight, kPlotBottom);
    DrawAxes(chart);
    DrawTicks(chart);
    DrawGrid(chart);
    DrawValueLabels(chart, scale);
    DrawTimeLabels(chart, plotTime);
}

}  // namespace

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

PlotView::PlotView(Session& session) : ChartView(session, kPlotTime) {
    Load();
}

void PlotView::Run() {
    sweep_ = {};
    sweep_.Scale = TypedScale();
    sweep_.PlotTime = SweepSeconds(txtHorzTime.Text);
    DrawPlotFrame(Chart, sweep_.Scale, sweep_.PlotTime);
    Controls.TellChanged();
    if (Holds(StartRun())) Stream.Attach();
}

void PlotView::TakeValue(double value) {
    if (sweep_.FirstPoint == 1) SetClock();
    const float now = SecondsSinceMidnight();
    const double x = sweep_.FirstPoint ? 0 : PlaceOf(now);
    if (x > kSweepEnd) {
        EndSweep();
        return;
    }
    double y = HeightOf(value);
    int width = 2;
    if (y > kHighest) {
        y = kUpperRail;
        if (sweep_.LastY > kHighest) width = 1;
    }
    if (y < kLowest) {
        y = kLowerRail;
        if (sweep_.LastY < kLowest) width = 1;
    }
    sweep_.LastY = static_cast<float>(y);
    if (!sweep_.FirstPoint) {
        trace_.LineTo(Chart, x, y, width);
        return;
    }
    sweep_.SweepStart = now;
    sweep_.FirstPoint = 0;
    trace_.Start(Chart, y);
}

void PlotView::EndSweep() {
    Stream.Pause();
    sweep_.ChartFull = 1;
    Controls.SetFocus(cmdContinue);
}

// One small division is 10 units, and the middle value lies at 0.
double PlotView::HeightOf(double value) const {
    const double small = AsTyped(sweep_.Scale.SmallDiv);
    const double bottom = AsTyped(sweep_.Scale.MidValue) - small * 20;
    return WholeUnits((value - bottom) * 400 / (small * 40) - 200);
}

double PlotView::PlaceOf(float now) const {
    const double seconds = static_cast<double>(now - sweep_.SweepStart + sweep_.SweepBase);
    return std::max(kFarLeft, RoundHalfEven(seconds * 1000 / static_cast<double>(sweep_.PlotTime)));
}

void PlotView::SetClock() {
    const WallTime time = Program.Pump.LocalTime();
    const int whole = time.Hour * 3600 + time.Minute * 60 + time.Second;
    clock_ = {whole * 1000 + time.Millisecond, Program.Pump.NowMs()};
}

// Whole milliseconds, as a clock of the day has them.
float PlotView::SecondsSinceMidnight() const {
    const double passed = std::floor(Program.Pump.NowMs() - clock_.PumpMs + kHairOfAMs);
    const double today = std::fmod(clock_.DayMs + passed, kDayMs);
    return static_cast<float>(today / 1000);
}

std::string PlotView::RangeText() const {
    return "Values from " + ValueLabel(sweep_.Scale, -20) + " to " + ValueLabel(sweep_.Scale, 20) +
           ", time from 0 to " + ShortNumber(AsTyped(sweep_.PlotTime)) + " seconds";
}

// Before its first reading a sweep's clock is stopped, so no time of it has passed.
void PlotView::PressPause() {
    if (Stream.ReadingPaused == 1) return;
    Stream.Pause();
    if (!sweep_.FirstPoint) sweep_.SweepBase = SecondsSinceMidnight() - sweep_.SweepStart + sweep_.SweepBase;
    Controls.SetFocus(cmdContinue);
}

// Pressed on a running sweep it starts over.
void PlotView::PressContinue() {
    if (Stream.ReadingPaused == 0) sweep_.ChartFull = 1;
    if (sweep_.ChartFull == 1) {
        Run();
        return;
    }
    ResumeRun();
    sweep_.SweepStart = SecondsSinceMidnight();
}

}  // namespace counter

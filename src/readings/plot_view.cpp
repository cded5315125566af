#include "readings/plot_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr double kSweepEnd = 1000;

constexpr ThirdNumber kPlotTime = {"frmPlot", "txtHorzTime", "lblHorzTime", "Total Plot Time (Secs)", "60"};

// Far beyond the left edge, and still a number that a painter can work with.
constexpr double kFarLeft = -1e9;

constexpr double kDayMs = 86'400'000;
constexpr double kHairOfAMs = 1e-6;  // by which a sum of binary fractions may miss a whole millisecond

// A chart that rolls is drawn whole, and not more often than eyes follow.
constexpr double kRollMs = 50;

constexpr int kTimeDecimals = 3;
constexpr std::string_view kSeconds[] = {"none", "Item 1", "Item 2", "Item 3"};

float TypedSeconds(std::string_view text) {
    const float seconds = std::abs(TypedNumber(text));
    return seconds == 0 ? 1 : seconds;
}

}  // namespace

PlotView::PlotView(Session& session) : ChartView(session, kPlotTime) {
    Form::Fill(cboSecond, kSeconds);
    cboSecond.ListIndex = 0;
    Options = {&lblSecond, &cboSecond, &chkSetpoints, &chkRolling};
    // The trace of another item begins where the sweep is.
    OnPick(cboSecond, [this] {
        second_.Clear();
        rolling_.DropSecond();
    });
    OnPick(chkRolling, [this] { RunAnew(); });
    Load();
}

void PlotView::Reset() {
    ChartView::Reset();
    ticker_.reset();
    first_.Clear();
    second_.Clear();
    rolling_ = {};
}

void PlotView::DrawAnew() {
    sweep_ = {};
    sweep_.Scale = TypedScale();
    sweep_.PlotTime = TypedSeconds(txtHorzTime.Text);
    sweep_.Rolling = chkRolling.Value == 1;
    ticker_.reset();
    if (sweep_.Rolling) {
        ticker_ = Program.Pump.Every(kRollMs, [this] {
            if (!undrawn_) return;
            DrawRolling();
            if (Drawn) Drawn();
        });
    }
    DrawFrame();
}

void PlotView::DrawFrame() {
    first_.Clear();
    second_.Clear();
    joined_ = false;
    rolling_.Start(sweep_.Scale, sweep_.PlotTime);
    if (sweep_.Rolling) {
        DrawRolling();
    } else {
        DrawPlotFrame(Chart, sweep_.Scale, sweep_.PlotTime);
    }
}

// The trace of another item begins where the sweep is.
void PlotView::DrawOn() {
    DrawFrame();
}

void PlotView::PassBy() {
    const bool over = !sweep_.Rolling && !sweep_.FirstPoint && PlaceOf(SecondsSinceMidnight()) > kSweepEnd;
    if (over) EndSweep();
}

void PlotView::TakeValue(double value) {
    if (sweep_.FirstPoint == 1) SetClock();
    if (sweep_.Rolling) {
        Roll(value);
    } else {
        Extend(value);
    }
}

// The sweep goes on to this reading, or is over.
void PlotView::Extend(double value) {
    const float now = SecondsSinceMidnight();
    const double x = sweep_.FirstPoint ? 0 : PlaceOf(now);
    if (x > kSweepEnd) {
        EndSweep();
        return;
    }
    const TraceStep step = StepTo(sweep_.Scale, value, sweep_.LastY);
    first_.Add({SweepSeconds(), value});
    if (sweep_.FirstPoint) {
        sweep_.SweepStart = now;
        sweep_.FirstPoint = 0;
    }
    if (!std::exchange(joined_, true)) {
        trace_.Start(Chart, step.Y, x);
    } else {
        trace_.LineTo(Chart, x, step.Y, step.Width);
    }
    DrawSecond(x);
}

std::optional<double> PlotView::SecondValue() const {
    const int item = cboSecond.ListIndex;
    return item > 0 ? ItemValue(item) : std::nullopt;
}

void PlotView::DrawSecond(double x) {
    const std::optional<double> value = SecondValue();
    if (!value) return;
    const bool first = second_.All().empty();
    second_.Add({SweepSeconds(), *value});
    if (first) secondLastY_ = 0;
    const TraceStep step = StepTo(sweep_.Scale, *value, secondLastY_);
    if (first) {
        secondTrace_.Start(Chart, step.Y, x, ChartInk::Second);
    } else {
        secondTrace_.LineTo(Chart, x, step.Y, step.Width);
    }
}

void PlotView::Roll(double value) {
    sweep_.FirstPoint = 0;
    rolling_.Add(SweepSeconds(), value);
    if (const std::optional<double> second = SecondValue()) rolling_.AddSecond(SweepSeconds(), *second);
    undrawn_ = true;
    if (Program.Pump.NowMs() - rolledMs_ >= kRollMs) DrawRolling();
}

void PlotView::DrawRolling() {
    rolledMs_ = Program.Pump.NowMs();
    undrawn_ = false;
    rolling_.Draw(Chart);
}

void PlotView::EndSweep() {
    Stream.Pause();
    sweep_.ChartFull = 1;
    Controls.SetFocus(cmdContinue);
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

// Without the time of pauses, and whatever the time of day does.
double PlotView::SweepSeconds() const {
    return (Program.Pump.NowMs() - clock_.PumpMs - clock_.PausedMs) / 1000;
}

// Whole milliseconds, as a clock of the day has them.
float PlotView::SecondsSinceMidnight() const {
    const double passed = std::floor(Program.Pump.NowMs() - clock_.PumpMs + kHairOfAMs);
    const double today = std::fmod(clock_.DayMs + passed, kDayMs);
    return static_cast<float>(today / 1000);
}

std::string PlotView::RangeText() const {
    return "Values from " + ValueLabel(sweep_.Scale, -20) + " to " + ValueLabel(sweep_.Scale, 20) +
           (sweep_.Rolling ? ", the last " : ", time from 0 to ") + ShortNumber(AsTyped(sweep_.PlotTime)) +
           " seconds";
}

// Before its first reading a sweep's clock is stopped, so no time of it has passed.
void PlotView::PressPause() {
    if (Stream.ReadingPaused == 1) return;
    Stream.Pause();
    clock_.HeldMs = Program.Pump.NowMs();
    if (undrawn_) DrawRolling();
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
    clock_.PausedMs += Program.Pump.NowMs() - clock_.HeldMs;
    sweep_.SweepStart = SecondsSinceMidnight();
}

double PlotView::PartOfValue(double value) const {
    const double small = AsTyped(sweep_.Scale.SmallDiv);
    return (value - AsTyped(sweep_.Scale.MidValue)) / (small * 2 * kPlotDivisions) + 0.5;
}

PlotSpan PlotView::SpanOf(const ChartWindow& window) const {
    const double time = AsTyped(sweep_.PlotTime);
    const double start = sweep_.Rolling ? rolling_.Newest() - time : 0;
    const double small = AsTyped(sweep_.Scale.SmallDiv);
    const double lowest = AsTyped(sweep_.Scale.MidValue) - small * kPlotDivisions;
    const double height = small * 2 * kPlotDivisions;
    return {start + window.Left * time, start + window.Right * time, lowest + window.Bottom * height,
            lowest + window.Top * height, sweep_.Rolling ? rolling_.Newest() : 0};
}

ChartSpot PlotView::Spot(std::size_t number) const {
    const TracePoint& point = First().All()[number];
    const PlotSpan span = SpanOf({});
    return {(point.Seconds - span.From) / (span.To - span.From), PartOfValue(point.Value),
            DecimalText(point.Seconds - span.Zero, kTimeDecimals) + " s   " +
                DecimalText(point.Value, Statistics.Of(Item).Decimals)};
}

std::size_t PlotView::NearestSpot(double x) const {
    const PlotSpan span = SpanOf({});
    return First().Nearest(span.From + x * (span.To - span.From));
}

void PlotView::DrawWindow(ChartSurface& chart, const ChartWindow& window) const {
    const PlotSpan span = SpanOf(window);
    DrawPlotSpan(chart, span);
    DrawTraceInSpan(chart, span, First(), ChartInk::Plain);
    DrawTraceInSpan(chart, span, Second(), ChartInk::Second);
}

std::string PlotView::ValuesText() const {
    std::string text = "Seconds\tItem " + std::to_string(Item) + "\n";
    for (const TracePoint& point : First().All())
        text += DecimalText(point.Seconds, kTimeDecimals) + "\t" +
                DecimalText(point.Value, Statistics.Of(Item).Decimals) + "\n";
    if (Second().All().empty()) return text;
    text += "Seconds\tItem " + std::to_string(cboSecond.ListIndex) + "\n";
    for (const TracePoint& point : Second().All())
        text += DecimalText(point.Seconds, kTimeDecimals) + "\t" + ShortNumber(point.Value) + "\n";
    return text;
}

}  // namespace counter

#include "readings/plot_view.h"

#include <algorithm>
#include <cmath>

#include "meter/leading_number.h"
#include "readings/plot_frame.h"

namespace counter {

namespace {

constexpr ThirdNumber kPlotTime = {"txtHorzTime", "lblHorzTime", "Total Plot Time (Secs)"};

// A trace off the scale runs along a rail. The rails are not alike, which is required.
constexpr double kHighest = 200;
constexpr double kUpperRail = 210;
constexpr double kLowest = -200;
constexpr double kLowerRail = -205;

// Far beyond the left edge, and still a number that a painter can work with.
constexpr double kFarLeft = -1e9;

float SweepSeconds(std::string_view text) {
    const float seconds = std::abs(TypedNumber(text));
    return seconds == 0 ? 1 : seconds;
}

}  // namespace

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

void PlotView::TakeReading(const std::string& text, bool) {
    DrawReading(LeadingNumber(text));
}

void PlotView::DrawReading(double value) {
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

float PlotView::SecondsSinceMidnight() const {
    const WallTime time = Program.Pump.LocalTime();
    const int whole = time.Hour * 3600 + time.Minute * 60 + time.Second;
    return static_cast<float>(whole + time.Millisecond / 1000.0);
}

// Before its first reading a sweep's clock stands, so no time of it has passed.
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
    Stream.Resume();
    sweep_.SweepStart = SecondsSinceMidnight();
}

}  // namespace counter

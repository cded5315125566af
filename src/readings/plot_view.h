// PlotView: the reading stream as a strip chart, one sweep from left to right.
//
// Time is the clock's and not a count of readings: a slow meter yields long straight segments. The sweep ends
// when a reading arrives after its time is over; the meter goes on sending.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "readings/chart_view.h"
#include "readings/plot_frame.h"
#include "readings/rolling_trace.h"
#include "readings/trace_points.h"

namespace counter {

// Seconds are those since midnight, in single precision, whose steps late in the day are 8 ms. There is no
// handling of midnight: a sweep running across it gets negative times, which is required.
struct Sweep {
    ValueScale Scale;
    float PlotTime = 1;    // seconds, above 0
    float SweepStart = 0;  // the first point, or the last Continue
    float SweepBase = 0;   // seconds of the sweep that lay before the last pause
    int FirstPoint = 1;    // until the first point is drawn
    int ChartFull = 0;     // 1: the next Continue starts a new sweep
    float LastY = 0;       // height of the point before
    bool Rolling = false;  // the chart's second way: never full
};

// The time of day at the sweep's first point, and the pump's clock at that time. From there on time is the
// pump's: the clock of the system may be set, or summer end, in the middle of a sweep.
struct Clock {
    int DayMs = 0;
    double PumpMs = 0;
    double PausedMs = 0;  // of the sweep
    double HeldMs = 0;    // when the pause began that it is in
};

class PlotView : public ChartView {
  public:
    static constexpr std::string_view kName = "frmPlot";
    static constexpr std::string_view kTitle = "PLOT";

    explicit PlotView(Session& session);

    Control& lblHorzTime = lblThird;
    Control& txtHorzTime = txtThird;

    // A second item of the same frames, and the chart that rolls.
    // clang-format off
    Control& lblSecond  = Build.Add(ControlKind::Label, nullptr, "lblSecond",  "Beside it");
    Control& cboSecond  = Build.Add(ControlKind::List,  nullptr, "cboSecond");
    Control& chkRolling = Build.Add(ControlKind::Check, nullptr, "chkRolling", "Rolling");
    // clang-format on

    const Sweep& Current() const { return sweep_; }

    std::size_t Spots() const override { return First().All().size(); }
    ChartSpot Spot(std::size_t number) const override;
    std::size_t NearestSpot(double x) const override;
    ChartScale DataArea() const override { return {0, kPlotHeight, kPlotWidth, -kPlotHeight}; }
    void DrawWindow(ChartSurface& chart, const ChartWindow& window) const override;
    std::string ValuesText() const override;

  private:
    void DrawAnew() override;
    void DrawOn() override;
    void PassBy() override;
    void DrawFrame();
    void Reset() override;
    bool IsFull() const override { return sweep_.ChartFull == 1; }
    void PressPause() override;
    void PressContinue() override;
    void TakeValue(double value) override;
    std::string RangeText() const override;
    int AutoDivisions() const override { return kAutoDivisions; }
    double PartOfValue(double value) const override;
    bool ValuesGoUp() const override { return true; }

    void Extend(double value);
    void DrawSecond(double x);
    void Roll(double value);
    void DrawRolling();
    void EndSweep();
    double PlaceOf(float now) const;
    void SetClock();
    float SecondsSinceMidnight() const;
    double SweepSeconds() const;

    static constexpr int kAutoDivisions = 30;  // of the 40: readings keep off the rails

    const TracePoints& First() const { return sweep_.Rolling ? rolling_.First() : first_; }
    const TracePoints& Second() const { return sweep_.Rolling ? rolling_.Second() : second_; }
    PlotSpan SpanOf(const ChartWindow& window) const;
    std::optional<double> SecondValue() const;

    Sweep sweep_;
    Clock clock_;
    PlotTrace trace_;
    bool joined_ = false;         // the trace has a point that the next one is joined to
    TracePoints first_, second_;  // of the sweep
    PlotTrace secondTrace_;
    float secondLastY_ = 0;
    RollingTrace rolling_;
    double rolledMs_ = 0;  // when it was last drawn
    bool undrawn_ = false;
    std::shared_ptr<Pump::Ticker> ticker_;  // draws what came too soon after the last drawing
};

}  // namespace counter

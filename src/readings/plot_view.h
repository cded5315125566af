// PlotView: the reading stream as a strip chart, one sweep from left to right.
//
// Time is the clock's and not a count of readings: a slow meter yields long straight segments. The sweep ends
// when a reading arrives after its time is over; the meter goes on sending.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "readings/chart_view.h"

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
};

// The time of day at the sweep's first point, and the pump's clock at that time. From there on time is the
// pump's: the clock of the system may be set, or summer end, in the middle of a sweep.
struct Clock {
    int DayMs = 0;
    double PumpMs = 0;
};

// The trace of one sweep, as lines on the chart.
//
// The record stays small however fast the meter sends and however long a sweep takes: what would change
// nothing in the picture isn't recorded, that is a stroke within its own column (x is whole) that earlier
// strokes of the same column cover, and one that lies left of the chart altogether.
class PlotTrace {
  public:
    // A point at (0, y).
    void Start(ChartSurface& chart, double y);
    // A line of width 1 or 2 from the point before.
    void LineTo(ChartSurface& chart, double x, double y, int width);

  private:
    // What is drawn of the column, y from Low to High; empty where Low is above High.
    struct Stroke {
        double Low = 1;
        double High = 0;
    };
    bool Covered(double low, double high, int width) const;
    void Remember(double low, double high, int width);

    double x_ = 0;
    double y_ = 0;
    std::array<Stroke, 2> column_;  // of the column x_, by width 1 and 2
};

class PlotView : public ChartView {
  public:
    static constexpr std::string_view kName = "frmPlot";
    static constexpr std::string_view kTitle = "PLOT";

    explicit PlotView(Session& session);

    Control& lblHorzTime = lblThird;
    Control& txtHorzTime = txtThird;

    const Sweep& Current() const { return sweep_; }

  private:
    void Run() override;
    bool IsFull() const override { return sweep_.ChartFull == 1; }
    void PressPause() override;
    void PressContinue() override;
    void TakeValue(double value) override;
    std::string RangeText() const override;
    void EndSweep();
    double HeightOf(double value) const;
    double PlaceOf(float now) const;
    void SetClock();
    float SecondsSinceMidnight() const;

    Sweep sweep_;
    Clock clock_;
    PlotTrace trace_;
};

}  // namespace counter

// The desk of the reading views: a line whose far end the test plays, and a clock that knows the time of day.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "readings/chart_view.h"
#include "support/bench_meter.h"

namespace counter::test {

using Lines = std::vector<std::string>;

class DayPump : public VirtualPump {
  public:
    // From now on the day goes on at this time.
    void SetTimeOfDay(int second) { offsetMs_ = second * 1000.0 - NowMs(); }
    WallTime LocalTime() const override {
        const long long ms = static_cast<long long>(NowMs() + offsetMs_) % 86'400'000;
        const int second = static_cast<int>(ms / 1000);
        return {2026, 3, 4, second / 3600, second / 60 % 60, second % 60, static_cast<int>(ms % 1000)};
    }

  private:
    double offsetMs_ = 0;
};

struct ReadingsBench {
    ReadingsBench() {
        Line.Unplug();
        Line.Open();
        Program.LinkState.MeterAddressChar = '1';
        Pump.SetTimeOfDay(36'000);
    }
    // A reading, `ms` after the last thing that happened.
    void MeterSends(double ms, const std::string& reading) {
        Pump.Pass(ms);
        Line.Inject(reading + "\r");
    }
    // What has been sent since the last call.
    Lines Sent() {
        const auto first = Line.Sent().begin() + std::exchange(told_, ssize(Line.Sent()));
        return {first, Line.Sent().end()};
    }

    DayPump Pump;
    MemoryFiles Store;
    RecordedDialogs Boxes;
    MeterLine Line{Pump, {}};
    Session Program{Pump, Line, Boxes, {Store, "home"}};

  private:
    std::ptrdiff_t told_ = 0;
};

// A user at the buttons: a refused press fails the test.
inline void Press(ReadingView& view, Control& button) {
    EXPECT_EQ(view.Controls.Click(button), Refusal::None) << button.Name;
}

inline void TypeScale(ChartView& view, const char* mid, const char* small, const char* third) {
    view.Controls.Type(view.txtMidVal, mid);
    view.Controls.Type(view.txtSmallVal, small);
    view.Controls.Type(view.txtThird, third);
}

inline void StartChart(ChartView& view, const char* mid, const char* small, const char* third) {
    TypeScale(view, mid, small, third);
    Press(view, view.cmdOK);
}

}  // namespace counter::test

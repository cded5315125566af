// GraphView: the reading stream counted into a histogram of 31 bars around a middle value.
//
// It shows how readings are distributed, not how they move in time; a run never ends by itself.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "readings/chart_view.h"

namespace counter {

inline constexpr int kBins = 31;
inline constexpr int kMiddleBin = 15;

using BinCounts = std::array<float, kBins>;

struct Histogram {
    ValueScale Scale;
    float BarScale = 1;  // the count that the chart's top represents, above 0
    BinCounts BinCount{};
    // The bars as the last doubling drew them, with the grid over them; what came since lies over the grid.
    BinCounts UnderGrid{};
    // The scales by which the count axis was drawn, and how much of a bar's first five units, which no later
    // drawing wipes, was black under an earlier scale.
    std::vector<float> Scales;
    std::array<double, kBins> Foot{};
    // The arrows change with each reading out of range; a reading in range wipes them and leaves these.
    int LowBlink = 0;
    int HighBlink = 0;
    bool LowShown = false;
    bool HighShown = false;
    // A wiped arrow takes with it what it stood on of the labels.
    bool LowWiped = false;
    bool HighWiped = false;
};

class GraphView : public ChartView {
  public:
    static constexpr std::string_view kName = "frmGRAPH";
    static constexpr std::string_view kTitle = "GRAPH";
    // The record of the chart is rebuilt from the counts when it becomes longer, so that it stays small
    // however long a run takes. The picture stays as it was.
    static constexpr std::size_t kMostEntries = 1000;

    explicit GraphView(Session& session);

    Control& lblVertScale = lblThird;
    Control& txtVertScale = txtThird;

    bool HasBars() const override { return true; }
    const Histogram& Current() const { return histogram_; }

    std::size_t Spots() const override { return kBins; }
    ChartSpot Spot(std::size_t bin) const override;
    std::size_t NearestSpot(double x) const override;
    ChartScale DataArea() const override { return {0, 1000, 1000, 0}; }
    void DrawWindow(ChartSurface& chart, const ChartWindow& window) const override;
    std::string ValuesText() const override;

  private:
    // Which of both arrows, that tell of readings below or above the bars.
    enum class Side { Low, High };

    void DrawAnew() override;
    std::string ObjectionToThird() const override;
    void PressPause() override;
    void PressContinue() override;
    void TakeValue(double value) override;
    std::string RangeText() const override;
    int AutoDivisions() const override { return kAutoDivisions; }
    double PartOfValue(double value) const override;
    bool ValuesGoUp() const override { return false; }
    double ValueAt(double part) const;
    void Count(std::size_t bin);
    void DoubleUpTo(float count);
    void Blink(Side side);
    void Wipe(Side side);
    void DrawAll();
    void DrawDoublings();

    static constexpr int kAutoDivisions = 20;  // of the 31, so that later readings have bars too

    Histogram histogram_;
};

}  // namespace counter

#include "readings/graph_view.h"

#include <utility>

#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr ThirdNumber kVerticalScale = {"txtVertScale", "lblVertScale", "Initial Vertical Scale"};

}  // namespace

GraphView::GraphView(Session& session) : ChartView(session, kVerticalScale) {
    Load();
}

// A chart whose top stands for no count could show none.
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
        DrawArrow(Chart, side);
    }
}

// Where no arrow stands there is nothing to erase.
void GraphView::Wipe(Side side) {
    bool& shown = side == Side::Low ? histogram_.LowShown : histogram_.HighShown;
    if (std::exchange(shown, false)) EraseArrow(Chart, side);
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
    if (histogram_.LowShown) DrawArrow(Chart, Side::Low);
    if (histogram_.HighShown) DrawArrow(Chart, Side::High);
}

}  // namespace counter

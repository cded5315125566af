// ChartWindow: which part of a chart's data area is looked at, and how a user moves it.
#pragma once

namespace counter {

// Parts of the data area's width and height, from 0 at its left and lower edge to 1.
struct ChartWindow {
    double Left = 0, Right = 1;
    double Bottom = 0, Top = 1;

    bool IsWhole() const { return Left <= 0 && Right >= 1 && Bottom <= 0 && Top >= 1; }
    // What lies at `x`, 0..1, across the window, as part of the data area, and the other way round.
    double XOf(double x) const { return Left + x * (Right - Left); }
    double YOf(double y) const { return Bottom + y * (Top - Bottom); }
    double Across(double part) const { return (part - Left) / (Right - Left); }
    double Up(double part) const { return (part - Bottom) / (Top - Bottom); }
    friend bool operator==(const ChartWindow&, const ChartWindow&) = default;
};

// All of these take places and distances as parts of the window, and keep the result within the data area and
// no smaller than a 1000th of it.

// `factor` above 1 looks closer; what is at the place stays there.
ChartWindow ZoomedAt(const ChartWindow& window, double factor, double x, double y);
ChartWindow Moved(const ChartWindow& window, double right, double up);
// What lies between two opposite corners.
ChartWindow PartOf(const ChartWindow& window, double x1, double y1, double x2, double y2);

}  // namespace counter

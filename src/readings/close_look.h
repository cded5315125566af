// CloseLook: what a chart at rest has for those who look closer - its readings one by one, and any part of it
// drawn larger.
#pragma once

#include <cstddef>
#include <string>

#include "platform/chart_surface.h"
#include "readings/chart_window.h"

namespace counter {

// One reading or one bar. Places are parts of the data area, from 0 at its left and lower edge to 1; one that
// is off the scale lies outside.
struct ChartSpot {
    double X = 0, Y = 0;
    std::string Text;  // "12.350 s   499.8"
};

class CloseLook {
  public:
    virtual ~CloseLook() = default;

    // Nothing comes in: the chart is paused, or full.
    virtual bool AtRest() const = 0;
    virtual std::size_t Spots() const = 0;
    virtual ChartSpot Spot(std::size_t number) const = 0;
    // The one that is nearest to a place in the width; there is at least one.
    virtual std::size_t NearestSpot(double x) const = 0;

    // The edges of the data area, in the chart's units.
    virtual ChartScale DataArea() const = 0;
    // A part of the chart instead of the whole.
    virtual void DrawWindow(ChartSurface& chart, const ChartWindow& window) const = 0;
    // What lies over the chart: the setpoints, where the user wants to see them.
    virtual void DrawMarks(ChartSurface& chart, const ChartWindow& window) const = 0;

    // All that it shows as a table: a line of headings, cells separated by tabs.
    virtual std::string ValuesText() const = 0;
};

}  // namespace counter

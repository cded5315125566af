// ChartMap: where the units of a chart lie on what it is painted on, and how large its texts are there.
#pragma once

#include <QFont>
#include <QRectF>

#include "platform/chart_surface.h"

namespace counter {

// The chart takes the whole width of its target and as much of the height as its shape allows.
class ChartMap {
  public:
    ChartMap(const QRectF& target, const ChartScale& scale);

    const QRectF& Target() const { return target_; }
    const ChartScale& Scale() const { return scale_; }
    QPointF At(double x, double y) const;

    const QFont& Font() const { return font_; }
    // The line that a text fills; its letters stand Ascent below the top.
    QRectF LineOf(const ChartText& text) const;
    double Ascent() const { return ascent_; }

    // All that painting the entry touches, smoothed edges included.
    QRectF Reach(const ChartEntry& entry) const;

  private:
    QRectF target_;
    QRectF chart_;  // the part of the target that it takes
    ChartScale scale_;
    QFont font_;
    double ascent_ = 0;
    double lineHeight_ = 0;
};

}  // namespace counter
